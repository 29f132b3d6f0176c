#include "about/frmColHelp.h"

#include "controls/Twips.h"
#include "runtime/SourceText.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QToolTip>

namespace netrove {
namespace {

/// In twips: wide enough for a text of two lines.
constexpr int Width = 4800;
/// Pixels between the frame and the text.
constexpr int MarginX = 5;
constexpr int MarginY = 2;
/// In points: a text that is too high gets a smaller font, in these steps, down to the smallest
/// size.
constexpr qreal FontStep = 0.25;
constexpr qreal SmallestFont = 6;

/// In twips.
int HeightOf(qint16 key) {
    switch (key) {
    case 0:
    case 2:
    case 3:
    case 5:
    case 6:
    case 7:
    case 10:
        return 650;
    case 4:
        return 1250;
    case 8:
        return 1400;
    default:
        return 450;
    }
}

/// The right edge of the screen on which the help opens, in twips.
int RightEdge(const ColumnHelpText& help) {
    const QPoint place(ToPixels(static_cast<int>(help.ColHelpX)),
                       ToPixels(static_cast<int>(help.ColHelpY)));
    const QScreen* screen = QGuiApplication::screenAt(place);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    return ToTwips(screen->geometry().right() + 1);
}

} // namespace

frmColHelp::frmColHelp(const ColumnHelpText& help, QWidget* owner)
    : QWidget(owner, Qt::Popup), Shape1_(new QFrame(this)), Label1_(new QLabel(this)) {
    setObjectName(u"frmColHelp"_s);
    setWindowTitle(u"Column Help"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    MakeControls();
    Form_Load(help);
}

void frmColHelp::MakeControls() {
    setPalette(QToolTip::palette());
    Shape1_->setObjectName(u"Shape1"_s);
    Shape1_->setFrameShape(QFrame::Box);
    Shape1_->setAutoFillBackground(true);
    // The colours of tool tips, in the roles from which these controls take theirs.
    QPalette colours = palette();
    colours.setColor(QPalette::Window, colours.color(QPalette::ToolTipBase));
    colours.setColor(QPalette::WindowText, colours.color(QPalette::ToolTipText));
    Shape1_->setPalette(colours);
    Label1_->setPalette(colours);
    Label1_->setObjectName(u"Label1"_s);
    Label1_->setTextFormat(Qt::PlainText);
    Label1_->setWordWrap(true);
    Label1_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Label1_->setContentsMargins(MarginX, MarginY, MarginX, MarginY);
}

void frmColHelp::Form_Load(ColumnHelpText help) {
    if (help.ColHelpX > static_cast<float>(RightEdge(help) - Width))
        help.ColHelpX -= Width;
    move(ToPixels(static_cast<int>(help.ColHelpX)), ToPixels(static_cast<int>(help.ColHelpY)));
    Label1_->setText(QString(help.ColHelpText).replace("\r\n"_L1, "\n"_L1));
    setFixedSize(ToPixels(Width), ToPixels(HeightOf(help.ColHelpKey)));
    Shape1_->resize(size());
    Label1_->resize(size());
    FitFont();
    setAccessibleName(windowTitle());
    setAccessibleDescription(Label1_->text());
}

/// The heights are made for small fonts: makes the font smaller until the text fits.
void frmColHelp::FitFont() {
    QFont font = Label1_->font();
    while (Label1_->heightForWidth(width()) > height() &&
           font.pointSizeF() - FontStep >= SmallestFont) {
        font.setPointSizeF(font.pointSizeF() - FontStep);
        Label1_->setFont(font);
    }
}

void frmColHelp::mousePressEvent(QMouseEvent* /*event*/) {
    close();
}

void frmColHelp::keyPressEvent(QKeyEvent* /*event*/) {
    close();
}

void frmColHelp::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isVisible() && !isActiveWindow())
        close();
}

} // namespace netrove
