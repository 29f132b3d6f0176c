#pragma once

#include "platform/Files.h"

#include <utility>
#include <vector>

namespace netrove {

/// A folder listing with these entries.
class ListedFind : public FileFind {
public:
    explicit ListedFind(std::vector<FindData> entries) : entries_(std::move(entries)) {}

    bool FindNext(FindData& data) override {
        if (next_ == entries_.size())
            return false;
        data = entries_[next_++];
        return true;
    }

private:
    std::vector<FindData> entries_;
    std::size_t next_ = 0;
};

} // namespace netrove
