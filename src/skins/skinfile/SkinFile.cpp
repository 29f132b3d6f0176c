#include "skins/skinfile/SkinFile.h"

#include "runtime/RunTimeError.h"

#include <QStringList>
#include <QXmlStreamReader>

#include <cmath>

namespace netrove {
namespace {

constexpr int ColorChannels = 3;
constexpr int LargestChannel = 255;

[[noreturn]] void Fail(const QString& reason) {
    throw RunTimeError(static_cast<int>(ErrorNumber::InvalidPropertyValue),
                       QLatin1String("The skin file can't be used: ") + reason);
}

[[noreturn]] void FailAt(const QXmlStreamReader& reader, const QString& reason) {
    Fail(reason + QLatin1String(" (line ") + QString::number(reader.lineNumber()) + u')');
}

[[noreturn]] void FailValue(const QString& member, const QString& value) {
    Fail(QLatin1Char('"') + value + QLatin1String("\" is no value for ") + member + u'.');
}

/// An attribute of the element that the reader stands at.
QString Attribute(const QXmlStreamReader& reader, QLatin1String name, qsizetype longest) {
    const QString value = reader.attributes().value(name).toString();
    if (value.size() > longest)
        FailAt(reader, QLatin1String("a ") + name + QLatin1String(" is too long"));
    return value;
}

/// To the next start of an element, or false at the end of the one that encloses it.
bool NextElement(QXmlStreamReader& reader) {
    for (;;) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::EndDocument:
            return false;
        case QXmlStreamReader::DTD: // entities could make much of little
            FailAt(reader, QStringLiteral("it has a document type"));
        case QXmlStreamReader::Invalid:
            FailAt(reader, reader.errorString());
        case QXmlStreamReader::NoToken:
        case QXmlStreamReader::StartDocument:
        case QXmlStreamReader::Characters:
        case QXmlStreamReader::Comment:
        case QXmlStreamReader::EntityReference:
        case QXmlStreamReader::ProcessingInstruction:
            break;
        }
    }
}

} // namespace

SkinFile::SkinFile(const QString& text) {
    if (text.size() > LongestText)
        Fail(QStringLiteral("it is too long."));
    QXmlStreamReader reader(text);
    if (!NextElement(reader) || reader.name() != QLatin1String("skin"))
        FailAt(reader, QStringLiteral("it doesn't begin with a skin element"));
    name_ = Attribute(reader, QLatin1String("name"), LongestValue);
    while (NextElement(reader)) {
        if (reader.name() == QLatin1String("member")) {
            const QString name = Attribute(reader, QLatin1String("name"), LongestName);
            values_.insert(name, Attribute(reader, QLatin1String("value"), LongestValue));
            if (values_.size() > MostMembers)
                FailAt(reader, QStringLiteral("it has too many members"));
        }
        reader.skipCurrentElement();
    }
    while (!reader.atEnd())
        reader.readNext();
    if (reader.hasError())
        FailAt(reader, reader.errorString());
}

std::optional<qint32> SkinFile::Number(const QString& member) const {
    const auto value = values_.constFind(member);
    if (value == values_.cend())
        return std::nullopt;
    bool valid = false;
    const int number = value->toInt(&valid);
    if (!valid || number < -LargestNumber || number > LargestNumber)
        FailValue(member, *value);
    return number;
}

std::optional<float> SkinFile::Fraction(const QString& member) const {
    const auto value = values_.constFind(member);
    if (value == values_.cend())
        return std::nullopt;
    bool valid = false;
    const float fraction = value->toFloat(&valid);
    if (!valid || !std::isfinite(fraction))
        FailValue(member, *value);
    return fraction;
}

std::optional<bool> SkinFile::Boolean(const QString& member) const {
    const auto value = values_.constFind(member);
    if (value == values_.cend())
        return std::nullopt;
    if (*value != QLatin1String("True") && *value != QLatin1String("False"))
        FailValue(member, *value);
    return *value == QLatin1String("True");
}

std::optional<quint32> SkinFile::Color(const QString& member) const {
    const auto value = values_.constFind(member);
    if (value == values_.cend())
        return std::nullopt;
    const QStringList channels = value->split(u',');
    if (channels.size() != ColorChannels)
        FailValue(member, *value);
    quint32 color = 0;
    for (int index = 0; index < ColorChannels; ++index) {
        bool valid = false;
        const int channel = channels[index].trimmed().toInt(&valid);
        if (!valid || channel < 0 || channel > LargestChannel)
            FailValue(member, *value);
        color |= static_cast<quint32>(channel) << (8 * index);
    }
    return color;
}

} // namespace netrove
