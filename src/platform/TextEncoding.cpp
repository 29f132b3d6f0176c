#include "platform/TextEncoding.h"

#include <QStringDecoder>

#include <array>

namespace netrove {
namespace {

/// The characters of the bytes 0x80 to 0x9F.
constexpr std::array<char16_t, 32> Windows1252Characters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

std::optional<QString> FromUtf8(QByteArrayView bytes) {
    // Without the flags a byte order mark at the beginning would be dropped, and half a character
    // at the end would be kept for more input instead of counting as an error.
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom |
                                                       QStringConverter::Flag::Stateless);
    QString text = decoder(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

QString FromWindows1252(QByteArrayView bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& character : text) {
        if (character >= QChar(0x80) && character < QChar(0xA0))
            character = Windows1252Characters[character.unicode() - 0x80U];
    }
    return text;
}

QString FromUtf8OrWindows1252(QByteArrayView bytes) {
    if (const std::optional<QString> text = FromUtf8(bytes))
        return *text;
    return FromWindows1252(bytes);
}

} // namespace netrove
