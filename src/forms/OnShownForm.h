// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Error.h"
#include "forms/Runtime.h"

namespace huebrush::forms::contract {

using Names = std::vector<std::string>;

/// A port with a form shown. The contracts say what a port has; here it is:
///
///   Runtime& runtime();    what the forms run on, for the port's lifetime
///   void settle();         lets the screen catch up with the controls
template <class Port, class ShownForm>
class OnShownForm : public ::testing::Test {
 protected:
    OnShownForm() {
        port.runtime().UnhandledError.connect(
            [this](const base::Error& error) { unhandled.push_back(error.number()); }, this);
        form->Show();
        port.settle();
    }
    ~OnShownForm() override {
        if (form) form->Unload();
        port.runtime().UnhandledError.disconnect(this);
    }

    /// Notes that an event of a control is raised.
    template <class Subject, class Happening>
    void watch(Subject& control, Happening Subject::*event) {
        (control.*event).connect([this, &control] { events.push_back(control.name()); });
    }
    Names takeEvents() { return std::exchange(events, {}); }
    /// The number of the error that an action throws; 0 for none.
    template <class Action>
    static std::int32_t errorOf(const Action& action) {
        try {
            action();
        } catch (const base::Error& error) {
            return error.number();
        }
        return 0;
    }

    Port port;
    RuntimeScope scope{port.runtime()};
    std::shared_ptr<ShownForm> form = std::make_shared<ShownForm>();
    Names events;
    std::vector<std::int32_t> unhandled;
};

}  // namespace huebrush::forms::contract
