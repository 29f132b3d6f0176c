#pragma once

#include "find/ConsoleText.h"
#include "platform/Files.h"
#include "searchrun/columns/AudioColumns.h"
#include "settings/Settings.h"

#include <QString>

#include <optional>

namespace netrove {

struct FileDetails;

/// Makes the line that is printed for a found file.
class ResultLines {
public:
    /// With `details`, a line has the texts of the results list, separated by tabs. `settings` tell
    /// how sizes and dates are written.
    ResultLines(FileAccess& files, const Settings& settings, bool details, bool forTerminal);

    /// Nothing if details are wanted and the file can't be read: it has gone.
    [[nodiscard]] std::optional<QString> Line(const QString& netPath);

private:
    [[nodiscard]] AudioTexts Audio(const FileDetails& file);

    FileAccess& files_;
    const Settings& settings_;
    AudioColumns audio_;
    bool details_;
    Escaping escaping_;
};

} // namespace netrove
