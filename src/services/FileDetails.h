#pragma once

#include "platform/Files.h"
#include "settings/Settings.h"

#include <QString>

namespace netrove {

/// The heading of a list's size column, which names the unit: 2 kilobytes, 3 bytes, anything else
/// megabytes.
[[nodiscard]] QString SizeHeading(qint16 sizeFormat);

/// What a row says about a file, as texts in the form that the settings ask for. The keys sort like
/// the values that they are made from.
struct FileDetails {
    QString Folder;   ///< with its closing "\"
    QString FileName; ///< with its extension
    QString DateText;
    QString DateKey; ///< year to second, 14 digits
    QString SizeText;
    QString SizeKey;  ///< of the rounded text: what looks the same has the same key
    QString AttrText; ///< R, H, S and A, for those that are set

    FileDetails() = default;

    FileInfo Info; ///< what the texts are made from

    /// Asks for the file's data. If that fails, all texts are empty except for the size and its
    /// key, which are "0".
    FileDetails(const QString& fullPath, FileAccess& files, const Settings& settings);
    /// For a caller that has the file's data already.
    FileDetails(const QString& fullPath, const FileInfo& info, const Settings& settings);

private:
    void Fill(const QString& fullPath, const FileInfo& info, const Settings& settings);
    void SetFailed();
    void SplitPath(const QString& fullPath);
    void SetSize(qint64 length, const Settings& settings);
};

} // namespace netrove
