#include "gui/ShownTexts.h"

#include "controls/Color.h"
#include "fakes/Pixels.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPaintEngine>

#include <algorithm>

namespace netrove {
namespace {

/// Paints nothing, and notes the places of the texts.
class TextNoter : public QPaintEngine {
public:
    TextNoter() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& changed) override {
        if (changed.state() & DirtyTransform)
            transform_ = changed.transform();
    }
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    void drawPixmap(const QRectF& /*to*/, const QPixmap& /*picture*/,
                    const QRectF& /*from*/) override {}
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        if (item.text().trimmed().isEmpty())
            return;
        const QRectF area(place.x(), place.y() - item.ascent(), item.width(),
                          item.ascent() + item.descent());
        areas.push_back(transform_.mapRect(area).toAlignedRect());
    }

    std::vector<QRect> areas;

private:
    QTransform transform_;
};

class TextNotes : public QPaintDevice {
public:
    explicit TextNotes(const QWidget& like) : like_(like) {}
    QPaintEngine* paintEngine() const override { return &noter; }

    mutable TextNoter noter;

protected:
    int metric(PaintDeviceMetric what) const override {
        switch (what) {
        case PdmWidth:
            return like_.width();
        case PdmHeight:
            return like_.height();
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 96;
        }
    }

private:
    const QWidget& like_;
};

/// Whether the desktop chooses how what is switched off looks there.
bool IsDesktops(const QWidget& control) {
    return control.inherits("QMenu") || control.inherits("QMenuBar") ||
           control.inherits("QLineEdit") || control.inherits("QComboBox") ||
           qobject_cast<const QAbstractItemView*>(control.parentWidget());
}

bool IsEnabled(const QWidget& control, const QPoint& place) {
    const QAction* action = nullptr;
    if (const auto* menu = qobject_cast<const QMenu*>(&control))
        action = menu->actionAt(place);
    if (const auto* bar = qobject_cast<const QMenuBar*>(&control))
        action = bar->actionAt(place);
    return action ? action->isEnabled() : control.isEnabled();
}

void AddTexts(QWidget& control, const QWidget& window, std::vector<ShownText>& texts) {
    TextNotes notes(control);
    control.render(&notes, {}, {}, {});
    const QString name = control.objectName().isEmpty()
                             ? QString::fromLatin1(control.metaObject()->className())
                             : control.objectName();
    for (const QRect& area : notes.noter.areas) {
        const QRect seen = area & control.rect();
        if (seen.width() >= 4 && seen.height() >= 4)
            texts.push_back({name, seen.translated(control.mapTo(&window, QPoint())),
                             !IsEnabled(control, seen.center()), IsDesktops(control)});
    }
}

} // namespace

std::vector<ShownText> ShownTexts(QWidget& window) {
    std::vector<ShownText> texts;
    AddTexts(window, window, texts);
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (control->window() == &window && control->isVisible())
            AddTexts(*control, window, texts);
    }
    return texts;
}

double PaintedContrast(const QImage& picture, const QRect& area) {
    const QHash<QRgb, int> counts = ColorsOf(picture, area);
    const int most = counts.isEmpty() ? 0 : *std::max_element(counts.cbegin(), counts.cend());
    double highest = 1;
    // Of a shaded area, two colours may be equally common.
    for (auto fill = counts.cbegin(); fill != counts.cend(); ++fill) {
        for (auto color = counts.cbegin(); fill.value() == most && color != counts.cend(); ++color)
            highest = std::max(highest, Contrast(QColor(color.key()), QColor(fill.key())));
    }
    return highest;
}

} // namespace netrove
