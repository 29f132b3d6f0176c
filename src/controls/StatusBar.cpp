#include "controls/StatusBar.h"

#include "controls/Twips.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QCursor>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>
#include <qdrawutil.h>

#include <algorithm>
#include <utility>

namespace netrove {

namespace {

// Gap and margins leave a text the panel's width less 100 twips, which callers that shorten texts
// rely on.
constexpr int Gap = 2;        ///< pixels between two panels
constexpr int TextMargin = 2; ///< pixels from a panel's edge to its text
constexpr int VerticalMargin = 3;
/// More characters than any panel can show: what lies beyond needn't be measured.
constexpr qsizetype MaxShownText = 1000;

/// Gives the bar and its texts a name for screen readers, put together when one asks.
class AccessibleStatusBar : public QAccessibleWidget {
public:
    explicit AccessibleStatusBar(StatusBar* bar)
        : QAccessibleWidget(bar, QAccessible::StatusBar), bar_(bar) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name && bar_->accessibleName().isEmpty())
            return StatusBar::tr("Status bar");
        if (kind != QAccessible::Description && kind != QAccessible::Value)
            return QAccessibleWidget::text(kind);
        QStringList texts;
        for (int panel = 1; panel <= bar_->PanelCount(); ++panel) {
            if (!bar_->Text(panel).isEmpty())
                texts.append(bar_->Text(panel));
            if (bar_->IsClickable(panel))
                texts.append(bar_->ToolTipText(panel));
        }
        return texts.join("; "_L1);
    }

private:
    StatusBar* bar_;
};

QAccessibleInterface* MakeAccessible(const QString& className, QObject* object) {
    static_cast<void>(className);
    auto* bar = qobject_cast<StatusBar*>(object);
    return bar ? new AccessibleStatusBar(bar) : nullptr;
}

} // namespace

StatusBar::StatusBar(QWidget* parent) : QWidget(parent), grip_(this) {
    QAccessible::installFactory(MakeAccessible);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setMouseTracking(true);
}

int StatusBar::AddPanel(const QString& text, int minWidth) {
    panels_.push_back({text, {}, std::max(minWidth, 0)});
    update();
    return PanelCount();
}

void StatusBar::SetText(int panel, const QString& text) {
    Panel& changed = At(panel);
    if (changed.text == text)
        return;
    changed.text = text;
    if (changed.paintRequested || !isVisible())
        return;
    changed.paintRequested = true;
    update(PanelRect(panel));
}

void StatusBar::SetMinWidth(int panel, int minWidth) {
    Panel& changed = At(panel);
    if (changed.minWidth == minWidth)
        return;
    changed.minWidth = std::max(minWidth, 0);
    update();
}

int StatusBar::WidthFor(const QString& text) const {
    // Eliding measures in whole pixels, too.
    return ToTwips(fontMetrics().horizontalAdvance(text) + 2 * TextMargin + Gap + 1 +
                   grip_.sizeHint().width());
}

void StatusBar::SetClickable(int panel, bool clickable) {
    At(panel).isClickable = clickable;
    ShowCursor(mapFromGlobal(QCursor::pos()));
}

int StatusBar::ClickableAt(const QPoint& position) const {
    for (int number = 1; number <= PanelCount(); ++number) {
        if (At(number).isClickable && PanelRect(number).contains(position))
            return number;
    }
    return 0;
}

void StatusBar::ShowCursor(const QPoint& position) {
    if (ClickableAt(position) != 0)
        setCursor(Qt::PointingHandCursor);
    else
        unsetCursor();
}

void StatusBar::mouseMoveEvent(QMouseEvent* event) {
    ShowCursor(event->pos());
}

void StatusBar::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton ? ClickableAt(event->pos()) : 0;
    if (pressed_ == 0)
        QWidget::mousePressEvent(event);
}

void StatusBar::mouseReleaseEvent(QMouseEvent* event) {
    const int pressed = std::exchange(pressed_, 0);
    if (pressed != 0 && event->button() == Qt::LeftButton && ClickableAt(event->pos()) == pressed)
        Q_EMIT PanelClick(pressed);
    else
        QWidget::mouseReleaseEvent(event);
}

QRect StatusBar::PanelRect(int panel) const {
    // Ends are rounded, not widths, so that rounding errors don't add up.
    qint64 begin = 0;
    for (int before = 1; before < panel; ++before)
        begin += At(before).minWidth;
    const qint64 end = begin + At(panel).minWidth;
    const auto pixels = [](qint64 twips) {
        return static_cast<int>(std::min<qint64>(twips / TwipsPerPixel, QWIDGETSIZE_MAX));
    };
    const int width = std::max(0, pixels(end) - pixels(begin) - Gap);
    return QStyle::visualRect(layoutDirection(), rect(), QRect(pixels(begin), 0, width, height()));
}

QSize StatusBar::sizeHint() const {
    const QMargins margins = contentsMargins();
    const int text = fontMetrics().height() + 2 * VerticalMargin;
    return {0, std::max(text, grip_.sizeHint().height()) + margins.top() + margins.bottom()};
}

QSize StatusBar::minimumSizeHint() const {
    return sizeHint();
}

bool StatusBar::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (ShowToolTip(help->pos(), help->globalPos()))
            return true;
    }
    return QWidget::event(event);
}

void StatusBar::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateGeometry();
    QWidget::changeEvent(event);
}

void StatusBar::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    for (int number = 1; number <= PanelCount(); ++number) {
        const QRect panelRect = PanelRect(number);
        if (!event->region().intersects(panelRect))
            continue;
        Panel& panel = At(number);
        PaintPanel(painter, panel, panelRect);
        if (panel.paintRequested && QAccessible::isActive()) {
            QAccessibleEvent change(this, QAccessible::DescriptionChanged);
            QAccessible::updateAccessibility(&change);
        }
        panel.paintRequested = false;
    }
}

void StatusBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const QRect corner(
        QPoint(width() - grip_.sizeHint().width(), height() - grip_.sizeHint().height()),
        grip_.sizeHint());
    grip_.setGeometry(QStyle::visualRect(layoutDirection(), rect(), corner));
}

const StatusBar::Panel& StatusBar::At(int panel) const {
    if (panel < 1 || panel > PanelCount())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return panels_[static_cast<size_t>(panel) - 1];
}

StatusBar::Panel& StatusBar::At(int panel) {
    return const_cast<Panel&>(std::as_const(*this).At(panel));
}

QRect StatusBar::TextRect(const QRect& panelRect) const {
    QRect area = panelRect.intersected(rect()).adjusted(TextMargin, 1, -TextMargin, -1);
    if (grip_.isVisible() && area.intersects(grip_.geometry())) {
        if (layoutDirection() == Qt::RightToLeft)
            area.setLeft(grip_.geometry().right() + 1);
        else
            area.setRight(grip_.geometry().left() - 1);
    }
    return area;
}

void StatusBar::PaintPanel(QPainter& painter, const Panel& panel, const QRect& rect) const {
    qDrawShadePanel(&painter, rect, palette(), true);
    const QRect area = TextRect(rect);
    if (panel.text.isEmpty() || area.width() <= 0)
        return;
    const QString shown = fontMetrics().elidedText(panel.text.left(MaxShownText), Qt::ElideRight,
                                                   area.width(), Qt::TextSingleLine);
    // A slanted last letter may reach into the margin.
    painter.setClipRect(area.adjusted(-TextMargin, 0, TextMargin, 0));
    style()->drawItemText(
        &painter, area, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine | Qt::TextDontClip,
        palette(), isEnabled(), shown, foregroundRole());
    painter.setClipping(false);
}

bool StatusBar::ShowToolTip(const QPoint& position, const QPoint& globalPosition) {
    for (int number = 1; number <= PanelCount(); ++number) {
        const QRect panelRect = PanelRect(number);
        const QString& text = At(number).toolTip;
        if (text.isEmpty() || !panelRect.contains(position))
            continue;
        // A tool tip guesses from its text whether it is markup; this one never is.
        QToolTip::showText(globalPosition,
                           Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text, this,
                           panelRect);
        return true;
    }
    return false;
}

} // namespace netrove
