#pragma once

#include <QByteArrayView>
#include <QCoreApplication>
#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace netrove {

struct IniLine;

/// One "Key=Value" line.
struct IniEntry {
    QString key;
    QString value;
    int line = 0; ///< from 1 on
};

/// One "[Name]" line and the entries up to the next one.
struct IniSection {
    QString name;
    int line = 0; ///< from 1 on
    std::vector<IniEntry> entries = {};

    /// The first entry with that key, whatever its case; null if there is none.
    [[nodiscard]] const IniEntry* Find(QStringView key) const;
    /// The value of that entry, or the empty text.
    [[nodiscard]] QString Value(QStringView key) const;
};

/// The text of an INI file, taken apart: sections in their order, each with its entries in their
/// order; IniLine says what a line is. The text is UTF-8 with or without a byte order mark, or
/// Windows-1252 where it isn't valid UTF-8, with LF or CR LF line ends.
class IniReader {
    Q_DECLARE_TR_FUNCTIONS(IniReader)

public:
    /// Larger files are refused.
    static constexpr qint64 MaxBytes = 1 << 20;
    /// The most problems that are reported: a file that isn't an INI text has one in each line.
    static constexpr qsizetype MaxProblems = 20;

    /// Takes any bytes. `name` is the file's name in the texts of problems.
    explicit IniReader(QByteArrayView bytes, QString name = {});

    /// Reads a file. Raises ErrorNumber::FileNotFound if it doesn't exist, PathFileAccessError if
    /// it can't be read or is larger than MaxBytes. Problems name it without its folder.
    [[nodiscard]] static IniReader FromFile(const QString& path);

    [[nodiscard]] const std::vector<IniSection>& Sections() const { return sections_; }
    /// The first section with that name, whatever its case; null if there is none.
    [[nodiscard]] const IniSection* Find(QStringView name) const;

    /// What is wrong with lines that were passed over, each as "network.ini, line 7: …".
    [[nodiscard]] const QStringList& Problems() const { return problems_; }
    /// A text of the same form.
    [[nodiscard]] QString Problem(int line, const QString& what) const;

private:
    void TakeLine(QStringView text, int line);
    void TakeSection(const IniLine& parts, int line);
    void TakeEntry(const IniLine& parts, int line);
    void Note(int line, const QString& what);

    QString name_;
    std::vector<IniSection> sections_;
    QHash<QString, std::size_t> firstByName_; ///< by the case-folded name
    QStringList problems_;
};

} // namespace netrove
