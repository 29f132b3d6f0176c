#pragma once

#include "network/NetResource.h"
#include "platform/ReadAhead.h"
#include "search/SearchPlan.h"

#include <memory>
#include <vector>

namespace netrove {

/// Tells whoever reads ahead of a search which nodes the walk will come to. The walk begins with
/// the constructor and ends with the destructor.
class WalkAhead {
public:
    /// Does nothing if `reader` is null.
    WalkAhead(ReadAhead* reader, std::shared_ptr<const SearchPlan> plan);
    WalkAhead(const WalkAhead&) = delete;
    WalkAhead& operator=(const WalkAhead&) = delete;
    ~WalkAhead();

    /// The walk will come to the node, or to each of the nodes.
    void Expect(const NetResource& node);
    void Expect(const NetResources& nodes);
    /// The walk has been at the node.
    void Leave(const NetResource& node);

private:
    void AddPlaces(const NetResource& node, std::vector<WalkPlace>& places) const;
    void AddPlacesBelow(const NetResource& node, std::vector<WalkPlace>& places) const;

    ReadAhead* reader_;
    std::shared_ptr<const SearchPlan> plan_;
};

} // namespace netrove
