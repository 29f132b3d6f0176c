#pragma once

#include "network/NetResource.h"
#include "search/NWSearch.h"

#include <memory>

namespace netrove {

/// What the window's searches and the loading of results share.
struct SearchState {
    /// Where a search starts; null only if the start of the program failed.
    std::shared_ptr<NetResource> SearchStartNode;
    /// The engine of the running search; null outside a search.
    std::shared_ptr<NWSearch> SearchEvt;
    /// Rows that the running job has put into the results list.
    qint32 FilesFound = 0;
};

} // namespace netrove
