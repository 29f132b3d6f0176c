#include "find/LogonFile.h"

#include "find/WrongUse.h"

#include <QFile>

#include <sys/stat.h>

namespace netrove {
namespace {

/// More than such a file needs: a larger one was named by mistake.
constexpr qsizetype MaxBytes = 4096;

/// Takes the first line off the text.
QByteArrayView TakeLine(QByteArrayView& text) {
    const qsizetype end = text.indexOf('\n');
    const QByteArrayView line = end < 0 ? text : text.first(end);
    text = end < 0 ? QByteArrayView() : text.sliced(end + 1);
    return line;
}

StoredLogon Parse(QByteArrayView text) {
    StoredLogon logon;
    QString domain;
    while (!text.isEmpty()) {
        const QByteArrayView line = TakeLine(text);
        const qsizetype equals = line.indexOf('=');
        if (equals < 0)
            continue;
        const QByteArray key = line.first(equals).trimmed().toByteArray().toLower();
        const QByteArrayView value = line.sliced(equals + 1).trimmed();
        if (key == "username")
            logon.user = QString::fromUtf8(value);
        else if (key == "password")
            logon.password = Secret(value);
        else if (key == "domain")
            domain = QString::fromUtf8(value);
    }
    if (!domain.isEmpty())
        logon.user.prepend(domain + u'\\');
    return logon;
}

} // namespace

StoredLogon ReadLogonFile(const QString& path) {
    QFile file(path);
    struct stat status {};
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ||
        fstat(file.handle(), &status) != 0 || !S_ISREG(status.st_mode))
        throw WrongUse(WrongUse::tr("--logon-file '%1' can't be read").arg(path));
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        throw WrongUse(
            WrongUse::tr("--logon-file '%1' is open to other users (chmod 600 closes it)")
                .arg(path));
    QByteArray text = file.read(MaxBytes + 1);
    const bool isTooLong = text.size() > MaxBytes;
    const StoredLogon logon = isTooLong ? StoredLogon() : Parse(text);
    Wipe(text);
    if (!NamesUser(logon))
        throw WrongUse(WrongUse::tr("--logon-file '%1' has no line \"username = ...\"").arg(path));
    return logon;
}

} // namespace netrove
