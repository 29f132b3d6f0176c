#include "silent/frmSilent.h"

#include "controls/HelpKey.h"
#include "controls/ListHeader.h"
#include "controls/Twips.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace netrove {
namespace {

// In twips.
constexpr int Width = 9000;
constexpr int Height = 5400;
constexpr int ComputerWidth = 2400;
constexpr int ReasonWidth = 4500;
constexpr int TimeWidth = 1300;

constexpr int RefreshInterval = 1000; ///< milliseconds

QString CountText(int count) {
    if (count == 0)
        return frmSilent::tr("Every computer that was asked has answered.");
    return count == 1
               ? frmSilent::tr("1 computer didn't answer since the last search began:")
               : frmSilent::tr("%n computers didn't answer since the last search began:", nullptr,
                               count);
}

} // namespace

frmSilent::frmSilent(const Services& services, QWidget* owner)
    : QDialog(owner)
    , services_(services)
    , lblCount_(new QLabel(this))
    , lvwSilent_(new ListView(this)) {
    setObjectName(QStringLiteral("frmSilent"));
    setWindowTitle(tr("Computers That Didn't Answer"));
    setAttribute(Qt::WA_DeleteOnClose);
    LayOut();
    skin_.Load(*this, services_.skin);
    Fill();
    connect(lvwSilent_, &ListView::CopyPressed, this, &frmSilent::CopyRows);
    tmrRefresh_.setParent(this);
    tmrRefresh_.setObjectName(QStringLiteral("tmrRefresh"));
    tmrRefresh_.setInterval(RefreshInterval);
    connect(&tmrRefresh_, &QTimer::timeout, this, &frmSilent::Fill);
    tmrRefresh_.start();
}

void frmSilent::LayOut() {
    lvwSilent_->setObjectName(QStringLiteral("lvwSilent"));
    lvwSilent_->AddColumn(tr("Computer"), Qt::AlignLeft, ComputerWidth);
    lvwSilent_->AddColumn(tr("Reason"), Qt::AlignLeft, ReasonWidth);
    lvwSilent_->AddColumn(tr("Time"), Qt::AlignLeft, TimeWidth);
    lvwSilent_->Header()->setStretchLastSection(true);
    lvwSilent_->setAccessibleName(windowTitle());
    lblCount_->setObjectName(QStringLiteral("lblCount"));
    lblCount_->setBuddy(lvwSilent_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblCount_);
    layout->addWidget(lvwSilent_);
    layout->addWidget(buttons);
    resize(ToPixels(Width), ToPixels(Height));
}

void frmSilent::Fill() {
    const std::vector<SilentComputer>& silent = services_.report.SilentComputers();
    const QDateTime until = silent.empty() ? QDateTime() : silent.back().time;
    lblCount_->setText(CountText(static_cast<int>(silent.size())));
    if (lvwSilent_->Count() == static_cast<int>(silent.size()) && until == shownUntil_)
        return;
    shownUntil_ = until;
    lvwSilent_->Clear();
    for (const SilentComputer& computer : silent) {
        const int row = lvwSilent_->Add(computer.name);
        lvwSilent_->SetSubItem(row, 1, computer.reason);
        lvwSilent_->SetSubItem(row, 2, computer.time.toString(QStringLiteral("HH:mm:ss")));
    }
}

void frmSilent::CopyRows() const {
    QStringList lines;
    for (const int row : lvwSilent_->SelectedRows())
        lines.append(lvwSilent_->Text(row) + u'\t' + lvwSilent_->SubItem(row, 1) + u'\t' +
                     lvwSilent_->SubItem(row, 2));
    if (!lines.isEmpty())
        QGuiApplication::clipboard()->setText(lines.join(u'\n'));
}

void frmSilent::keyPressEvent(QKeyEvent* event) {
    if (!OpensHelp(*event, services_.openHelp))
        QDialog::keyPressEvent(event);
}

} // namespace netrove
