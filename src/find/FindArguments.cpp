#include "find/FindArguments.h"

#include "find/WrongUse.h"
#include "mainwindow/services/Paths.h"
#include "runtime/Pattern.h"
#include "runtime/RunTimeError.h"
#include "search/SearchText.h"

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

/// "Temp:folder" as an entry of the exclusion lists; without a type it is a folder.
QString ExclusionEntry(const QString& text) {
    const qsizetype colon = text.lastIndexOf(QLatin1Char(':'));
    const QString name = (colon < 0 ? text : text.left(colon)).trimmed();
    const QString type = colon < 0 ? QStringLiteral("folder") : text.mid(colon + 1).toLower();
    const QStringList types{QStringLiteral("folder"), QStringLiteral("workstation"),
                            QStringLiteral("workgroup"), QStringLiteral("network")};
    if (!types.contains(type))
        throw WrongUse(QLatin1String("--exclude knows no type '") + type + QLatin1String("' (") +
                       types.join(QLatin1String(", ")) + QLatin1Char(')'));
    if (name.isEmpty() || HasIllegalNameChars(name))
        throw WrongUse(
            QLatin1String("--exclude takes a name, without a path and wildcards, not '") + name +
            QLatin1Char('\''));
    return name + QLatin1String("|True|") + type;
}

std::optional<qint32> MostResults(const QString& text) {
    bool isNumber = false;
    const qint32 max = text.toInt(&isNumber);
    if (!isNumber || max < 1)
        throw WrongUse(QLatin1String("--max takes a whole number above 0, not '") + text +
                       QLatin1Char('\''));
    return max;
}

/// A pattern fails when it is first used: better here than in the middle of the network.
void CheckPatterns(const QStringList& patterns) {
    if (patterns.size() > std::numeric_limits<qint16>::max())
        throw WrongUse(QStringLiteral("too many patterns"));
    for (const QString& pattern : patterns) {
        try {
            (void)Pattern(pattern).Matches(u"name");
        } catch (const RunTimeError&) {
            throw WrongUse(QLatin1String("'") + pattern +
                           QLatin1String("' is no valid pattern ('[' without ']', or a range from "
                                         "high to low)"));
        }
    }
}

} // namespace

FindArguments FindArguments::Parse(const QStringList& arguments) {
    const auto help = QCommandLineOption(QStringList{QStringLiteral("h"), QStringLiteral("help")});
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
        throw WrongUse(parser.errorText().chopped(1)); // its full stop
    result.patterns = SearchText::Strip(parser.positionalArguments().join(QLatin1Char(',')));
    if (result.patterns.isEmpty())
        throw WrongUse(QStringLiteral("no pattern to search for"));
    CheckPatterns(result.patterns.split(QLatin1Char(',')));
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

QString HelpText() {
    return QStringLiteral(R"(Usage: netrove-find [OPTION]... PATTERN...
Find files on the local network whose names match a PATTERN.

PATTERNs are separated by blanks or commas and match whole names, without regard
to case. Quote them, so that the shell leaves them alone:
  *  any characters       [a-f]   one character of a list
  ?  one character        [!a-f]  one character not in it
  #  one digit
No asterisks are added: 'report' finds only files called "report", '*report*'
all that have it in their names.

Where to search:
  --from NODE            start at NODE instead of the whole network. NODE is
                           '\\SERVER', '\\SERVER\SHARE' or a folder below
                           (also as //SERVER/SHARE), the name of a network,
                           or names from the network down, joined by '|':
                           'Microsoft Windows Network|WORKGROUP'
  --no-recurse           leave the folders of shares alone
  --exclude NAME[:TYPE]  leave out what is called NAME; TYPE is folder (also a
                           share; the default), workstation, workgroup or
                           network. May be given more than once
  --admin-shares         try the hidden shares Admin$ and C$ to Z$ too
  --this-computer        search this computer too
  --logon-file FILE      log on to every computer with the user of FILE, which
                           only you may read and has the lines
                           "username = USER", "password = PASSWORD" and, if
                           need be, "domain = DOMAIN"; else as a guest

What to print:
  --details              print name, folder, size in bytes, date (as 2020-02-03
                           04:05:06), attributes (R, H, S, A), and for MPEG
                           audio length, bit rate in kbit/s and frequency in
                           Hz; separated by tabs
  --max N                stop after N files
  --log FILE             write what the search looks at to FILE

  -h, --help             print this help
  --version              print the version

One file a line, with its full path, as soon as it is found. A line break in a
name is printed as its code in angle brackets, <0A>, which no name can hold;
with --details a tab too, and on a terminal every control character.

While the search runs, a terminal shows how far it is. Ctrl+C stops it and
prints what was found so far; a second Ctrl+C ends the program at once.

Exit status: 0 if a file was found, 1 if none was, 2 for wrong use or a failure,
128 and the signal's number if a signal stopped the search.

Examples:
  netrove-find '*.mp3'
  netrove-find --from //MEDIA/MUSIC --details '*.mp3,*.mp2'
  netrove-find --exclude Temp --exclude OLDPC:workstation 'report*'
)");
}

} // namespace netrove
