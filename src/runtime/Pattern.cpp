#include "runtime/Pattern.h"

#include "runtime/RunTimeError.h"

#include <algorithm>

namespace netrove {

namespace {

char16_t Folded(QChar character) {
    const char16_t unit = character.unicode();
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
    return character.toCaseFolded().unicode();
}

} // namespace

Pattern::Pattern(const QString& text) : text_(text) {
    Compile();
}

void Pattern::Compile() {
    using Kind = Element::Kind;
    segments_.push_back({0, 0});
    for (qsizetype at = 0; valid_ && at < text_.size(); ++at) {
        const QChar character = text_[at];
        if (character == u'*')
            EndSegment();
        else if (character == u'[')
            at = CompileList(at + 1);
        else if (character == u'?')
            elements_.push_back({.kind = Kind::Any});
        else if (character == u'#')
            elements_.push_back({.kind = Kind::Digit});
        else
            elements_.push_back({.kind = Kind::Character, .character = Folded(character)});
    }
    segments_.back().end = static_cast<qsizetype>(elements_.size());
}

/// Closes the current segment at an asterisk and begins the next. Asterisks in a row count as one.
void Pattern::EndSegment() {
    const auto here = static_cast<qsizetype>(elements_.size());
    Segment& running = segments_.back();
    running.end = here;
    if (segments_.size() == 1 || running.Length() > 0)
        segments_.push_back({here, here});
}

/// Takes the list whose "[" stands before `begin`; returns the place of its "]".
qsizetype Pattern::CompileList(qsizetype begin) {
    const qsizetype end = text_.indexOf(u']', begin);
    if (end < 0) {
        valid_ = false;
        return text_.size();
    }
    if (end == begin)
        return end;

    const bool negated = text_[begin] == u'!' && end - begin > 1;
    Element list{.kind = negated ? Element::Kind::NotInList : Element::Kind::InList,
                 .firstRange = static_cast<quint32>(ranges_.size())};
    for (qsizetype at = negated ? begin + 1 : begin; at < end; ++at) {
        const char16_t low = Folded(text_[at]);
        char16_t high = low;
        if (at + 2 < end && text_[at + 1] == u'-') {
            high = Folded(text_[at + 2]);
            at += 2;
        }
        valid_ = valid_ && low <= high;
        ranges_.push_back({low, high});
    }
    list.endRange = static_cast<quint32>(ranges_.size());
    elements_.push_back(list);
    return end;
}

bool Pattern::ElementMatches(const Element& element, char16_t folded) const {
    const auto inList = [&] {
        const auto list = ranges_.begin();
        return std::any_of(list + element.firstRange, list + element.endRange, [&](Range range) {
            return range.low <= folded && folded <= range.high;
        });
    };
    switch (element.kind) {
    case Element::Kind::Any:
        return true;
    case Element::Kind::Digit:
        return folded >= u'0' && folded <= u'9';
    case Element::Kind::Character:
        return folded == element.character;
    case Element::Kind::InList:
        return inList();
    case Element::Kind::NotInList:
        return !inList();
    }
    return false;
}

/// Whether the characters at `name`, as many as the segment has elements, match it.
bool Pattern::MatchesAt(const Segment& segment, const QChar* name) const {
    for (qsizetype at = segment.begin; at < segment.end; ++at, ++name) {
        if (!ElementMatches(elements_[static_cast<size_t>(at)], Folded(*name)))
            return false;
    }
    return true;
}

/// The first place from `from` on where the segment matches, or -1.
qsizetype Pattern::Find(const Segment& segment, QStringView name, qsizetype from) const {
    for (qsizetype at = from; at + segment.Length() <= name.size(); ++at) {
        if (MatchesAt(segment, name.data() + at))
            return at;
    }
    return -1;
}

/// A segment has a fixed length, so the first must stand at the beginning, the last at the end,
/// and each one between them can be taken where it first fits: taking it later never helps.
bool Pattern::Matches(QStringView name) const {
    if (!valid_)
        throw RunTimeError(ErrorNumber::InvalidPatternString);

    const Segment& first = segments_.front();
    if (segments_.size() == 1)
        return name.size() == first.Length() && MatchesAt(first, name.data());

    const Segment& last = segments_.back();
    if (name.size() < first.Length() + last.Length() || !MatchesAt(first, name.data()) ||
        !MatchesAt(last, name.data() + name.size() - last.Length()))
        return false;

    const QStringView middle = name.chopped(last.Length());
    qsizetype at = first.Length();
    for (size_t index = 1; index + 1 < segments_.size(); ++index) {
        const Segment& segment = segments_[index];
        at = Find(segment, middle, at);
        if (at < 0)
            return false;
        at += segment.Length();
    }
    return true;
}

} // namespace netrove
