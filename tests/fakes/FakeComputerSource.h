#pragma once

#include "discovery/ComputerSource.h"
#include "discovery/UniqueDescriptor.h"

#include <vector>

#include <sys/eventfd.h>

namespace netrove {

/// Finds what it is told to, when it is told to.
class FakeComputerSource : public ComputerSource {
public:
    std::vector<FoundComputer> Computers;
    int Rounds = 0;
    bool Running = false;

    void Start() override {
        ++Rounds;
        Running = true;
    }
    void Finish() {
        Running = false;
        found_ = Computers;
        eventfd_write(descriptor_.Number(), 1);
    }
    bool IsRunning() const override { return Running; }
    std::vector<FoundComputer> Found() const override {
        eventfd_t value = 0;
        eventfd_read(descriptor_.Number(), &value);
        return found_;
    }
    int Descriptor() const override { return descriptor_.Number(); }

private:
    std::vector<FoundComputer> found_;
    UniqueDescriptor descriptor_{eventfd(0, EFD_NONBLOCK)};
};

} // namespace netrove
