#include "searchrun/columns/AudioColumns.h"

#include "runtime/SourceText.h"

namespace netrove {
namespace {

QString TwoDigits(qint32 number) {
    return QString::number(number).rightJustified(2, u'0');
}

bool IsMpegAudio(const QString& extension) {
    return extension == "MP3"_L1 || extension == "MP2"_L1 || extension == "MP1"_L1;
}

} // namespace

QString FormatPlayTime(qint32 seconds) {
    return TwoDigits(seconds / 3600) + u':' + TwoDigits(seconds % 3600 / 60) + u':' +
           TwoDigits(seconds % 60);
}

FileReading AudioColumns::Reading(bool includeMP3Info) {
    if (!includeMP3Info)
        return {};
    return {.reads =
                [](const QString& name) {
                    return IsMpegAudio(name.mid(name.lastIndexOf(u'.') + 1).toUpper());
                },
            .read = [](FileAccess& files,
                       const QString& path) { ISMP3Player(files).SetMP3FileName(path); }};
}

AudioTexts AudioColumns::Texts(const QString& folder, const QString& fileName,
                               const QString& extension, const FileInfo& info,
                               bool includeMP3Info) {
    if (!includeMP3Info || !IsMpegAudio(extension))
        return {};
    player_.SetMP3FileName(folder + fileName, info);
    return {.Length = FormatPlayTime(player_.MP3Length()),
            .Bitrate = QString::number(player_.MP3Bitrate()),
            .Frequency = QString::number(player_.MP3Frequency())};
}

} // namespace netrove
