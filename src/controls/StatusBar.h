#pragma once

#include <QRect>
#include <QSizeGrip>
#include <QString>
#include <QWidget>

#include <vector>

namespace netrove {

/// A status bar of numbered panels, counted from 1. Panels stand side by side, each as wide as its
/// minimum width; texts are plain and shortened to fit. Made for texts that change thousands of
/// times a second: setting one costs only a comparison and, once between two paintings, a request
/// to paint that panel.
///
/// A number without a panel raises ErrorNumber::SubscriptOutOfRange.
class StatusBar : public QWidget {
    Q_OBJECT

public:
    explicit StatusBar(QWidget* parent = nullptr);

    /// Adds a panel at the right and gives its number. The width is in twips.
    int AddPanel(const QString& text, int minWidth);
    [[nodiscard]] int PanelCount() const { return static_cast<int>(panels_.size()); }

    [[nodiscard]] const QString& Text(int panel) const { return At(panel).text; }
    void SetText(int panel, const QString& text);

    [[nodiscard]] const QString& ToolTipText(int panel) const { return At(panel).toolTip; }
    void SetToolTipText(int panel, const QString& text) { At(panel).toolTip = text; }

    /// Twips. A width below 0 counts as 0.
    [[nodiscard]] int MinWidth(int panel) const { return At(panel).minWidth; }
    void SetMinWidth(int panel, int minWidth);

    /// The width, in twips, that the last panel of the bar needs to show all of this text.
    [[nodiscard]] int WidthFor(const QString& text) const;

    /// A clickable panel shows the hand cursor, and its tool tip is part of what screen readers are
    /// told of the bar.
    void SetClickable(int panel, bool clickable);
    [[nodiscard]] bool IsClickable(int panel) const { return At(panel).isClickable; }

    /// The place of a panel in the bar, in pixels; the part beyond the bar's end isn't seen.
    [[nodiscard]] QRect PanelRect(int panel) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The left button went down and up on a clickable panel.
    void PanelClick(int panel);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    struct Panel {
        QString text;
        QString toolTip;
        int minWidth = 0;
        bool paintRequested = false;
        bool isClickable = false;
    };

    [[nodiscard]] const Panel& At(int panel) const;
    [[nodiscard]] Panel& At(int panel);
    [[nodiscard]] QRect TextRect(const QRect& panelRect) const;
    void PaintPanel(QPainter& painter, const Panel& panel, const QRect& rect) const;
    bool ShowToolTip(const QPoint& position, const QPoint& globalPosition);

    /// The clickable panel at that place, 0 where there is none.
    [[nodiscard]] int ClickableAt(const QPoint& position) const;
    void ShowCursor(const QPoint& position);

    std::vector<Panel> panels_;
    int pressed_ = 0; ///< the panel that the left button went down on
    QSizeGrip grip_;
};

} // namespace netrove
