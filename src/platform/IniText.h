#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace netrove {

/// An INI text that is changed key by key and keeps all else as it is: other sections, comments,
/// blank lines, lines that aren't INI text. Sections and keys are found whatever their case; of
/// equal ones the first counts. Parsing the text and looking up a key stay cheap however many keys
/// there are.
class IniText {
public:
    IniText() : sections_(1) {}
    /// Any bytes: UTF-8 with or without a byte order mark, or Windows-1252 where they aren't valid
    /// UTF-8; lines end in LF or CR LF.
    explicit IniText(QByteArrayView bytes);

    /// The value as IniLine has it; nothing where section or key is missing.
    [[nodiscard]] std::optional<QString> Value(const QString& section, const QString& key) const;

    /// Replaces the present value; a new key goes behind the section's last one, a new section to
    /// the end. Names and value must be single lines that IniLine reads back unchanged.
    void SetValue(const QString& section, const QString& key, const QString& value);

    /// Remove the section, or the key from its section, if there is one. Comments and blank lines
    /// behind a section's last key stay: they belong to what follows.
    void RemoveSection(const QString& section);
    void RemoveKey(const QString& section, const QString& key);

    /// UTF-8 without a byte order mark, each line with CR LF.
    [[nodiscard]] QByteArray ToBytes() const;

private:
    /// A header and the lines up to the next header; the very first section is what stands before
    /// any header.
    struct Section {
        QStringList lines;
        qsizetype end = 0;                      ///< line behind its last key, where a new key goes
        QHash<QString, qsizetype> firstByKey{}; ///< line by the case-folded key

        void Append(const QString& line);
        void Reindex();
    };

    [[nodiscard]] const Section* Find(const QString& name) const;
    [[nodiscard]] Section& FindOrAdd(const QString& name);
    void Reindex();

    std::vector<Section> sections_;
    QHash<QString, std::size_t> firstByName_{}; ///< by the case-folded name
};

} // namespace netrove
