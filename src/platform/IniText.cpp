#include "platform/IniText.h"

#include "platform/IniLine.h"
#include "platform/TextEncoding.h"

#include <utility>

namespace netrove {
namespace {

QString Folded(QStringView name) {
    return name.toString().toCaseFolded();
}

} // namespace

void IniText::Section::Append(const QString& line) {
    const IniLine parts = IniLine::Parse(line);
    if (parts.kind == IniLine::Kind::Entry) {
        if (const QString key = Folded(parts.name); !firstByKey.contains(key))
            firstByKey.insert(key, lines.size());
    }
    lines.append(line);
    if (parts.kind == IniLine::Kind::Entry || parts.kind == IniLine::Kind::Section)
        end = lines.size();
}

void IniText::Section::Reindex() {
    const QStringList old = std::exchange(lines, {});
    end = 0;
    firstByKey.clear();
    for (const QString& line : old)
        Append(line);
}

IniText::IniText(QByteArrayView bytes) : sections_(1) {
    QString text = FromUtf8OrWindows1252(bytes);
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    QStringList lines = text.split(u'\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    for (QString& line : lines) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        if (IniLine::Parse(line).kind == IniLine::Kind::Section)
            sections_.emplace_back();
        sections_.back().Append(line);
    }
    Reindex();
}

void IniText::Reindex() {
    firstByName_.clear();
    for (std::size_t index = 1; index < sections_.size(); ++index) {
        const QString name = Folded(IniLine::Parse(sections_[index].lines.first()).name);
        if (!firstByName_.contains(name))
            firstByName_.insert(name, index);
    }
}

const IniText::Section* IniText::Find(const QString& name) const {
    const auto found = firstByName_.constFind(Folded(name));
    return found == firstByName_.constEnd() ? nullptr : &sections_[*found];
}

IniText::Section& IniText::FindOrAdd(const QString& name) {
    const QString folded = Folded(name);
    if (!firstByName_.contains(folded)) {
        firstByName_.insert(folded, sections_.size());
        sections_.emplace_back().Append(u'[' + name + u']');
    }
    return sections_[firstByName_.value(folded)];
}

std::optional<QString> IniText::Value(const QString& section, const QString& key) const {
    const Section* found = Find(section);
    if (found == nullptr)
        return std::nullopt;
    const auto line = found->firstByKey.constFind(Folded(key));
    if (line == found->firstByKey.constEnd())
        return std::nullopt;
    return IniLine::Parse(found->lines[*line]).value.toString();
}

void IniText::SetValue(const QString& section, const QString& key, const QString& value) {
    Section& found = FindOrAdd(section);
    const QString folded = Folded(key);
    const QString line = key + u'=' + value;
    if (const auto present = found.firstByKey.constFind(folded);
        present != found.firstByKey.constEnd()) {
        found.lines[*present] = line;
        return;
    }
    found.firstByKey.insert(folded, found.end);
    found.lines.insert(found.end, line);
    ++found.end;
}

void IniText::RemoveSection(const QString& section) {
    const QString folded = Folded(section);
    if (!firstByName_.contains(folded))
        return;
    std::vector<Section> kept;
    for (std::size_t index = 0; index < sections_.size(); ++index) {
        Section& each = sections_[index];
        if (index > 0 && Folded(IniLine::Parse(each.lines.first()).name) == folded)
            kept.back().lines += each.lines.sliced(each.end);
        else
            kept.push_back(std::move(each));
    }
    sections_ = std::move(kept);
    Reindex();
}

void IniText::RemoveKey(const QString& section, const QString& key) {
    const QString folded = Folded(key);
    const auto found = firstByName_.constFind(Folded(section));
    if (found == firstByName_.constEnd() || !sections_[*found].firstByKey.contains(folded))
        return;
    sections_[*found].lines.removeIf([&folded](const QString& line) {
        const IniLine parts = IniLine::Parse(line);
        return parts.kind == IniLine::Kind::Entry && Folded(parts.name) == folded;
    });
    sections_[*found].Reindex();
}

QByteArray IniText::ToBytes() const {
    QByteArray bytes;
    for (const Section& section : sections_) {
        for (const QString& line : section.lines)
            bytes += line.toUtf8() + "\r\n";
    }
    return bytes;
}

} // namespace netrove
