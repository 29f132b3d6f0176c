#include "runtime/Yield.h"

#include <chrono>
#include <utility>

namespace netrove {

namespace {

using Clock = std::chrono::steady_clock;

/// Short enough that no key press feels late, long enough that passes hardly slow down a job.
constexpr std::chrono::milliseconds PassInterval{5};

struct Passes {
    std::function<void()> yield;
    std::function<bool()> waiting;
};

// Each thread has its own, so that a helper thread which yields never runs the window's events.
// What every call reads is kept apart from the functions, which need to be constructed.
thread_local Passes passes;
thread_local Clock::time_point nextPass = Clock::time_point::min();
thread_local bool passAlways = false;

void MakePass() {
    // Set here for yields inside the pass, and again below, so that the job gets its share of time
    // after a pass that took long.
    nextPass = Clock::now() + PassInterval;
    // A copy, as the pass may set another one.
    if (const std::function<void()> pass = passes.yield)
        pass();
    nextPass = Clock::now() + PassInterval;
}

} // namespace

void Yield() {
    if (passAlways || Clock::now() >= nextPass)
        MakePass();
}

std::function<void()> SetYieldPass(std::function<void()> pass) {
    nextPass = Clock::time_point::min();
    return std::exchange(passes.yield, std::move(pass));
}

void SetYieldAlways(bool always) {
    passAlways = always;
}

bool WhileWaiting() {
    const std::function<bool()> pass = passes.waiting;
    return !pass || pass();
}

std::function<bool()> SetWaitingPass(std::function<bool()> pass) {
    return std::exchange(passes.waiting, std::move(pass));
}

} // namespace netrove
