#include "desktop/DesktopOpener.h"

#include "runtime/SourceText.h"

#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

namespace netrove {
namespace {

constexpr std::chrono::milliseconds AtOnce{1};
/// The watched process, which ends with the program, is this shell, not the opener itself.
constexpr QLatin1String Script("xdg-open \"$0\" & wait $!");

} // namespace

DesktopOpener::~DesktopOpener() {
    for (QProcess* watched : findChildren<QProcess*>()) {
        watched->disconnect(this);
        watched->kill();
        watched->waitForFinished();
    }
}

bool DesktopOpener::Open(const QUrl& address, const Shell::Failed& failed) {
    if (QStandardPaths::findExecutable(u"xdg-open"_s).isEmpty())
        return QDesktopServices::openUrl(address);
    auto* process = new QProcess(this);
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->setStandardInputFile(QProcess::nullDevice());
    const QDeadlineTimer watched(Watched);
    connect(process, &QProcess::finished, this, [this, process, failed, watched](int code) {
        process->deleteLater();
        if (code != 0 && failed && !watched.hasExpired())
            QTimer::singleShot(AtOnce, this, failed);
    });
    process->start(u"/bin/sh"_s, {u"-c"_s, Script, QString::fromLatin1(address.toEncoded())});
    return true;
}

} // namespace netrove
