#include "platform/IniLine.h"

namespace netrove {
namespace {

bool IsBlank(QChar character) {
    return character == u' ' || (character >= u'\t' && character <= u'\r');
}

QStringView WithoutBlanks(QStringView text) {
    while (!text.isEmpty() && IsBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && IsBlank(text.back()))
        text.chop(1);
    return text;
}

QStringView WithoutQuotes(QStringView value) {
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'') &&
        value.back() == value.front())
        return value.sliced(1, value.size() - 2);
    return value;
}

IniLine Section(QStringView text) {
    const qsizetype end = text.indexOf(u']');
    const QStringView name = end < 0 ? text.sliced(1) : text.sliced(1, end - 1);
    return {.kind = IniLine::Kind::Section,
            .name = WithoutBlanks(name),
            .value = {},
            .closed = end > 0};
}

} // namespace

IniLine IniLine::Parse(QStringView text) {
    text = WithoutBlanks(text);
    if (text.isEmpty())
        return {};
    if (text.front() == u';')
        return {.kind = Kind::Comment, .name = {}, .value = {}};
    if (text.front() == u'[')
        return Section(text);
    const qsizetype equals = text.indexOf(u'=');
    if (equals <= 0)
        return {.kind = Kind::Other, .name = {}, .value = {}};
    return {.kind = Kind::Entry,
            .name = WithoutBlanks(text.first(equals)),
            .value = WithoutQuotes(WithoutBlanks(text.sliced(equals + 1)))};
}

} // namespace netrove
