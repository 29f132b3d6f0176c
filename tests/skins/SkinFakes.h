#pragma once

#include "runtime/RunTimeError.h"
#include "skins/NCSizeModifier.h"
#include "skins/SkinFrame.h"

#include <QPainter>
#include <QStringList>

#include <functional>

namespace netrove {

/// What frames and samples were asked for, in order, and what fails.
struct FrameLog {
    QStringList calls;
    bool attachFails = false;
    bool detachFails = false;
    const SkinConfiguration* attached = nullptr;
    QColor back = QColor(10, 20, 30);
    QColor fore = QColor(200, 210, 220);
};

class LoggedFrame : public NCSizeModifier {
public:
    explicit LoggedFrame(FrameLog& log) : log_(log) {}

    void Detach() override {
        log_.calls.append(QStringLiteral("detach"));
        if (log_.detachFails)
            throw RunTimeError(ErrorNumber::DeviceIOError);
        log_.attached = nullptr;
    }
    quint32 ResolvedBackColor() const override { return Value(log_.back); }
    quint32 ResolvedForeColor() const override { return Value(log_.fore); }
    void Attach(QWidget& window, const SkinConfiguration& configuration) override {
        log_.calls.append(QStringLiteral("attach ") + window.objectName() + u' ' +
                          configuration.Name);
        if (log_.attachFails)
            throw RunTimeError(ErrorNumber::DeviceIOError);
        log_.attached = &configuration;
    }

private:
    static quint32 Value(const QColor& color) {
        return quint32(color.red() | color.green() << 8 | color.blue() << 16);
    }

    FrameLog& log_;
};

/// Keeps where samples were painted.
class LoggedPainter : public SkinFrame {
public:
    QStringList samples;

    void PaintSample(const SkinConfiguration& configuration, const QWidget& window,
                     QPainter& /*painter*/, const QRect& area, bool active) override {
        samples.append(QStringLiteral("%1 %2 %3,%4 %5x%6 %7")
                           .arg(window.objectName(), configuration.Name)
                           .arg(area.x())
                           .arg(area.y())
                           .arg(area.width())
                           .arg(area.height())
                           .arg(active));
    }
    void Parse(const QString& /*text*/, const QPixmap& /*first*/, const QPixmap& /*second*/,
               SkinConfiguration& /*configuration*/) override {}
};

} // namespace netrove
