#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace netrove {

/// The text of a skin file, taken apart: the skin's name, and the values by the names of their
/// members. The text may come from anywhere: whatever it is, reading it either gives values within
/// the limits or fails with a message.
class SkinFile {
public:
    static constexpr qsizetype LongestText = 65536;
    static constexpr qsizetype MostMembers = 256;
    static constexpr qsizetype LongestName = 64;
    static constexpr qsizetype LongestValue = 256;
    /// Numbers lie between this and its negative, inclusive.
    static constexpr int LargestNumber = 4096;

    /// Raises ErrorNumber::InvalidPropertyValue, with what is wrong and where, for a text that
    /// isn't a skin file.
    explicit SkinFile(const QString& text);

    [[nodiscard]] const QString& Name() const { return name_; }

    /// The value of a member, or nothing where the file doesn't name it. Raises
    /// ErrorNumber::InvalidPropertyValue for one that isn't of this kind.
    [[nodiscard]] std::optional<qint32> Number(const QString& member) const;
    [[nodiscard]] std::optional<float> Fraction(const QString& member) const;
    /// "True" or "False".
    [[nodiscard]] std::optional<bool> Boolean(const QString& member) const;
    /// Red, green and blue, each from 0 to 255; the result has red in the low byte.
    [[nodiscard]] std::optional<quint32> Color(const QString& member) const;

private:
    QString name_;
    QHash<QString, QString> values_;
};

} // namespace netrove
