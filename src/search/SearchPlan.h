#pragma once

#include "platform/ReadAhead.h"
#include "runtime/Pattern.h"
#include "search/ExclusionLists.h"
#include "search/SearchContext.h"
#include "settings/Settings.h"

#include <vector>

namespace netrove {

/// What a search goes into and reads, by the settings, exclusions and patterns that it started
/// with.
class SearchPlan : public WalkPlan {
public:
    SearchPlan(const SearchServices& services, std::vector<Pattern> patterns, bool recurse);

    [[nodiscard]] bool EntersNetwork(const QString& name) const;
    [[nodiscard]] bool EntersWorkgroup(const QString& name) const override;
    [[nodiscard]] bool EntersComputer(const QString& remoteName) const override;
    [[nodiscard]] bool EntersShare(const QString& remoteName) const override;
    [[nodiscard]] bool EntersFolder(const QString& folderPath, qsizetype nodeLength,
                                    int depth) const override;
    [[nodiscard]] QStringList AdminShares() const override;
    [[nodiscard]] bool ReadsFile(const QString& name) const override;
    void ReadFile(FileAccess& files, const QString& path) const override;

    /// Whether a computer is the one that the program runs on, by its name or its address.
    [[nodiscard]] static bool IsCurrentComputer(const Settings& settings,
                                                NetworkEnumeration* network,
                                                const QString& remoteName);

private:
    Settings settings_;
    ExclusionLists exclusions_;
    NetworkEnumeration* network_;
    FileReading reading_;
    std::vector<Pattern> patterns_;
    bool recurse_;
};

} // namespace netrove
