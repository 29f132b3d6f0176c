#pragma once

#include "platform/ReadAhead.h"
#include "search/ExclusionLists.h"
#include "search/Settings.h"

namespace netrove {

/// What a search goes into, by its settings and exclusions as they were at its start.
class SearchPlan : public WalkPlan {
public:
    SearchPlan(const Settings& settings, const ExclusionLists& exclusions, bool recurse);

    [[nodiscard]] bool EntersNetwork(const QString& name) const;
    [[nodiscard]] bool EntersWorkgroup(const QString& name) const override;
    [[nodiscard]] bool EntersComputer(const QString& remoteName) const override;
    [[nodiscard]] bool EntersShare(const QString& remoteName) const override;
    [[nodiscard]] bool EntersFolder(const QString& folderPath, qsizetype nodeLength,
                                    int depth) const override;
    [[nodiscard]] QStringList AdminShares() const override;

    /// Whether a computer is the one that the program runs on.
    [[nodiscard]] static bool IsCurrentComputer(const Settings& settings,
                                                const QString& remoteName);

private:
    Settings settings_;
    ExclusionLists exclusions_;
    bool recurse_;
};

} // namespace netrove
