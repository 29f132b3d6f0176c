#include "search/WalkAhead.h"

#include "runtime/SourceText.h"

namespace netrove {

WalkAhead::WalkAhead(ReadAhead* reader, std::shared_ptr<const SearchPlan> plan)
    : reader_(reader), plan_(std::move(plan)) {
    if (reader_ != nullptr)
        reader_->BeginWalk(plan_);
}

WalkAhead::~WalkAhead() {
    if (reader_ != nullptr)
        reader_->EndWalk();
}

void WalkAhead::Expect(const NetResource& node) {
    if (reader_ == nullptr)
        return;
    std::vector<WalkPlace> places;
    AddPlaces(node, places);
    reader_->Expect(places);
}

void WalkAhead::Expect(const NetResources& nodes) {
    if (reader_ == nullptr)
        return;
    std::vector<WalkPlace> places;
    for (const auto& node : nodes)
        AddPlaces(*node, places);
    reader_->Expect(places);
}

void WalkAhead::Leave(const NetResource& node) {
    if (reader_ == nullptr)
        return;
    if (node.RemoteName().startsWith("\\\\"_L1)) {
        reader_->Leave(node.RemoteName());
        return;
    }
    if (const auto children = node.KnownChildren()) {
        for (const auto& child : *children)
            Leave(*child);
    }
}

/// Parts of the tree that are known from earlier walks aren't asked for again, but are walked.
void WalkAhead::AddPlaces(const NetResource& node, std::vector<WalkPlace>& places) const {
    const QString& name = node.RemoteName();
    switch (node.ResourceType()) {
    case ResourceType::Server:
        if (!plan_->EntersComputer(name))
            return;
        places.push_back({.kind = WalkPlace::Kind::Computer,
                          .remoteName = name,
                          .provider = node.Provider(),
                          .isListed = node.KnownChildren() != nullptr});
        AddPlacesBelow(node, places);
        return;
    case ResourceType::Share:
    case ResourceType::ShareAdmin:
    case ResourceType::Directory:
        if (plan_->EntersShare(name))
            places.push_back({.kind = WalkPlace::Kind::Folder, .remoteName = name});
        return;
    case ResourceType::Network:
        if (plan_->EntersNetwork(name))
            AddPlacesBelow(node, places);
        return;
    case ResourceType::Domain:
    case ResourceType::Group:
        if (plan_->EntersWorkgroup(name))
            AddPlacesBelow(node, places);
        return;
    case ResourceType::Generic:
    case ResourceType::Root:
    case ResourceType::Tree:
        AddPlacesBelow(node, places);
        return;
    case ResourceType::File:
    case ResourceType::NDSContainer:
    case ResourceType::Printer:
        return;
    }
}

void WalkAhead::AddPlacesBelow(const NetResource& node, std::vector<WalkPlace>& places) const {
    const auto children = node.KnownChildren();
    if (!children)
        return;
    for (const auto& child : *children)
        AddPlaces(*child, places);
}

} // namespace netrove
