#include "cli/Interrupt.h"

#include <csignal>

#include "cli/Failure.h"

namespace huebrush::cli {

namespace {

// The only thing that a signal handler may touch.
volatile std::sig_atomic_t interruptSeen = 0;

extern "C" void noteInterrupt(int) {
    interruptSeen = 1;
}

}  // namespace

void catchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = noteInterrupt;
    sigemptyset(&action.sa_mask);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

void throwIfInterrupted() {
    if (interruptSeen != 0) throw Interrupted();
}

}  // namespace huebrush::cli
