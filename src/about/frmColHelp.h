#pragma once

#include <QFrame>
#include <QLabel>
#include <QWidget>

namespace netrove {

/// What the help for a column says, and where it opens.
struct ColumnHelpText {
    float ColHelpX = 0; ///< on the screen, in twips
    float ColHelpY = 0;
    QString ColHelpText;    ///< lines separated by CR LF
    qint16 ColHelpKey = -1; ///< selects the window's height
};

/// A small window with the help for a column, which acts as a tool tip: any click or key dismisses
/// it, and so does turning to another window. Then it deletes itself.
class frmColHelp : public QWidget {
    Q_OBJECT

public:
    frmColHelp(const ColumnHelpText& help, QWidget* owner);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeControls();
    void Form_Load(ColumnHelpText help);
    void FitFont();

    QFrame* Shape1_;
    QLabel* Label1_;
};

} // namespace netrove
