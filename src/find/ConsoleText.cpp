#include "find/ConsoleText.h"

#include <algorithm>

#include <wchar.h>

namespace netrove {
namespace {

bool IsControl(QChar character) {
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        break;
    }
    const QChar::Direction direction = character.direction();
    return character.category() == QChar::Other_Format && direction != QChar::DirBN;
}

bool IsEscaped(QChar character, Escaping escaping) {
    switch (escaping) {
    case Escaping::LineBreaks:
        return character == u'\n' || character == u'\r';
    case Escaping::TabsToo:
        return character == u'\n' || character == u'\r' || character == u'\t';
    case Escaping::AllControls:
        return IsControl(character);
    }
    return true;
}

} // namespace

QString Escaped(const QString& text, Escaping escaping) {
    const auto isEscaped = [escaping](QChar character) { return IsEscaped(character, escaping); };
    if (std::none_of(text.begin(), text.end(), isEscaped))
        return text;
    QString result;
    for (const QChar character : text) {
        if (isEscaped(character))
            result += u'<' +
                      QString::number(character.unicode(), 16).toUpper().rightJustified(2, u'0') +
                      u'>';
        else
            result += character;
    }
    return result;
}

int TerminalColumns(const QString& text) {
    int columns = 0;
    for (const char32_t character : text.toUcs4())
        columns += std::max(wcwidth(static_cast<wchar_t>(character)), 0);
    return columns;
}

} // namespace netrove
