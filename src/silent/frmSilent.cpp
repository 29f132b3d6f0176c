#include "silent/frmSilent.h"

#include "controls/ListHeader.h"
#include "controls/Twips.h"
#include "runtime/SourceText.h"
#include "search/NotSearchedText.h"
#include "silent/NobodyText.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QVBoxLayout>

#include <algorithm>

namespace netrove {
namespace {

// In twips.
constexpr int Width = 9000;
constexpr int Height = 5400;
constexpr int NameWidth = 2700;
constexpr int ReasonWidth = 4500;
constexpr int TimeWidth = 1300;

// In milliseconds.
constexpr int RefreshInterval = 1000;
constexpr int AnswersInterval = 100; ///< while computers are being asked again

QString Time(const NotSearched& one) {
    return one.time.toString(u"HH:mm:ss"_s);
}

bool HasSameNames(const ListView& list, const std::vector<NotSearched>& all) {
    int row = 0;
    return list.Count() == static_cast<int>(all.size()) &&
           std::ranges::all_of(
               all, [&](const NotSearched& one) { return list.Text(++row) == one.name; });
}

} // namespace

frmSilent::frmSilent(const Services& services, QWidget* owner)
    : ProgramDialog(u"frmSilent"_s, services.look, owner)
    , services_(services)
    , lblCount_(new QLabel(this))
    , lvwSilent_(new ListView(this))
    , lblNobody_(new QLabel(this)) {
    setWindowTitle(tr("Computers That Didn't Answer"));
    setAttribute(Qt::WA_DeleteOnClose);
    LayOut();
    LoadSkin();
    connect(lvwSilent_, &ListView::CopyPressed, this, &frmSilent::CopyRows);
    connect(lvwSilent_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmSilent::UpdateButtons);
    tmrRefresh_.setParent(this);
    tmrRefresh_.setObjectName(u"tmrRefresh"_s);
    tmrRefresh_.setInterval(RefreshInterval);
    connect(&tmrRefresh_, &QTimer::timeout, this, &frmSilent::Refresh);
    tmrRefresh_.start();
    Refresh();
}

frmSilent::~frmSilent() {
    if (services_.test)
        services_.test->Cancel();
}

void frmSilent::LayOut() {
    lvwSilent_->setObjectName(u"lvwSilent"_s);
    lvwSilent_->AddColumn(tr("Computer or share"), Qt::AlignLeft, NameWidth);
    lvwSilent_->AddColumn(tr("Reason"), Qt::AlignLeft, ReasonWidth);
    lvwSilent_->AddColumn(tr("Time"), Qt::AlignLeft, TimeWidth);
    lvwSilent_->Header()->setStretchLastSection(true);
    lvwSilent_->setAccessibleName(windowTitle());
    lblCount_->setObjectName(u"lblCount"_s);
    lblCount_->setBuddy(lvwSilent_);
    lblCount_->setWordWrap(true);
    lblNobody_->setObjectName(u"lblNobody"_s);
    lblNobody_->setTextFormat(Qt::PlainText);
    lblNobody_->setWordWrap(true);
    lblNobody_->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    lblNobody_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblCount_);
    layout->addWidget(lvwSilent_, 1);
    layout->addWidget(lblNobody_, 1);
    layout->addWidget(MakeButtons());
    resize(ToPixels(Width), ToPixels(Height));
}

QWidget* frmSilent::MakeButtons() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    cmdLogOn_ = buttons->addButton(tr("&Log On..."), QDialogButtonBox::ActionRole);
    cmdLogOn_->setObjectName(u"cmdLogOn"_s);
    cmdLogOn_->setVisible(services_.logOn != nullptr);
    connect(cmdLogOn_, &QPushButton::clicked, this, &frmSilent::cmdLogOn_Click);
    cmdTryAgain_ = buttons->addButton(tr("&Try Again"), QDialogButtonBox::ActionRole);
    cmdTryAgain_->setObjectName(u"cmdTryAgain"_s);
    cmdTryAgain_->setToolTip(tr("Asks whether they answer now; a search is yours to start"));
    cmdTryAgain_->setVisible(services_.test != nullptr);
    connect(cmdTryAgain_, &QPushButton::clicked, this, &frmSilent::cmdTryAgain_Click);
    for (QPushButton* button : {cmdLogOn_, cmdTryAgain_})
        button->setAutoDefault(false);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    return buttons;
}

/// When a job begins, the asking is broken off: late answers would be taken for the search's own.
void frmSilent::Refresh() {
    if (services_.test && services_.test->IsRunning()) {
        if (services_.isBusy())
            services_.test->Cancel();
        else
            services_.test->TakeAnswers();
        if (!services_.test->IsRunning())
            tmrRefresh_.setInterval(RefreshInterval);
    }
    ShowNobody(services_.report.FoundNobody());
    Fill();
    UpdateButtons();
}

void frmSilent::ShowNobody(bool nobody) {
    if (!nobody)
        foundNow_.reset();
    lvwSilent_->setVisible(!nobody);
    lblNobody_->setVisible(nobody);
    QString text = NotSearchedText(services_.report);
    if (text.isEmpty())
        text = tr("Every computer that was asked has answered.");
    if (foundNow_ == 0)
        text = tr("There is still no computer.");
    else if (foundNow_ == 1)
        text = tr("1 computer is there now: choose \"Set to Network Root\", and search again.");
    else if (foundNow_)
        text = tr("%n computers are there now: choose \"Set to Network Root\", and search again.",
                  nullptr, *foundNow_);
    lblCount_->setText(text);
    if (nobody)
        lblNobody_->setText(NobodyText(services_.report, services_.networkFile));
}

void frmSilent::Fill() {
    std::vector<NotSearched> all = services_.report.All();
    for (NotSearched& one : all) {
        if (services_.test && services_.test->IsAsking(one.name))
            one.reason = tr("It is asked again...");
    }
    if (all == shown_)
        return;
    if (!HasSameNames(*lvwSilent_, all)) {
        lvwSilent_->Clear();
        for (const NotSearched& one : all)
            lvwSilent_->Add(one.name);
    }
    int row = 0;
    for (const NotSearched& one : all) {
        lvwSilent_->SetSubItem(++row, 1, one.reason);
        lvwSilent_->SetSubItem(row, 2, Time(one));
    }
    shown_ = std::move(all);
    if (lvwSilent_->Count() > 0 && lvwSilent_->SelectedCount() == 0) {
        lvwSilent_->SetCurrentRow(1);
        lvwSilent_->SetSelected(1, true);
    }
}

std::optional<NotSearched> frmSilent::Selected() const {
    const std::vector<int> rows = lvwSilent_->SelectedRows();
    if (rows.size() != 1 || rows.front() > static_cast<int>(shown_.size()))
        return std::nullopt;
    return shown_[static_cast<std::size_t>(rows.front()) - 1];
}

void frmSilent::UpdateButtons() {
    const bool isBusy = services_.isBusy() || (services_.test && services_.test->IsRunning());
    cmdLogOn_->setEnabled(!isBusy && Selected());
    cmdTryAgain_->setEnabled(!isBusy && (!shown_.empty() || services_.report.FoundNobody()));
}

void frmSilent::cmdLogOn_Click() {
    if (const auto selected = Selected())
        services_.logOn(*this, selected->Computer());
}

void frmSilent::cmdTryAgain_Click() {
    setCursor(Qt::WaitCursor);
    if (services_.report.FoundNobody()) {
        LookForComputers();
    } else {
        QStringList names;
        for (const NotSearched& one : services_.report.All())
            names.append(one.name);
        services_.test->Begin(names);
        tmrRefresh_.setInterval(AnswersInterval);
    }
    unsetCursor();
    Refresh();
}

void frmSilent::LookForComputers() {
    lblCount_->setText(tr("Looking for computers..."));
    cmdTryAgain_->setEnabled(false);
    foundNow_ = services_.test->CountComputers();
}

void frmSilent::CopyRows() const {
    QStringList lines;
    for (const int row : lvwSilent_->SelectedRows())
        lines.append(lvwSilent_->Text(row) + u'\t' + lvwSilent_->SubItem(row, 1) + u'\t' +
                     lvwSilent_->SubItem(row, 2));
    if (!lines.isEmpty())
        QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

} // namespace netrove
