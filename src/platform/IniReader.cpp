#include "platform/IniReader.h"

#include "platform/IniLine.h"
#include "platform/TextEncoding.h"
#include "runtime/RunTimeError.h"
#include "runtime/Text.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace netrove {

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
        TakeLine(piece, ++line);
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
    return tr("%1, line %2: %3").arg(name_, QString::number(line), what);
}

void IniReader::Note(int line, const QString& what) {
    if (problems_.size() < MaxProblems)
        problems_ += Problem(line, what);
}

void IniReader::TakeLine(QStringView text, int line) {
    const IniLine parts = IniLine::Parse(text);
    switch (parts.kind) {
    case IniLine::Kind::Blank:
    case IniLine::Kind::Comment:
        break;
    case IniLine::Kind::Section:
        TakeSection(parts, line);
        break;
    case IniLine::Kind::Entry:
        TakeEntry(parts, line);
        break;
    case IniLine::Kind::Other:
        Note(line, tr("neither a [section] nor key=value"));
    }
}

void IniReader::TakeSection(const IniLine& parts, int line) {
    if (!parts.closed)
        Note(line, tr("a section's name has no closing \"]\""));
    const QString name = parts.name.toString();
    if (const QString key = name.toCaseFolded(); !firstByName_.contains(key))
        firstByName_.insert(key, sections_.size());
    sections_.push_back({.name = name, .line = line});
}

void IniReader::TakeEntry(const IniLine& parts, int line) {
    if (sections_.empty()) {
        Note(line, tr("key=value before the first [section]"));
        return;
    }
    sections_.back().entries.push_back(
        {.key = parts.name.toString(), .value = parts.value.toString(), .line = line});
}

} // namespace netrove
