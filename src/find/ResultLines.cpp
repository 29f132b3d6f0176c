#include "find/ResultLines.h"

#include "runtime/RunTimeError.h"
#include "runtime/Text.h"
#include "services/FileDetails.h"
#include "services/Paths.h"

namespace netrove {

ResultLines::ResultLines(FileAccess& files, const Settings& settings, bool details,
                         bool forTerminal)
    : files_(files)
    , settings_(settings)
    , audio_(files)
    , details_(details)
    , escaping_(forTerminal ? Escaping::AllControls
                            : (details ? Escaping::TabsToo : Escaping::LineBreaks)) {}

std::optional<QString> ResultLines::Line(const QString& netPath) {
    if (!details_)
        return Escaped(netPath, escaping_);
    const FileDetails file(netPath, files_, settings_);
    if (file.Folder.isEmpty())
        return std::nullopt;
    const AudioTexts audio = Audio(file);
    return QStringList{Escaped(file.FileName, escaping_),
                       Escaped(file.Folder, escaping_),
                       file.SizeText,
                       file.DateText,
                       file.AttrText,
                       Trim(audio.Length),
                       Trim(audio.Bitrate),
                       Trim(audio.Frequency)}
        .join(u'\t');
}

AudioTexts ResultLines::Audio(const FileDetails& file) {
    try {
        return audio_.Texts(file.Folder, file.FileName, FileExtension(file.FileName), file.Info,
                            settings_.IncludeMP3Info);
    } catch (const RunTimeError&) {
        return {};
    }
}

} // namespace netrove
