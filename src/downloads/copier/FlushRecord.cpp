#include "downloads/copier/FlushRecord.h"

#include <QCryptographicHash>

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace netrove {
namespace {

constexpr qsizetype NumberDigits = 20;
constexpr qsizetype HashDigits = 16;
constexpr qsizetype Bytes = NumberDigits + HashDigits;

/// The hash reveals a record that was written only in part, or not at all.
QByteArray RecordOf(qint64 length) {
    const QByteArray number = QByteArray::number(length).rightJustified(NumberDigits, '0');
    return number +
           QCryptographicHash::hash(number, QCryptographicHash::Sha256).toHex().left(HashDigits);
}

} // namespace

qint64 FlushRecord::Read() const {
    const int file = open(path_.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0)
        return 0;
    std::array<char, Bytes + 1> bytes{};
    const ssize_t count = read(file, bytes.data(), bytes.size());
    close(file);
    if (count != Bytes)
        return 0;
    const QByteArray record(bytes.data(), Bytes);
    const qint64 length = record.left(NumberDigits).toLongLong();
    return record == RecordOf(length) ? length : 0;
}

void FlushRecord::Write(qint64 length) const {
    const int file =
        open(path_.constData(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
    if (file < 0)
        return;
    static_cast<void>(disk_.Write(file, RecordOf(length), 0));
    close(file);
}

bool FlushRecord::Clear() const {
    if (disk_.Remove(path_) != 0)
        return errno == ENOENT;
    return disk_.FlushFolder(folder_) == 0;
}

} // namespace netrove
