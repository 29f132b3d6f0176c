#include "online/frmDonate.h"

#include "controls/NamedControls.h"
#include "online/webfiles/WebFile.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "skins/SkinControls.h"
#include "windowservices/WindowGeometry.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace netrove {
namespace {

/// Inner width in twips.
constexpr int Width = 5550;
/// In pixels: around the controls and between them.
constexpr int Margin = 5;
constexpr int Gap = 4;
/// The most characters of a caption that are used: more than any button has room for.
constexpr qsizetype MaxCaption = 200;

QString WithoutScheme(const QString& address) {
    const QLatin1String mark("://");
    const qsizetype at = address.indexOf(mark);
    return at < 0 ? address : address.mid(at + mark.size());
}

} // namespace

frmDonate::frmDonate(const OnlineServices& services, QWidget* owner)
    : OnlineDialog(u"frmDonate"_s, services, {.width = Width, .low = 2250, .tall = 3765}, owner)
    , txtDon_(new QPlainTextEdit(this))
    , cmdUp_(NamedButton(*this, u"cmdUp"_s, u"&Get Links"_s, "Get the links from the internet"))
    , cmdOK_(NamedButton(*this, u"cmdOK"_s, u"&Cancel"_s, "Cancel")) {
    MakeControls();
    Arrange();
    LoadLow({cmdLink_.begin(), cmdLink_.end()});
    ResetLinks();
    txtDon_->setPlainText(u"Netrove is freeware. It will stay freeware. If it is of use to you, "
                          "please consider a donation. Please click on \"Get Links\" to get "
                          "the selections. Thank You.\n\n(You will need to be connected to the "
                          "internet to reach the websites)"_s);
}

void frmDonate::MakeControls() {
    setWindowTitle(u"Donation"_s);
    txtDon_->setObjectName(u"txtDon"_s);
    txtDon_->setProperty(TagProperty, u"NOCOLOR"_s);
    txtDon_->setAccessibleName(windowTitle());
    txtDon_->setReadOnly(true);
    txtDon_->setTabChangesFocus(true);
    txtDon_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    connect(cmdUp_, &QPushButton::clicked, this, &frmDonate::cmdUp_Click);
    connect(cmdOK_, &QPushButton::clicked, this, &frmDonate::reject);
    for (std::size_t index = 0; index < cmdLink_.size(); ++index) {
        QPushButton* link = cmdLink_[index] = NamedButton(
            *this, ElementName("cmdLink", index), QString(), "Click here to go to the website");
        link->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        connect(link, &QPushButton::clicked, this,
                [this, index] { Services().shell.ShellRun(LinkAddress_[index]); });
    }
    cmdUp_->setDefault(true);
    cmdUp_->setFocus();
}

void frmDonate::Arrange() {
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdUp_);
    buttons->addStretch();
    buttons->addWidget(cmdOK_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(Margin, Margin, Margin, Margin);
    all->setSpacing(Gap);
    all->addWidget(txtDon_, 1);
    all->addLayout(buttons);
    for (QPushButton* link : cmdLink_)
        all->addWidget(link);
    setTabOrder(txtDon_, cmdUp_);
    setTabOrder(cmdUp_, cmdOK_);
    setTabOrder(cmdOK_, cmdLink_[0]);
    setTabOrder(cmdLink_[0], cmdLink_[1]);
    setTabOrder(cmdLink_[1], cmdLink_[2]);
}

void frmDonate::ResetLinks() {
    for (std::size_t index = 0; index < cmdLink_.size(); ++index) {
        LinkAddress_[index] = Services().webAddress;
        SetCaption(*cmdLink_[index], WithoutScheme(Services().webAddress));
    }
}

/// Makes the caption one line, no longer than there is room for.
void frmDonate::SetCaption(QPushButton& link, const QString& caption) const {
    QString line = caption.left(MaxCaption);
    for (QChar& unit : line) {
        if (!unit.isPrint() && !unit.isSurrogate())
            unit = u' ';
    }
    const int room = ToPixels(Width) - 8 * Margin;
    link.setText(link.fontMetrics().elidedText(line, Qt::ElideRight, room, Qt::TextShowMnemonic));
}

/// Passes failures of the read on to the caller.
bool frmDonate::Check4File(QLatin1String path, QString& resp) {
    resp.clear();
    resp = Read(*cmdOK_, path);
    return !resp.isEmpty();
}

void frmDonate::cmdUp_Click() {
    const auto failure = FailureOf([this] {
        cmdUp_->setEnabled(false);
        setCursor(Qt::WaitCursor);
        ResetLinks();
        for (QPushButton* link : cmdLink_)
            link->setEnabled(false);
        GetDonationLinks();
    });
    cmdUp_->setEnabled(true);
    unsetCursor();
    if (failure)
        ResetLinks();
    for (QPushButton* link : cmdLink_)
        link->setEnabled(true);
    SetTall(true);
    cmdLink_[0]->setFocus();
}

void frmDonate::GetDonationLinks() {
    try {
        setCursor(Qt::WaitCursor);
        ReadLinks();
        unsetCursor();
    } catch (...) {
        SayUnread();
    }
}

/// Changes no link if the file can't be used.
void frmDonate::ReadLinks() {
    QString answer;
    if (!Check4File(WebFile::DonationPath, answer))
        throw RunTimeError(ErrorNumber::FileNotFound);
    const DonationLinks links = ReadDonationLinks(answer);
    for (qsizetype index = 0; index < links.captions.size(); ++index)
        SetCaption(*cmdLink_.at(static_cast<std::size_t>(index)), links.captions[index]);
    for (qsizetype index = 0; index < links.addresses.size(); ++index)
        LinkAddress_.at(static_cast<std::size_t>(index)) = links.addresses[index];
}

void frmDonate::SayUnread() {
    unsetCursor();
    SayFailure(u"Could not get the update for the links. Click on one of the\r\n"
               "existing links to go to official Tarn Bridge Software site and\r\n"
               "use the donation links listed there."_s,
               u"Error in update"_s);
}

} // namespace netrove
