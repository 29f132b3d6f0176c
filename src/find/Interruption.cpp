#include "find/Interruption.h"

#include <csignal>

namespace netrove {
namespace {

// The only kind of variable that a signal handler may write.
volatile std::sig_atomic_t received = 0;

void Receive(int signal) {
    received = signal;
    // From now on both signals have their usual effect.
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
}

void Handle(int signal) {
    // A signal that was ignored when the program was started stays ignored.
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
