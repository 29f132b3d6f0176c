#include "logons/frmLogons.h"

#include "runtime/Names.h"
#include "runtime/SourceText.h"
#include "windowservices/WindowGeometry.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSignalBlocker>
#include <QTextDocument>

#include <algorithm>

namespace netrove {
namespace {

QString NameOf(const QString& computer) {
    return computer.isEmpty() ? frmLogon::AllComputers() : computer;
}

QString TestResult(const QString& computer, const QString& user, LogonResult result) {
    switch (result) {
    case LogonResult::LetIn:
        return frmLogons::tr("%1: logged on as %2.").arg(computer, user);
    case LogonResult::Refused:
        return frmLogons::tr("%1 refused %2: the password is wrong, or the user isn't known there.")
            .arg(computer, user);
    case LogonResult::HidesShares:
        return frmLogons::tr("%1 lets %2 in, but doesn't show its shares.").arg(computer, user);
    default:
        return frmLogons::tr("%1 can't be reached.").arg(computer);
    }
}

} // namespace

frmLogons::frmLogons(const LogonServices& services, QWidget* owner)
    : ProgramDialog(u"frmLogons"_s, services.look, owner), services_(services), controls_(*this) {
    setWindowTitle(tr("Network Logon"));
    ConnectControls();
    UpdateButtons();
    LoadSkin();
}

frmLogons::~frmLogons() = default;

void frmLogons::ConnectControls() {
    connect(controls_.cmdAdd, &QPushButton::clicked, this, &frmLogons::cmdAdd_Click);
    connect(controls_.cmdChange, &QPushButton::clicked, this, &frmLogons::cmdChange_Click);
    connect(controls_.cmdRemove, &QPushButton::clicked, this, &frmLogons::cmdRemove_Click);
    connect(controls_.cmdTest, &QPushButton::clicked, this, &frmLogons::cmdTest_Click);
    connect(controls_.cmdCancel, &QPushButton::clicked, this, &frmLogons::cmdCancel_Click);
    connect(controls_.cmdClose, &QPushButton::clicked, this, &frmLogons::reject);
    connect(controls_.lvwLogons, &QTreeWidget::itemSelectionChanged, this,
            &frmLogons::UpdateButtons);
    connect(controls_.lvwLogons, &QTreeWidget::itemActivated, this, &frmLogons::cmdChange_Click);
}

void frmLogons::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (isRead_ || event->spontaneous())
        return;
    isRead_ = true;
    Centre();
    ReadKeyring();
}

void frmLogons::ReadKeyring() {
    BeginWork(tr("Reading the keyring, which may ask for its password..."), false);
    services_.logons->Read(WhenStored([this](Keyring::Outcome outcome) {
        EndWork(outcome == Keyring::Outcome::Refused
                    ? tr("The keyring stayed locked: what it holds isn't shown.")
                    : QString());
        if (!services_.computer.isEmpty())
            AskFor(services_.computer);
    }));
}

/// For the keyring to call on its own thread: calls `done` on this thread, if the dialog still
/// exists.
Logons::StoreDone frmLogons::WhenStored(std::function<void(Keyring::Outcome)> done) {
    const QPointer<frmLogons> dialog(this);
    return [dialog, done = std::move(done)](Keyring::Outcome outcome) {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [dialog, done, outcome] {
                if (dialog)
                    done(outcome);
            },
            Qt::QueuedConnection);
    };
}

void frmLogons::BeginWork(const QString& text, bool canBeCancelled) {
    isBusy_ = true;
    controls_.lblState->setText(text);
    controls_.barBusy->show();
    controls_.cmdCancel->setVisible(canBeCancelled);
    UpdateButtons();
    if (canBeCancelled)
        controls_.cmdCancel->setFocus();
}

void frmLogons::EndWork(const QString& text) {
    isBusy_ = false;
    controls_.lblState->setText(text);
    controls_.barBusy->hide();
    controls_.cmdCancel->hide();
    ShowLogons();
    controls_.lvwLogons->setFocus();
}

void frmLogons::ShowLogons() {
    const StoredLogon* before = Selected();
    const QString selected = before ? before->computer : QString();
    const QSignalBlocker blocker(controls_.lvwLogons);
    shown_ = services_.logons->All();
    controls_.lvwLogons->clear();
    for (const StoredLogon& logon : shown_) {
        const QString kept = logon.isInKeyring ? tr("Keyring") : tr("This session");
        const QString state =
            services_.logons->IsRefused(logon.computer) ? tr("Refused") : QString();
        auto* item = new QTreeWidgetItem(controls_.lvwLogons,
                                         {NameOf(logon.computer), logon.user, kept, state});
        for (const int column : {0, 1})
            item->setToolTip(column, Qt::convertFromPlainText(item->text(column)));
    }
    Select(selected);
    UpdateButtons();
}

void frmLogons::Select(const QString& computer) {
    for (std::size_t at = 0; at < shown_.size(); ++at) {
        if (at == 0 || IsSameName(shown_[at].computer, computer))
            controls_.lvwLogons->setCurrentItem(
                controls_.lvwLogons->topLevelItem(static_cast<int>(at)));
    }
}

const StoredLogon* frmLogons::Selected() const {
    const auto* item = controls_.lvwLogons->currentItem();
    const int at = controls_.lvwLogons->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(item));
    return at < 0 ? nullptr : &shown_[static_cast<std::size_t>(at)];
}

void frmLogons::UpdateButtons() {
    const bool isOne = Selected() != nullptr && !isBusy_;
    controls_.lvwLogons->setEnabled(!isBusy_);
    controls_.cmdAdd->setEnabled(!isBusy_);
    for (QPushButton* button : {controls_.cmdChange, controls_.cmdRemove, controls_.cmdTest})
        button->setEnabled(isOne);
}

frmLogon::Services frmLogons::FormServices() const {
    return {
        .hasKeyring = services_.logons->HasKeyring(), .dialogs = services_.dialogs, .look = Look()};
}

void frmLogons::AskFor(const QString& computer) {
    const bool isStored = std::ranges::any_of(
        shown_, [&](const StoredLogon& one) { return IsSameName(one.computer, computer); });
    if (!isStored) {
        AddFor(computer);
        return;
    }
    Select(computer);
    cmdChange_Click();
}

void frmLogons::cmdAdd_Click() {
    AddFor({});
}

void frmLogons::AddFor(const QString& computer) {
    frmLogon::Services services = FormServices();
    services.computer = computer;
    frmLogon form(nullptr, services, this);
    if (form.exec() != QDialog::Accepted)
        return;
    const auto isSame = [&](const StoredLogon& one) {
        return IsSameName(one.computer, form.Result().computer);
    };
    if (std::any_of(shown_.begin(), shown_.end(), isSame) &&
        services_.dialogs.Message(MessageIcon::Question,
                                  tr("There is a logon for \"%1\" already.\nReplace it?")
                                      .arg(NameOf(form.Result().computer)),
                                  windowTitle(), MessageButtons::YesNo) != MessageAnswer::Yes)
        return;
    Store(form.Result());
}

void frmLogons::cmdChange_Click() {
    const StoredLogon* selected = Selected();
    if (!selected || isBusy_)
        return;
    frmLogon form(selected, FormServices(), this);
    if (form.exec() == QDialog::Accepted)
        Store(form.Result());
}

void frmLogons::Store(const StoredLogon& logon) {
    BeginWork(logon.isInKeyring ? tr("Storing... The keyring may ask for its password.")
                                : tr("Storing..."),
              false);
    const QString computer = logon.computer;
    const bool isForKeyring = logon.isInKeyring;
    services_.logons->Store(
        logon, WhenStored([this, computer, isForKeyring](auto outcome) {
            const bool isLost = isForKeyring && outcome != Keyring::Outcome::Done;
            EndWork(isLost ? tr("The keyring didn't take the logon: it is kept until Netrove ends.")
                           : QString());
            Select(computer);
        }));
}

void frmLogons::cmdRemove_Click() {
    const StoredLogon* selected = Selected();
    if (!selected)
        return;
    const QString name = NameOf(selected->computer);
    if (services_.dialogs.Message(MessageIcon::Question,
                                  tr("Remove the logon for \"%1\"?").arg(name), windowTitle(),
                                  MessageButtons::YesNo) != MessageAnswer::Yes)
        return;
    BeginWork(tr("Removing..."), false);
    services_.logons->Remove(
        selected->computer, WhenStored([this, name](auto outcome) {
            EndWork(outcome == Keyring::Outcome::Done
                        ? QString()
                        : tr("The keyring stayed locked, and still has the logon for \"%1\".")
                              .arg(name));
        }));
}

QString frmLogons::ComputerToTest(const StoredLogon& logon) const {
    if (!logon.computer.isEmpty())
        return logon.computer;
    QString name =
        services_.dialogs.InputBox(tr("Name of the computer to try the logon on:"), windowTitle())
            .trimmed();
    while (name.startsWith(u'\\'))
        name.remove(0, 1);
    return name;
}

void frmLogons::cmdTest_Click() {
    const StoredLogon* selected = Selected();
    if (!selected)
        return;
    const StoredLogon logon = *selected;
    const QString computer = ComputerToTest(logon);
    if (computer.isEmpty())
        return;
    std::shared_ptr<const RemotePlace> place;
    if (IsNodeName(computer))
        place = services_.placeOf(computer);
    if (!place) {
        controls_.lblState->setText(tr("%1 isn't reached over this network.").arg(computer));
        return;
    }
    BeginWork(tr("Logging on to %1 as %2...").arg(computer, logon.user), true);
    const QPointer<frmLogons> dialog(this);
    trial_.Begin(place, logon, [dialog, computer, user = logon.user](LogonResult result) {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [dialog, computer, user, result] {
                if (dialog)
                    dialog->EndTest(computer, user, result);
            },
            Qt::QueuedConnection);
    });
}

void frmLogons::EndTest(const QString& computer, const QString& user, LogonResult result) {
    if (!isBusy_) // the test was cancelled while its result was on the way
        return;
    EndWork(TestResult(computer, user, result));
}

void frmLogons::cmdCancel_Click() {
    trial_.Cancel();
    EndWork(QString());
}

} // namespace netrove
