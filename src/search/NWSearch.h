#pragma once

#include "network/NetResource.h"
#include "search/FolderScan.h"
#include "search/SearchContext.h"
#include "search/WalkAhead.h"

#include <QString>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace netrove {

/// The search engine: walks the network downwards from a start node, decides at each node what to
/// do with it, and reports every matching file. One object serves one search; it runs on the
/// caller's thread and yields to the event loop very often. It shows no messages: what can't be
/// listed or entered gives no files.
class NWSearch {
public:
    explicit NWSearch(const SearchServices& services);
    NWSearch(const NWSearch&) = delete;
    NWSearch& operator=(const NWSearch&) = delete;
    ~NWSearch() = default;

    /// Raised for each file that matches, with its full path. A handler may call Abandon().
    std::function<void(const QString& netPath)> ItemFound;
    /// The walk has reached this place. Raised very often.
    std::function<void(const QString& netPath)> SearchUpdate;

    /// Asks the walk to stop at its next test. May be called at any time.
    void Abandon() { context_.AbandonRequested = true; }

    /// Searches for files whose names match one of the comma-separated patterns of `fileName`,
    /// from `networkStartPoint` down; returns when the walk has ended. Raises
    /// ErrorNumber::ObjectNotSet if that is null, and any failure that no walk over children has
    /// caught.
    void BeginSearch(const QString& fileName,
                     const std::shared_ptr<NetResource>& networkStartPoint);

    [[nodiscard]] bool RecurseFolders() const { return recurseFolders_; }
    void SetRecurseFolders(bool recurse) { recurseFolders_ = recurse; }

    /// Whether matches are kept for GetResult(). True at first; a caller that takes them from
    /// ItemFound alone turns it off, as each one takes memory.
    [[nodiscard]] bool KeepResults() const { return context_.KeepResults; }
    void SetKeepResults(bool keep) { context_.KeepResults = keep; }

    /// The path of a match, by its number from 1 to NumResults(), after a yield; empty for any
    /// other number. For callers that don't listen to ItemFound; both programs do.
    [[nodiscard]] QString GetResult(qint32 resultNumber) const;
    [[nodiscard]] qint32 NumResults() const;

    /// The number of computers that the walk has come to; all but the last are done.
    [[nodiscard]] int ReachedComputers() const { return reachedComputers_; }
    /// The number of computers that the walk knows of, from the lists that it has read so far.
    [[nodiscard]] int KnownComputers() const {
        return std::max(knownComputers_, reachedComputers_);
    }

    /// Whether the walk has looked for computers to its end and knows of none, having met an empty
    /// list of them.
    [[nodiscard]] bool FoundNobody() const {
        return hasEmptyList_ && KnownComputers() == 0 && !context_.AbandonRequested;
    }

private:
    enum class Next { WalkChildren, Leave };

    void SearchNode(NetResource& node);
    [[nodiscard]] Next ActOnNode(NetResource& node);
    [[nodiscard]] Next ActOnServer(const NetResource& node);
    [[nodiscard]] Next ActOnShare(const NetResource& node);
    [[nodiscard]] Next SearchAdminShares(const QString& server);
    void WalkChildren(NetResource& node);
    void WalkChild(NetResource& child);
    void SearchPath(const QString& startPath);
    [[nodiscard]] bool IsExcluded(const QString* entry, QLatin1String logLine);
    [[nodiscard]] bool IsCurrentComputer(const NetResource& node);
    void LogSearchHead();

    SearchContext context_;
    std::vector<Pattern> patterns_; ///< of the search
    FolderScan folders_;
    std::optional<WalkAhead> ahead_; ///< during a search
    bool recurseFolders_ = false;
    int reachedComputers_ = 0;
    int knownComputers_ = 0;
    bool hasEmptyList_ = false; ///< a list of computers, or of what contains them, was empty
};

} // namespace netrove
