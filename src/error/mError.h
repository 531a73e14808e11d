// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "base/Error.h"

namespace huebrush::error {

/// The error that a trap has caught, as the reporter reads it.
struct PendingError {
    std::int32_t number = 0;  ///< 0: no error.
    std::string description;
    std::int32_t line = 0;  ///< The procedure's current line; 0 when it keeps none.
};

/// Reports an error to the user in a message box: where it happened, the caller's message, and the
/// system's description. The location is put in front of `message` itself, too.
///
/// `askUser` non-zero offers Abort, Retry and Ignore and returns the button (3, 4, 5); otherwise,
/// and when there is no pending error, the result is 0.
std::int16_t ReportError(const PendingError& error, std::string& message, const std::string& source,
                         std::int16_t askUser);

/// Where a procedure stands: the module with its closing point, the procedure, and the procedure's
/// own message about what failed. All three are given texts, never derived.
struct Place {
    std::string module;
    std::string procedure;
    std::string message;

    std::string source() const { return module + procedure; }
};

/// Reports an error at a place, without a choice. `line` is the procedure's current line; 0 when it
/// keeps none. What the box says; empty when there was no error.
std::string report(const Place& place, const base::Error& error, std::int32_t line = 0);

/// What the port's event entries do with an error that no trap has caught.
void reportUnhandled(const base::Error& error);

/// A procedure's error trap: runs the body, reports what it throws, and ends. What was reported;
/// empty when the body came to its end.
template <std::invocable Body>
std::string trap(const Place& place, Body&& body) {
    try {
        std::forward<Body>(body)();
        return {};
    } catch (...) {
        return report(place, base::currentError());
    }
}

/// The silent trap.
using base::ignoring;

/// The trap of a procedure whose reporter may offer Abort, Retry and Ignore: each operation is a
/// step of its own. Retry repeats the failing step, Ignore goes on with the next one, and Abort
/// leaves the procedure, as does the report without a choice.
class Steps {
 public:
    /// `ask` says, when an error occurs, whether the user is to choose.
    using Ask = std::function<std::int16_t()>;
    /// Says after each step, and after each report, whether there is anything left to do. Where
    /// there is not, the procedure ends, and an error of the step is not reported.
    using GoesOn = std::function<bool()>;

    /// Runs a procedure made of steps.
    template <std::invocable<Steps&> Procedure>
    static void run(const Place& place, Ask ask, Procedure&& procedure) {
        run(
            place, std::move(ask), [] { return true; }, std::forward<Procedure>(procedure));
    }
    template <std::invocable<Steps&> Procedure>
    static void run(const Place& place, Ask ask, GoesOn goesOn, Procedure&& procedure) {
        Steps steps(place, std::move(ask), std::move(goesOn));
        try {
            std::forward<Procedure>(procedure)(steps);
        } catch (const Left&) {
            return;
        } catch (...) {
            report(place, base::currentError(), steps.line_);
        }
    }

    template <std::invocable Step>
    void operator()(Step&& step) {
        while (!attempt(step)) {
        }
    }
    /// A step of a procedure that keeps a current line: sets it first.
    template <std::invocable Step>
    void operator()(std::int32_t line, Step&& step) {
        line_ = line;
        (*this)(std::forward<Step>(step));
    }

 private:
    struct Left {};

    Steps(Place place, Ask ask, GoesOn goesOn)
        : place_(std::move(place)), ask_(std::move(ask)), goesOn_(std::move(goesOn)) {}

    /// Whether the procedure is to go on with the next step; false to repeat this one.
    template <std::invocable Step>
    bool attempt(Step& step) {
        bool done = true;
        try {
            step();
        } catch (...) {
            if (goesOn_()) done = decide(base::currentError());
        }
        if (!goesOn_()) throw Left{};
        return done;
    }
    bool decide(const base::Error& error);

    Place place_;
    Ask ask_;
    GoesOn goesOn_;
    std::int32_t line_ = 0;
};

}  // namespace huebrush::error
