#include "services/FileDetails.h"

#include "runtime/Formats.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "services/Paths.h"

#include <array>

namespace netrove {
namespace {

constexpr qint16 Kilobytes = 2;
constexpr qint16 Bytes = 3;
constexpr double BytesInKilobyte = 1024;
constexpr double BytesInMegabyte = 1048576;

/// "0", or "0." and as many zeros as there are decimals.
QString SizeNumberFormat(qint16 decimals) {
    return decimals == 0 ? u"0"_s : u"0."_s + QString(decimals, u'0');
}

/// A number in a format of fixed width. A number that is too long for it gets a letter in front,
/// which sorts behind all digits: the more digits there are, the later the letter.
QString SortKey(double value, const QString& format) {
    const QString key = FormatNumber(value, format);
    const qsizetype excess = key.size() - format.size();
    return excess <= 0 ? key : QChar(static_cast<char16_t>(u'A' + excess - 1)) + key;
}

QString AttributeLetters(quint32 attributes) {
    constexpr std::array<std::pair<quint32, char16_t>, 4> letters{{{FileAttribute::ReadOnly, u'R'},
                                                                   {FileAttribute::Hidden, u'H'},
                                                                   {FileAttribute::System, u'S'},
                                                                   {FileAttribute::Archive, u'A'}}};
    QString text;
    for (const auto& [attribute, letter] : letters) {
        if ((attributes & attribute) != 0)
            text += QChar(letter);
    }
    return text;
}

} // namespace

QString SizeHeading(qint16 sizeFormat) {
    if (sizeFormat == Kilobytes)
        return u"Size (KB)"_s;
    return sizeFormat == Bytes ? u"Size (B)"_s : u"Size (MB)"_s;
}

FileDetails::FileDetails(const QString& fullPath, FileAccess& files, const Settings& settings) {
    try {
        Fill(fullPath, files.Info(fullPath), settings);
    } catch (const RunTimeError&) {
        SetFailed();
    }
}

FileDetails::FileDetails(const QString& fullPath, const FileInfo& info, const Settings& settings) {
    try {
        Fill(fullPath, info, settings);
    } catch (const RunTimeError&) {
        SetFailed();
    }
}

void FileDetails::Fill(const QString& fullPath, const FileInfo& info, const Settings& settings) {
    SplitPath(fullPath);
    Info = info;
    DateKey = FormatDate(info.modified, u"YYYYMMDDHHNNSS"_s);
    DateText = FormatDate(info.modified, settings.DateFormat);
    SetSize(info.length, settings);
    AttrText = AttributeLetters(info.attributes);
}

void FileDetails::SetFailed() {
    *this = FileDetails();
    SizeText = u"0"_s;
    SizeKey = u"0"_s;
}

void FileDetails::SplitPath(const QString& fullPath) {
    if (const qsizetype cut = fullPath.lastIndexOf(u'\\'); cut >= 0) {
        Folder = fullPath.left(cut + 1);
        FileName = fullPath.mid(cut + 1);
    }
    Folder = EnsureSuffix(Folder, u"\\"_s);
}

void FileDetails::SetSize(qint64 length, const Settings& settings) {
    const auto count = static_cast<double>(length);
    if (settings.SizeFormat == Bytes) {
        SizeText = QString::number(length);
        SizeKey = SortKey(count, u"0000000000"_s);
        return;
    }
    const bool inKilobytes = settings.SizeFormat == Kilobytes;
    SizeText = FormatNumber(count / (inKilobytes ? BytesInKilobyte : BytesInMegabyte),
                            SizeNumberFormat(settings.SizeNumDec));
    SizeKey = SortKey(NumberOfText(SizeText),
                      inKilobytes ? u"0000000.0000000000"_s : u"0000.0000000000"_s);
}

} // namespace netrove
