#pragma once

#include <QDialog>
#include <QLabel>

namespace netrove {

/// The hidden picture. It closes at a click, and when the user turns to another window.
class frmPic : public QDialog {
    Q_OBJECT

public:
    /// It appears in the middle of the main window and belongs to `owner`.
    frmPic(const QWidget& mainWindow, QWidget* owner);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QLabel* picDudes_;
    bool wasActive_ = false;
};

} // namespace netrove
