#include "skins/skinfile/SkinFile.h"

#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"

#include <QStringList>
#include <QXmlStreamReader>

#include <cmath>

namespace netrove {
namespace {

constexpr int ColorChannels = 3;
constexpr int LargestChannel = 255;

[[noreturn]] void Fail(const QString& reason) {
    throw RunTimeError(static_cast<int>(ErrorNumber::InvalidPropertyValue),
                       "The skin file can't be used: "_L1 + reason);
}

[[noreturn]] void FailAt(const QXmlStreamReader& reader, const QString& reason) {
    Fail(reason + " (line "_L1 + QString::number(reader.lineNumber()) + u')');
}

[[noreturn]] void FailValue(const QString& member, const QString& value) {
    Fail(u'"' + value + "\" is no value for "_L1 + member + u'.');
}

/// An attribute of the reader's current element.
QString Attribute(const QXmlStreamReader& reader, QLatin1String name, qsizetype longest) {
    const QString value = reader.attributes().value(name).toString();
    if (value.size() > longest)
        FailAt(reader, "a "_L1 + name + " is too long"_L1);
    return value;
}

/// Moves to the start of the next element; false at the end of the enclosing one.
bool NextElement(QXmlStreamReader& reader) {
    for (;;) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::EndDocument:
            return false;
        case QXmlStreamReader::DTD: // entities could make a small file huge
            FailAt(reader, u"it has a document type"_s);
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
        Fail(u"it is too long."_s);
    QXmlStreamReader reader(text);
    if (!NextElement(reader) || reader.name() != "skin"_L1)
        FailAt(reader, u"it doesn't begin with a skin element"_s);
    name_ = Attribute(reader, "name"_L1, LongestValue);
    while (NextElement(reader)) {
        if (reader.name() == "member"_L1) {
            const QString name = Attribute(reader, "name"_L1, LongestName);
            values_.insert(name, Attribute(reader, "value"_L1, LongestValue));
            if (values_.size() > MostMembers)
                FailAt(reader, u"it has too many members"_s);
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
    if (*value != "True"_L1 && *value != "False"_L1)
        FailValue(member, *value);
    return *value == "True"_L1;
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
