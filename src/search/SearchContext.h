#pragma once

#include "platform/Files.h"
#include "platform/NetworkEnumeration.h"
#include "platform/ReadAhead.h"
#include "runtime/Pattern.h"
#include "search/ExclusionLists.h"
#include "search/TroubleshootingLog.h"
#include "settings/Settings.h"

#include <QString>

#include <functional>
#include <vector>

namespace netrove {

/// What a search is given to work with.
struct SearchServices {
    FileAccess& files;
    const Settings& settings;
    const ExclusionLists& exclusions;
    TroubleshootingLog& log;
    ReadAhead* ahead = nullptr;            ///< null if nothing is read ahead
    NetworkEnumeration* network = nullptr; ///< tells which computer is this one; may be null
    FileReading reading = {};
};

/// What the walk over the network and the walk through folders share during a search.
struct SearchContext {
    SearchServices services;
    /// Raised for each matching file with its full path.
    std::function<void(const QString&)> ItemFound;
    /// Raised for each place that the walk has reached: a node's remote name, a start path, a
    /// folder path with its closing "\".
    std::function<void(const QString&)> SearchUpdate;
    bool AbandonRequested = false;
    std::vector<Pattern> PatternList;
    /// The full path of every match, numbered from 1; element 0 stays empty.
    std::vector<QString> ResultList;
    bool KeepResults = true;
    /// Length of the remote name of the node entered last, plus 1: the 1-based position in a
    /// folder path where the part below that node begins.
    qsizetype NodeBaseStart = 1;

    void Update(const QString& netPath) const {
        if (SearchUpdate)
            SearchUpdate(netPath);
    }
};

} // namespace netrove
