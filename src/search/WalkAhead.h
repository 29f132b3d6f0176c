#pragma once

#include "network/NetResource.h"
#include "platform/ReadAhead.h"
#include "search/SearchPlan.h"

#include <memory>
#include <vector>

namespace netrove {

/// Tells the reader ahead of a search, as long as it lives, which nodes the walk comes to.
class WalkAhead {
public:
    /// Without a reader, does nothing.
    WalkAhead(ReadAhead* reader, std::shared_ptr<const SearchPlan> plan);
    WalkAhead(const WalkAhead&) = delete;
    WalkAhead& operator=(const WalkAhead&) = delete;
    ~WalkAhead();

    /// The walk comes to the node, or to each of the nodes.
    void Expect(const NetResource& node);
    void Expect(const NetResources& nodes);
    /// It has been there.
    void Leave(const NetResource& node);

private:
    void AddPlaces(const NetResource& node, std::vector<WalkPlace>& places) const;
    void AddPlacesBelow(const NetResource& node, std::vector<WalkPlace>& places) const;

    ReadAhead* reader_;
    std::shared_ptr<const SearchPlan> plan_;
};

} // namespace netrove
