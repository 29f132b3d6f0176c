#include "find/FindArguments.h"

#include "find/WrongUse.h"
#include "runtime/Pattern.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "search/SearchText.h"
#include "services/Paths.h"

#include <QCommandLineParser>

#include <limits>

namespace netrove {
namespace {

QCommandLineOption Switch(const char* name) {
    return QCommandLineOption(QString::fromLatin1(name));
}

QCommandLineOption WithValue(const char* name, const char* value) {
    return {QString::fromLatin1(name), QString(), QString::fromLatin1(value)};
}

/// A text like "Temp:folder" as an entry of the exclusion lists; without a type it is a folder.
QString ExclusionEntry(const QString& text) {
    const qsizetype colon = text.lastIndexOf(u':');
    const QString name = (colon < 0 ? text : text.left(colon)).trimmed();
    const QString type = colon < 0 ? u"folder"_s : text.mid(colon + 1).toLower();
    const QStringList types{u"folder"_s, u"workstation"_s, u"workgroup"_s, u"network"_s};
    if (!types.contains(type))
        throw WrongUse(
            WrongUse::tr("--exclude knows no type '%1' (%2)").arg(type, types.join(", "_L1)));
    if (name.isEmpty() || HasIllegalNameChars(name))
        throw WrongUse(
            WrongUse::tr("--exclude takes a name, without a path and wildcards, not '%1'")
                .arg(name));
    return name + "|True|"_L1 + type;
}

std::optional<qint32> MostResults(const QString& text) {
    bool isNumber = false;
    const qint32 max = text.toInt(&isNumber);
    if (!isNumber || max < 1)
        throw WrongUse(WrongUse::tr("--max takes a whole number above 0, not '%1'").arg(text));
    return max;
}

/// Uses each pattern once: an invalid one fails when it is used, which should be here and not in
/// the middle of the network.
void CheckPatterns(const QStringList& patterns) {
    if (patterns.size() > std::numeric_limits<qint16>::max())
        throw WrongUse(WrongUse::tr("too many patterns"));
    for (const QString& pattern : patterns) {
        try {
            (void)Pattern(pattern).Matches(u"name");
        } catch (const RunTimeError&) {
            throw WrongUse(WrongUse::tr("'%1' is no valid pattern ('[' without ']', or a range "
                                        "from high to low)")
                               .arg(pattern));
        }
    }
}

} // namespace

FindArguments FindArguments::Parse(const QStringList& arguments) {
    const auto help = QCommandLineOption(QStringList{u"h"_s, u"help"_s});
    const auto version = Switch("version");
    const auto from = WithValue("from", "NODE");
    const auto noRecurse = Switch("no-recurse");
    const auto exclude = WithValue("exclude", "NAME[:TYPE]");
    const auto adminShares = Switch("admin-shares");
    const auto thisComputer = Switch("this-computer");
    const auto details = Switch("details");
    const auto max = WithValue("max", "N");
    const auto log = WithValue("log", "FILE");
    const auto logonFile = WithValue("logon-file", "FILE");
    QCommandLineParser parser;
    parser.addOptions({help, version, from, noRecurse, exclude, adminShares, thisComputer, details,
                       max, log, logonFile});
    const bool parsed = parser.parse(QStringList(QString()) + arguments);

    FindArguments result;
    if (parser.isSet(help) || parser.isSet(version)) {
        result.action = parser.isSet(help) ? Action::ShowHelp : Action::ShowVersion;
        return result;
    }
    if (!parsed)
        throw WrongUse(parser.errorText().chopped(1)); // without its full stop
    result.patterns = SearchText::Strip(parser.positionalArguments().join(u','));
    if (result.patterns.isEmpty())
        throw WrongUse(WrongUse::tr("no pattern to search for"));
    CheckPatterns(result.patterns.split(u','));
    result.from = parser.value(from);
    result.recurse = !parser.isSet(noRecurse);
    for (const QString& text : parser.values(exclude))
        result.excluded.append(ExclusionEntry(text));
    result.adminShares = parser.isSet(adminShares);
    result.thisComputer = parser.isSet(thisComputer);
    result.details = parser.isSet(details);
    if (parser.isSet(max))
        result.max = MostResults(parser.value(max));
    result.logFile = parser.value(log);
    result.logonFile = parser.value(logonFile);
    return result;
}

} // namespace netrove
