#include "online/frmUpdate.h"

#include "controls/NamedControls.h"
#include "online/webfiles/WebFile.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "skins/SkinControls.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace netrove {
namespace {

/// In pixels: around the controls and between them.
constexpr int Margin = 5;
constexpr int Gap = 4;

QString Lines(const QStringList& lines) {
    return lines.join("\r\n"_L1);
}

QLabel* Label(const char* name, const char* caption, QWidget* parent) {
    auto* label = Named(new QLabel(Text(caption), parent), Text(name));
    label->setWordWrap(true);
    return label;
}

QFrame* Frame(const char* name, QFrame::Shape shape, QWidget* parent) {
    auto* frame = Named(new QFrame(parent), Text(name));
    frame->setFrameShape(shape);
    frame->setFrameShadow(QFrame::Plain);
    return frame;
}

} // namespace

frmUpdate::frmUpdate(const OnlineServices& services, QWidget* owner)
    : OnlineDialog(u"frmUpdate"_s, services, {.width = 4755, .low = 2010, .tall = 4770}, owner)
    , Shape1_(Frame("Shape1", QFrame::Box, this))
    , Label1_(Label("Label1",
                    "Welcome to the Tarn Bridge Software Update. This process will verify that "
                    "you have the latest version of Netrove.",
                    this))
    , Label2_(Label("Label2",
                    "Please ensure that you are connected to the internet before proceeding.",
                    this))
    , cmdCheck_(NamedButton(*this, u"cmdCheck"_s, u"Check For &Update"_s, "Check It"))
    , cmdCancel_(NamedButton(*this, u"cmdCancel"_s, u"&Cancel"_s, "Cancel"))
    , cmdLink_(NamedButton(*this, u"cmdLink"_s, services.webAddress,
                           "Click here to go to the official site"))
    , Line1_(Frame("Line1", QFrame::HLine, this))
    , txtInfo_(new QPlainTextEdit(this))
    , cmdDown_(NamedButton(*this, u"cmdDown"_s, u"Download New Version"_s, "Download It")) {
    MakeControls();
    Arrange();
    ShowLink(false);
    LoadLow({Line1_, txtInfo_, cmdDown_});
}

void frmUpdate::MakeControls() {
    setWindowTitle(u"Update"_s);
    Shape1_->setProperty(TagProperty, u"BORDONLY"_s);
    cmdCheck_->setDefault(true);
    cmdDown_->setEnabled(false);
    txtInfo_->setObjectName(u"txtInfo"_s);
    txtInfo_->setAccessibleName(tr("News"));
    txtInfo_->setReadOnly(true);
    txtInfo_->setTabChangesFocus(true);
    // A long address must not widen the dialog.
    cmdLink_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(cmdCheck_, &QPushButton::clicked, this, &frmUpdate::cmdCheck_Click);
    connect(cmdCancel_, &QPushButton::clicked, this, &frmUpdate::reject);
    connect(cmdLink_, &QPushButton::clicked, this, &frmUpdate::cmdLink_Click);
    connect(cmdDown_, &QPushButton::clicked, this, &frmUpdate::cmdDown_Click);
}

/// The link takes the place of the advice about the connection.
void frmUpdate::Arrange() {
    auto* texts = new QVBoxLayout;
    texts->setContentsMargins(Margin, Gap / 2, Margin, Gap / 2);
    texts->setSpacing(Gap / 2);
    for (QWidget* text : {static_cast<QWidget*>(Label1_), static_cast<QWidget*>(Label2_),
                          static_cast<QWidget*>(cmdLink_)})
        texts->addWidget(text);
    auto* framed = new QGridLayout;
    framed->addWidget(Shape1_, 0, 0);
    framed->addLayout(texts, 0, 0);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdCheck_);
    buttons->addStretch();
    buttons->addWidget(cmdCancel_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(Margin, Margin, Margin, Margin);
    all->setSpacing(Gap);
    all->addLayout(framed, 1);
    all->addLayout(buttons);
    all->addWidget(Line1_);
    all->addWidget(txtInfo_, 2);
    all->addWidget(cmdDown_);
    QWidget* before = cmdCheck_;
    for (QWidget* next : {static_cast<QWidget*>(cmdCancel_), static_cast<QWidget*>(cmdLink_),
                          static_cast<QWidget*>(txtInfo_), static_cast<QWidget*>(cmdDown_)}) {
        setTabOrder(before, next);
        before = next;
    }
}

void frmUpdate::ShowLink(bool isShown) {
    Label2_->setVisible(!isShown);
    cmdLink_->setVisible(isShown);
}

bool frmUpdate::Check4File(QLatin1String path, QString& resp) {
    resp.clear();
    try {
        resp = Read(*cmdCancel_, path);
    } catch (...) {
        return false;
    }
    return !resp.isEmpty();
}

/// Raises if the file can't be read, or doesn't begin with the marker.
QString frmUpdate::ReadPayload(QLatin1String path, QLatin1String marker) {
    QString answer;
    if (!Check4File(path, answer) || !WebFile::HasMarker(answer, marker))
        throw RunTimeError(ErrorNumber::BadFileMode);
    return WebFile::Payload(answer);
}

void frmUpdate::cmdCheck_Click() {
    try {
        BeginCheck();
        const Version web =
            Version::FromText(ReadPayload(WebFile::VersionPath, WebFile::VersionMarker));
        if (web > Services().version)
            OfferUpdate(web);
        else
            SayUpToDate(web);
        unsetCursor();
        cmdCheck_->setEnabled(true);
    } catch (...) {
        FailCheck();
    }
}

void frmUpdate::BeginCheck() {
    SetTall(false);
    setWindowTitle(u"Update"_s);
    setCursor(Qt::WaitCursor);
    cmdCheck_->setEnabled(false);
    cmdDown_->setEnabled(false);
    ShowLink(false);
    txtInfo_->clear();
}

void frmUpdate::SayUpToDate(const Version& web) {
    Services().dialogs.Message(
        MessageIcon::Information,
        Lines({u"Web release = "_s + web.Text(), u"Your release = "_s + Services().version.Text(),
               u"You have the latest release of Netrove."_s}),
        u"Netrove update"_s);
    cmdCancel_->setFocus();
}

void frmUpdate::OfferUpdate(const Version& web) {
    setWindowTitle(u"Update available from v"_s + Services().version.Text() + u" to v"_s +
                   web.Text());
    cmdDown_->setEnabled(true);
    QString news;
    const bool isThere =
        Check4File(WebFile::NewsPath, news) && WebFile::HasMarker(news, WebFile::NewsMarker);
    txtInfo_->setPlainText(isThere ? WebFile::Shown(WebFile::Payload(news))
                                   : u"Unable to get news for Netrove."_s);
    SetTall(true);
    cmdDown_->setFocus();
}

void frmUpdate::FailCheck() {
    unsetCursor();
    cmdCheck_->setEnabled(true);
    cmdDown_->setEnabled(false);
    SetTall(false);
    const bool wasSaid = SayFailure(
        Lines({u"The update check failed. You must check for the"_s,
               u"new version of this application manually at"_s, Services().webAddress + u'.'}),
        u"Error in update"_s);
    if (!wasSaid)
        return;
    ShowLink(true);
    cmdLink_->setFocus();
}

void frmUpdate::cmdDown_Click() {
    try {
        setCursor(Qt::WaitCursor);
        cmdDown_->setEnabled(false);
        HandOverInstaller();
        unsetCursor();
        cmdDown_->setEnabled(true);
    } catch (...) {
        FailDownload();
    }
}

void frmUpdate::HandOverInstaller() {
    const QString address = ReadPayload(WebFile::InstallerPath, WebFile::InstallerMarker);
    const MessageAnswer answer =
        Services().dialogs.Message(MessageIcon::Information,
                                   Lines({u"This feature will download the installer package"_s,
                                          u"for the new version of Netrove. After the download"_s,
                                          u"is complete, please exit the current running version"_s,
                                          u"of Netrove before installing the new version."_s}),
                                   u"Instructions"_s, MessageButtons::OkCancel);
    if (answer == MessageAnswer::Ok)
        Services().shell.ShellRun(WebFile::Link(address));
}

void frmUpdate::FailDownload() {
    unsetCursor();
    cmdDown_->setEnabled(true);
    const bool wasSaid =
        SayFailure(Lines({u"An error has occured. You must manually download the new"_s,
                          u"version of Netrove at "_s + Services().webAddress + u'.'}),
                   u"Error in download"_s);
    if (wasSaid)
        ShowLink(true);
}

void frmUpdate::cmdLink_Click() {
    Services().shell.ShellRun(Services().webAddress);
}

} // namespace netrove
