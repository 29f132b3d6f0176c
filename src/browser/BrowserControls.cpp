#include "browser/BrowserControls.h"

#include "browser/LoadProgress.h"
#include "controls/Color.h"
#include "controls/NamedControls.h"
#include "runtime/SourceText.h"
#include "windowservices/PredefinedIcons.h"

#include <algorithm>

namespace netrove {
namespace {

/// Edge lengths of pictures, in pixels.
constexpr int NodePicture = 16;
constexpr int LoadPicture = 64;
/// Pixels between the parts of the progress display.
constexpr int Gap = 6;

QLabel* Label(QWidget& parent, const char* name, const char* caption) {
    QLabel* label = NamedLabel(parent, Text(name), Text(caption));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QFrame* Line(QWidget& parent, const char* name) {
    auto* line = Named(new QFrame(&parent), Text(name));
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

BrowserControls::BrowserControls(QWidget& dialog) : imgXPNWImages(NodePicture) {
    for (const QString& key : NetworkIconKeys())
        imgXPNWImages.Add(key, NetworkIcon(key));

    Ln = {Line(dialog, "Ln(0)"), Line(dialog, "Ln(1)")};
    ImgNet1 = Label(dialog, "ImgNet(1)", "");
    ImgNet1->setPixmap(
        NetworkPicture().pixmap(QSize(LoadPicture, LoadPicture), dialog.devicePixelRatioF()));
    LblMain = Label(dialog, "LblMain", "Searching for computers on the network.");
    lblAddNode = Label(dialog, "lblAddNode", "");
    tvwNetwork = Named(new TreeView(&dialog), u"tvwNetwork"_s);
    tvwNetwork->setAccessibleName(tr("Network"));
    cmdOk =
        NamedButton(dialog, u"cmdOk"_s, u"&Select"_s, "Set the selected node as the network node");
    cmdCancel = NamedButton(dialog, u"cmdCancel"_s, u"&Close"_s, "Close the window");
    lblWait = Label(dialog, "lblWait", "Wait...");
    MakeProgress(dialog);
    MakeMenu(dialog);

    for (QWidget* hidden : {static_cast<QWidget*>(tvwNetwork), static_cast<QWidget*>(LblMain),
                            static_cast<QWidget*>(lblWait), static_cast<QWidget*>(lblProg)})
        hidden->hide();
    cmdOk->setEnabled(false);
    cmdOk->setDefault(true);
    cmdCancel->setAutoDefault(false); // Enter mustn't close the dialog while cmdOk is disabled
}

void BrowserControls::MakeProgress(QWidget& dialog) {
    picProg = Named(new QFrame(&dialog), u"picProg"_s);
    picProg->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | QFrame::Raised);
    picProg->setAutoFillBackground(true);
    shpProg = Named(new QFrame(picProg), u"shpProg"_s);
    shpProg->setFrameStyle(static_cast<int>(QFrame::Box) | QFrame::Plain);
    QPalette framePalette = shpProg->palette();
    framePalette.setColor(
        QPalette::WindowText,
        Mixed(framePalette.color(QPalette::Window), framePalette.color(QPalette::WindowText), 0.4));
    shpProg->setPalette(framePalette);
    lblProg = Label(*picProg, "lblProg", "");
    lblProg->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QPalette palette = lblProg->palette();
    palette.setColor(QPalette::WindowText, palette.color(QPalette::Highlight));
    lblProg->setPalette(palette);
    QFont font = lblProg->font();
    font.setBold(true);
    lblProg->setFont(font);
    lblProcPerc = Label(*picProg, "lblProcPerc", "");

    const int height = lblProg->fontMetrics().height();
    const int bar = lblProg->fontMetrics().horizontalAdvance(LoadProgress::FullBar());
    const int percentage = lblProcPerc->fontMetrics().horizontalAdvance(u"100%"_s);
    lblProg->setGeometry(2 * Gap, Gap + 2, bar, height);
    shpProg->setGeometry(lblProg->geometry().adjusted(-Gap / 2, -2, Gap / 2, 2));
    lblProcPerc->setGeometry(shpProg->geometry().right() + Gap, Gap + 2, percentage, height);
    picProg->resize(lblProcPerc->geometry().right() + 2 * Gap, height + 2 * Gap + 4);
}

void BrowserControls::MakeMenu(QWidget& dialog) {
    mnupopUp1 = Named(new QMenu(&dialog), u"mnupopUp1"_s);
    mnuExcNode = Named(mnupopUp1->addAction(u"Exclude Node of this Name and Type in Search"_s),
                       u"mnuExcNode"_s);
}

} // namespace netrove
