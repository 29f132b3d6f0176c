#include "find/FindRun.h"

#include "find/ConsoleText.h"
#include "find/WrongUse.h"
#include "runtime/SourceText.h"
#include "runtime/Yield.h"
#include "search/NotSearchedText.h"
#include "search/SearchSummary.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace netrove {
namespace {

Settings SearchSettings(const FindArguments& arguments, const QString& computer) {
    constexpr qint16 bytes = 3;
    Settings settings;
    settings.MaxReturnFiles = arguments.max.value_or(std::numeric_limits<qint32>::max());
    settings.IncludeAdminShares = arguments.adminShares;
    settings.IncludeCurrentComputer = arguments.thisComputer;
    settings.CurrentComputerName = computer;
    settings.ExcNetNodes = arguments.excluded;
    settings.Troubleshooting = arguments.logFile.isEmpty() ? 0 : 1;
    settings.IncludeMP3Info = arguments.details;
    settings.SizeFormat = bytes;
    settings.DateFormat = u"YYYY-MM-DD HH:NN:SS"_s;
    return settings;
}

/// Makes `pass` run at the yields and waits of the search; if it returns false, a wait ends.
class PassesOf {
public:
    explicit PassesOf(const std::function<bool()>& pass)
        : yield_(SetYieldPass([pass] { static_cast<void>(pass()); }))
        , waiting_(SetWaitingPass(pass)) {}
    PassesOf(const PassesOf&) = delete;
    PassesOf& operator=(const PassesOf&) = delete;
    ~PassesOf() {
        SetYieldPass(std::move(yield_));
        SetWaitingPass(std::move(waiting_));
    }

private:
    std::function<void()> yield_;
    std::function<bool()> waiting_;
};

} // namespace

FindRun::FindRun(const FindArguments& arguments, const FindServices& services,
                 const FindConsole& console)
    : arguments_(arguments)
    , services_(services)
    , console_(console)
    , settings_(SearchSettings(arguments, services.computer))
    , log_(settings_)
    , engine_({.files = services.files,
               .settings = settings_,
               .exclusions = exclusions_,
               .log = log_,
               .ahead = services.ahead,
               .network = &services.network,
               .reading = AudioColumns::Reading(settings_.IncludeMP3Info)})
    , lines_(services.files, settings_, arguments.details, console.out.IsTerminal())
    , progress_(console.err) {
    engine_.ItemFound = [this](const QString& netPath) { OnFound(netPath); };
    engine_.SearchUpdate = [this](const QString& netPath) { place_ = netPath; };
    engine_.SetRecurseFolders(arguments.recurse);
    engine_.SetKeepResults(false);
}

int FindRun::Execute() {
    clock_.start();
    {
        const PassesOf passes([this] { return Pass(); });
        Search();
    }
    progress_.Clear();
    console_.out.Flush();
    PrintNotSearched();
    PrintSummary();
    if (signal_ != 0)
        return FindStatus::Signal + signal_;
    return found_ > 0 ? FindStatus::Found : FindStatus::NothingFound;
}

void FindRun::Search() {
    exclusions_.ParseNetNodes(settings_);
    if (!arguments_.logFile.isEmpty()) {
        try {
            log_.Open(arguments_.logFile);
        } catch (const RunTimeError&) {
            throw WrongUse(WrongUse::tr("cannot write to '%1'").arg(arguments_.logFile));
        }
    }
    place_ = arguments_.from;
    const auto start = StartNode(arguments_.from, services_);
    if (services_.report)
        services_.report->Begin();
    // The engine ignores requests to stop that came before its beginning, so test here.
    if (signal_ == 0)
        engine_.BeginSearch(arguments_.patterns, start);
    if (services_.report && engine_.FoundNobody())
        services_.report->NoteNobody();
    if (failure_)
        throw RunTimeError(*failure_);
    if (signal_ == 0 && found_ == 0)
        CheckStart(arguments_.from, services_);
}

/// Keeps a failure itself: the engine would pass over it, and nobody would know what is missing.
void FindRun::OnFound(const QString& netPath) {
    if (failure_)
        return;
    failure_ = FailureOf([&] { PrintFound(netPath); });
    if (failure_)
        engine_.Abandon();
}

void FindRun::PrintFound(const QString& netPath) {
    // The first file above the limit stops the search and isn't printed.
    if (found_ == settings_.MaxReturnFiles) {
        capped_ = true;
        engine_.Abandon();
        return;
    }
    const auto line = lines_.Line(netPath);
    if (!line)
        return;
    ++found_;
    console_.out.WriteLine(*line);
}

/// Returns whether the search goes on.
bool FindRun::Pass() {
    if (signal_ == 0)
        signal_ = console_.signal();
    if (console_.out.HasUnwritten()) {
        if (console_.out.IsTerminal())
            progress_.Clear();
        console_.out.Flush();
    }
    if (signal_ != 0 || console_.out.Error() != 0) {
        engine_.Abandon();
        return false;
    }
    progress_.Show(found_, place_);
    return true;
}

/// Names only the first ones, so that a script's log isn't flooded.
void FindRun::PrintNotSearched() {
    constexpr std::size_t mostNames = 10;
    if (!services_.report || console_.out.Error() != 0)
        return;
    const QString text = NotSearchedText(*services_.report);
    if (text.isEmpty())
        return;
    QStringList names;
    const std::vector<NotSearched>& all = services_.report->All();
    for (std::size_t at = 0; at < std::min(all.size(), mostNames); ++at)
        names.append(all[at].name);
    if (all.size() > mostNames)
        names.append(u"..."_s);
    const QString line = names.isEmpty() ? text : text + ": "_L1 + names.join(u' ');
    console_.err.WriteLine("netrove-find: "_L1 + Escaped(line, Escaping::AllControls));
}

void FindRun::PrintSummary() {
    const bool incomplete = signal_ != 0 || capped_;
    const bool nobodyReads = console_.out.Error() != 0;
    if (nobodyReads || (!incomplete && !console_.err.IsTerminal()))
        return;
    console_.err.WriteLine(
        SearchSummary(signal_ != 0, found_, clock_.elapsed() / 1000, arguments_.max));
}

} // namespace netrove
