#include "platform/IniReader.h"

#include "platform/TextEncoding.h"
#include "runtime/RunTimeError.h"
#include "runtime/Text.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace netrove {
namespace {

QStringView WithoutQuotes(QStringView value) {
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') &&
        value.back() == value.front())
        return value.sliced(1, value.size() - 2);
    return value;
}

} // namespace

const IniEntry* IniSection::Find(QStringView key) const {
    const auto found =
        std::ranges::find_if(entries, [&](const auto& entry) { return EqualText(entry.key, key); });
    return found == entries.end() ? nullptr : &*found;
}

QString IniSection::Value(QStringView key) const {
    const IniEntry* entry = Find(key);
    return entry != nullptr ? entry->value : QString();
}

IniReader::IniReader(QByteArrayView bytes, QString name) : name_(std::move(name)) {
    QString text = FromUtf8OrWindows1252(bytes);
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    int line = 0;
    for (const QStringView piece : QStringView(text).split(u'\n'))
        TakeLine(piece.trimmed(), ++line);
}

IniReader IniReader::FromFile(const QString& path) {
    QFile file(path);
    if (!file.exists())
        throw RunTimeError(ErrorNumber::FileNotFound);
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    const QByteArray bytes = file.read(MaxBytes + 1);
    if (bytes.size() > MaxBytes)
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    return IniReader(bytes, QFileInfo(path).fileName());
}

const IniSection* IniReader::Find(QStringView name) const {
    const auto found = firstByName_.constFind(name.toString().toCaseFolded());
    return found == firstByName_.constEnd() ? nullptr : &sections_[*found];
}

QString IniReader::Problem(int line, const QString& what) const {
    return QStringLiteral("%1, line %2: %3").arg(name_, QString::number(line), what);
}

void IniReader::Note(int line, const QString& what) {
    if (problems_.size() < MaxProblems)
        problems_ += Problem(line, what);
}

void IniReader::TakeLine(QStringView text, int line) {
    if (text.isEmpty() || text.startsWith(u';'))
        return;
    if (text.startsWith(u'['))
        TakeSection(text, line);
    else
        TakeEntry(text, line);
}

void IniReader::TakeSection(QStringView text, int line) {
    const qsizetype end = text.indexOf(u']');
    if (end < 0)
        Note(line, QStringLiteral("a section's name has no closing \"]\""));
    const QString name = (end < 0 ? text.sliced(1) : text.sliced(1, end - 1)).trimmed().toString();
    if (const QString key = name.toCaseFolded(); !firstByName_.contains(key))
        firstByName_.insert(key, sections_.size());
    sections_.push_back({.name = name, .line = line});
}

void IniReader::TakeEntry(QStringView text, int line) {
    const qsizetype equals = text.indexOf(u'=');
    if (equals <= 0) {
        Note(line, QStringLiteral("neither a [section] nor key=value"));
        return;
    }
    if (sections_.empty()) {
        Note(line, QStringLiteral("key=value before the first [section]"));
        return;
    }
    const QStringView value = WithoutQuotes(text.sliced(equals + 1).trimmed());
    sections_.back().entries.push_back(
        {.key = text.first(equals).trimmed().toString(), .value = value.toString(), .line = line});
}

} // namespace netrove
