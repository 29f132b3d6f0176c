#pragma once

#include <QRect>
#include <QSizeGrip>
#include <QString>
#include <QWidget>

#include <vector>

namespace netrove {

/// A status bar of numbered panels, the first one is 1. Panels stand side by side, each as wide as
/// its minimum width; texts are plain and shortened to fit. Made for texts that change thousands
/// of times a second: setting one costs nothing but the comparison and, once between two
/// paintings, the request to paint that panel.
///
/// A number that no panel has raises ErrorNumber::SubscriptOutOfRange.
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

    /// Where a panel stands in the bar, in pixels; the part beyond the bar's end isn't seen.
    [[nodiscard]] QRect PanelRect(int panel) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Panel {
        QString text;
        QString toolTip;
        int minWidth = 0;
        bool paintRequested = false;
    };

    [[nodiscard]] const Panel& At(int panel) const;
    [[nodiscard]] Panel& At(int panel);
    [[nodiscard]] QRect TextRect(const QRect& panelRect) const;
    void PaintPanel(QPainter& painter, const Panel& panel, const QRect& rect) const;
    bool ShowToolTip(const QPoint& position, const QPoint& globalPosition);

    std::vector<Panel> panels_;
    QSizeGrip grip_;
};

} // namespace netrove
