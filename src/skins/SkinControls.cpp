#include "skins/SkinControls.h"

#include "controls/Color.h"

#include <QCheckBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace netrove {
namespace {

void SetColor(QWidget& control, QPalette::ColorRole role, const QColor& color) {
    QPalette palette = control.palette();
    palette.setColor(role, color);
    control.setPalette(palette);
}

void SetBackground(QWidget& control, const QColor& color) {
    SetColor(control, QPalette::Window, color);
    control.setBackgroundRole(QPalette::Window); // of buttons with a text it is another
    control.setAutoFillBackground(true);
}

/// One run over a window.
class Walk {
public:
    Walk(const QWidget& window, const NCSizeModifier& modifier, int skinIndex,
         const SkinColors& colors)
        : hasSkin_(skinIndex != 0)
        , windowColor_(window.palette().color(QPalette::Window))
        , backColor_(ToColor(modifier.ResolvedBackColor()))
        , foreColor_(ToColor(modifier.ResolvedForeColor()))
        , colors_(colors) {}

    void Color(QWidget& control) const {
        const QString tag = control.property(TagProperty).toString();
        if (tag == QLatin1String("NOCOLOR"))
            return;
        if (qobject_cast<QTabWidget*>(&control) != nullptr)
            SetBackground(control, windowColor_);
        else if (qobject_cast<QGroupBox*>(&control) != nullptr)
            ColorGroup(control, tag);
        else if (qobject_cast<QLabel*>(&control) != nullptr ||
                 qobject_cast<QCheckBox*>(&control) != nullptr)
            ColorText(control, tag);
        else if (auto* frame = qobject_cast<QFrame*>(&control);
                 frame != nullptr && frame->metaObject() == &QFrame::staticMetaObject)
            ColorFrame(*frame, tag);
        else if (qobject_cast<QPushButton*>(&control) != nullptr)
            SetColor(control, QPalette::Button, ToColor(colors_.SkinButtonColor));
        else if (qobject_cast<QRadioButton*>(&control) != nullptr)
            ColorOption(control);
        else if (qobject_cast<QLineEdit*>(&control) != nullptr)
            ColorTextBox(control);
    }

private:
    void ColorGroup(QWidget& control, const QString& tag) const {
        SetBackground(control, windowColor_);
        if (tag == QLatin1String("FORE") && hasSkin_)
            SetColor(control, QPalette::WindowText, foreColor_);
    }

    void ColorText(QWidget& control, const QString& tag) const {
        if (hasSkin_) {
            SetBackground(control, backColor_);
            SetColor(control, QPalette::WindowText, foreColor_);
        }
        if (tag == QLatin1String("LINK") || tag == QLatin1String("LITE"))
            SetColor(control, QPalette::WindowText, ToColor(colors_.SkinLinkColor));
    }

    /// A line, or the outline of a shape.
    void ColorFrame(QFrame& frame, const QString& tag) const {
        if (frame.frameShape() == QFrame::HLine || frame.frameShape() == QFrame::VLine) {
            SetColor(frame, QPalette::WindowText, ToColor(colors_.SkinLineColor));
            return;
        }
        if (tag != QLatin1String("BORDONLY"))
            SetBackground(frame, windowColor_);
        SetColor(frame, QPalette::WindowText, ToColor(colors_.SkinForeColor));
    }

    void ColorOption(QWidget& control) const {
        SetBackground(control, windowColor_);
        SetColor(control, QPalette::WindowText, foreColor_);
    }

    void ColorTextBox(QWidget& control) const {
        SetColor(control, QPalette::Base, windowColor_);
        SetColor(control, QPalette::Text, foreColor_);
    }

    bool hasSkin_;
    QColor windowColor_;
    QColor backColor_;
    QColor foreColor_;
    SkinColors colors_;
};

bool IsControl(const QWidget& widget) {
    const QString name = widget.objectName();
    return !name.isEmpty() && !name.startsWith(QLatin1String("qt_"));
}

} // namespace

void SkinControls(QWidget& window, const NCSizeModifier& modifier, int skinIndex,
                  const SkinColors& colors) {
    if (skinIndex != 0)
        SetBackground(window, ToColor(modifier.ResolvedBackColor()));
    const Walk walk(window, modifier, skinIndex, colors);
    for (QWidget* control : window.findChildren<QWidget*>())
        if (IsControl(*control))
            walk.Color(*control);
}

} // namespace netrove
