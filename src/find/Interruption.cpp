#include "find/Interruption.h"

#include <csignal>

namespace netrove {
namespace {

// The only thing that a signal's handler may touch.
volatile std::sig_atomic_t received = 0;

void Receive(int signal) {
    received = signal;
    // From now on both have their usual effect.
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

void Handle(int signal) {
    // A program that was started with a signal ignored leaves it so.
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = Receive;
    sigaction(signal, &action, nullptr);
}

} // namespace

Interruption::Interruption() {
    Handle(SIGINT);
    Handle(SIGTERM);
}

int Interruption::Signal() {
    return received;
}

} // namespace netrove
