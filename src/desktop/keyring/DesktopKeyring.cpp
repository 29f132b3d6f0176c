#include "desktop/keyring/DesktopKeyring.h"

#include "runtime/SourceText.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <qt6keychain/keychain.h>

#include <array>

namespace netrove {
namespace {

const QString Service = u"netrove"_s;

/// The names on the session bus of services that keep secrets.
constexpr std::array<QLatin1String, 3> Keepers{"org.freedesktop.secrets"_L1, "org.kde.kwalletd6"_L1,
                                               "org.kde.kwalletd5"_L1};

Keyring::Outcome OutcomeOf(QKeychain::Error error) {
    switch (error) {
    case QKeychain::NoError:
        return Keyring::Outcome::Done;
    case QKeychain::EntryNotFound:
        return Keyring::Outcome::Missing;
    case QKeychain::NoBackendAvailable:
    case QKeychain::NotImplemented:
        return Keyring::Outcome::None;
    case QKeychain::CouldNotDeleteEntry:
    case QKeychain::AccessDeniedByUser:
    case QKeychain::AccessDenied:
    case QKeychain::OtherError:
        return Keyring::Outcome::Refused;
    }
    return Keyring::Outcome::Refused;
}

/// Starts a job, which deletes itself when it has ended.
template <typename Done>
void Start(QKeychain::Job* job, const QString& entry, QObject* context, Done done) {
    job->setKey(entry);
    QObject::connect(job, &QKeychain::Job::finished, context,
                     [done](QKeychain::Job* ended) { done(ended); });
    job->start();
}

} // namespace

DesktopKeyring::DesktopKeyring() : thread_(new QThread), inThread_(new QObject) {
    thread_->setObjectName(u"keyring"_s);
    inThread_->moveToThread(thread_);
    QObject::connect(thread_, &QThread::finished, inThread_, &QObject::deleteLater);
    thread_->start();
}

DesktopKeyring::~DesktopKeyring() {
    thread_->quit();
    // The last owner of this object may be an answer, on this thread; then the thread ends after
    // the destructor.
    if (QThread::currentThread() == thread_)
        return;
    thread_->wait();
    delete thread_;
}

bool DesktopKeyring::IsThere() const {
    const QDBusConnectionInterface* bus = QDBusConnection::sessionBus().interface();
    if (!bus)
        return false;
    const QStringList startable = bus->activatableServiceNames();
    return std::any_of(Keepers.begin(), Keepers.end(), [&](QLatin1String name) {
        return startable.contains(name) || bus->isServiceRegistered(name);
    });
}

void DesktopKeyring::Read(const QString& entry, ReadDone done) {
    QMetaObject::invokeMethod(inThread_, [this, entry, done = std::move(done)] {
        auto* job = new QKeychain::ReadPasswordJob(Service, inThread_);
        Start(job, entry, inThread_, [job, done](QKeychain::Job* ended) {
            QByteArray value = job->textData().toUtf8();
            const Secret secret(value);
            Wipe(value);
            done(OutcomeOf(ended->error()), secret);
        });
    });
}

void DesktopKeyring::Write(const QString& entry, const Secret& value, WriteDone done) {
    QMetaObject::invokeMethod(inThread_, [this, entry, value, done = std::move(done)] {
        const auto end = [done](QKeychain::Job* ended) {
            const Outcome outcome = OutcomeOf(ended->error());
            // An entry that was to be deleted and isn't there counts as deleted.
            done(outcome == Outcome::Missing ? Outcome::Done : outcome);
        };
        if (value.IsEmpty()) {
            Start(new QKeychain::DeletePasswordJob(Service, inThread_), entry, inThread_, end);
            return;
        }
        auto* job = new QKeychain::WritePasswordJob(Service, inThread_);
        QString text = QString::fromUtf8(value.Bytes());
        job->setTextData(text); // the job turns it into bytes at once
        Wipe(text);
        Start(job, entry, inThread_, end);
    });
}

} // namespace netrove
