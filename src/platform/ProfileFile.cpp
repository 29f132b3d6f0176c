#include "platform/ProfileFile.h"

#include "platform/IniLine.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace netrove {
namespace {

/// Whether this line will be read back as one of that kind with that name.
bool ReadsBack(const QString& line, IniLine::Kind kind, const QString& name) {
    const IniLine parts = IniLine::Parse(line);
    return parts.kind == kind && parts.name == name && !line.contains(u'\n') && parts.closed;
}

QString OnOneLine(QString value) {
    for (QChar& character : value) {
        if (character == u'\r' || character == u'\n' || character.isNull())
            character = u' ';
    }
    return value;
}

QString Cut(QString value) {
    if (value.size() <= ProfileFile::MaxValue)
        return value;
    value.truncate(ProfileFile::MaxValue);
    if (value.back().isHighSurrogate())
        value.chop(1);
    return value;
}

} // namespace

QString ProfileFile::ReadIni(const QString& section, const QString& key,
                             const QString& defaultValue) const {
    const auto value = work_ ? work_->text.Value(section, key) : Load().text.Value(section, key);
    return Cut(value.value_or(defaultValue));
}

bool ProfileFile::WriteIni(const QString& section, const QString& key, const QString& value) {
    if (!ReadsBack(u'[' + section + u']', IniLine::Kind::Section, section) ||
        (!key.isEmpty() && !ReadsBack(key + u'=', IniLine::Kind::Entry, key)))
        return false;
    Begin();
    work_->changed = true;
    if (key.isEmpty())
        work_->text.RemoveSection(section);
    else if (value.isEmpty())
        work_->text.RemoveKey(section, key);
    else
        work_->text.SetValue(section, key, OnOneLine(value));
    return End();
}

void ProfileFile::Begin() {
    if (batches_++ == 0)
        work_ = Load();
}

bool ProfileFile::End() {
    if (--batches_ > 0)
        return true;
    const Work work = *std::exchange(work_, std::nullopt);
    return !work.changed || (work.usable && Replace(work.text.ToBytes()));
}

ProfileFile::Work ProfileFile::Load() const {
    const std::optional<QByteArray> bytes = Bytes();
    return {.text = IniText(bytes.value_or(QByteArray())), .usable = bytes && !awaitsCopy_};
}

/// The bytes of the file: none if it doesn't exist, nothing if it can't be read.
std::optional<QByteArray> ProfileFile::Bytes() const {
    const QFileInfo info(path_);
    if (!info.exists())
        return QByteArray();
    QFile file(path_);
    // Opening a pipe would wait for its other end.
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.read(MaxBytes + 1);
    if (bytes.size() > MaxBytes || file.error() != QFileDevice::NoError)
        return std::nullopt;
    return bytes;
}

QString ProfileFile::KeepCopy() {
    const std::optional<QByteArray> bytes = Bytes();
    // No copy of a file that can't be read: it is never replaced.
    if (copy_.isEmpty() && bytes && !bytes->isEmpty()) {
        awaitsCopy_ = true;
        copy_ = MakeCopy(*bytes);
        awaitsCopy_ = false;
    }
    return copy_;
}

QString ProfileFile::MakeCopy(const QByteArray& bytes) const {
    QFile copy;
    int number = 0;
    do {
        copy.setFileName(path_ + u".copy-"_s + QString::number(++number));
    } while (!copy.open(QIODevice::WriteOnly | QIODevice::NewOnly) && copy.exists());
    copy.setPermissions(QFile::permissions(path_));
    if (copy.write(bytes) == bytes.size() && copy.flush())
        return copy.fileName();
    if (copy.isOpen())
        QFile::remove(copy.fileName()); // copy.remove() fails when bytes can't be written
    throw RunTimeError(ErrorNumber::PathFileAccessError);
}

bool ProfileFile::Replace(const QByteArray& bytes) const {
    if (bytes.size() > MaxBytes)
        return false;
    QSaveFile file(path_);
    // commit() doesn't notice if its own flush fails, as on a full disk: so flush first.
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
           file.commit();
}

} // namespace netrove
