// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/Runtime.h"
#include "ports/memory/TestHost.h"
#include "ports/word/com/Pointer.h"
#include "ports/word/testhost/StandIn.h"

namespace huebrush::word {

/// The add-in, as a script uses it.
class ScriptedAddIn {
 public:
    ScriptedAddIn() = default;
    ScriptedAddIn(const ScriptedAddIn&) = delete;
    ScriptedAddIn& operator=(const ScriptedAddIn&) = delete;
    virtual ~ScriptedAddIn() = default;

    virtual void connect(const Pointer<IDispatch>& application) = 0;
    virtual void disconnect() = 0;
    /// Lets Word disconnect while the next box is open.
    virtual void disconnectInNextBox() = 0;
    /// The settings that the add-in reads and writes.
    virtual forms::Settings& settings() = 0;
    /// What the user was shown since the last look, a line for each box.
    virtual std::vector<std::string> takeBoxes() = 0;
};

/// How a box is written down: its title, its text, and its buttons by their numbers.
std::string describeBox(const std::string& title, const std::string& text,
                        const std::vector<int>& buttons);

/// Plays Word's part with an add-in, step by step, on a picture of three shapes of which the first,
/// which is selected, and the last look the same. What happens is written down: each step, the
/// calls and the boxes that it leads to, and what is in use after a disconnection.
///
/// The steps: name=TEXT, version=TEXT, setting=SECTION/KEY=TEXT, bar, button=TAG (of a bar that is
/// there already), fail=N (the call after so many others), connect, disconnect, click=TAG,
/// select=SHAPE (or all of them: *), move (the bar), delete (the bar), leave (disconnect in the
/// next box), shapes=COLOR,COLOR... (instead of the picture's), tool=ID/COLOR (what one of the
/// host's tools gives to the selected shape), fills (which writes down all shapes with their
/// fills), selection (the same of the names of those that are selected).
class Script {
 public:
    Script(memory::TestHost& host, ScriptedAddIn& addIn);

    void run(const std::vector<std::string>& steps);
    void step(const std::string& step);
    /// What was written down.
    const std::vector<std::string>& lines() const { return lines_; }
    ServedObjects& objects() { return standIn_.objects(); }

 private:
    void act(const std::string& verb, const std::string& value);
    void click(const std::string& tag);
    void disconnect();
    void select(const std::string& name);
    void replaceShapes(const std::string& colors);
    void noteFills();
    void noteCalls();

    memory::TestHost& host_;
    StandIn standIn_;
    ScriptedAddIn& addIn_;
    std::vector<std::string> lines_;
};

using Steps = std::vector<std::string>;
using MakeAddIn = std::function<std::unique_ptr<ScriptedAddIn>(memory::TestHost&)>;

/// Plays a script with a host and an add-in of its own; the call with the number `failAt` fails, if
/// it is not 0. The lines that were written down.
std::vector<std::string> play(const Steps& steps, const MakeAddIn& make, std::size_t failAt = 0);
/// The same once for each call of the script, with that one failing.
std::vector<std::string> playEachFailure(const Steps& steps, const MakeAddIn& make);

}  // namespace huebrush::word
