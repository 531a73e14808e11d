// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "ports/memory/MemoryRuntime.h"
#include "view/FormView.h"

namespace huebrush::view {

/// A toolkit without a screen, which remembers what it was asked to show. The test is its user:
/// it acts on the native controls and surfaces as the mouse would.
class FakeFrame final : public NativeFrame {
 public:
    class Control;
    class Surface;

    void setCaption(const std::string& text) override { caption = text; }
    void setSize(const Size& inside) override { size = inside; }
    void setWaitPointer(bool isShown) override { waits = isShown; }
    bool isActive() const override { return active; }
    std::unique_ptr<NativeSurface> makeSurface(const ControlReference& form) override;
    void askForTurn() override { ++turnsAskedFor; }
    void runAction(const std::function<void()>& action) override {
        ++actionsRun;
        action();
    }
    std::shared_ptr<void> repeat(std::chrono::milliseconds, std::function<void()> work) override {
        const auto kept = std::make_shared<std::function<void()>>(std::move(work));
        repeated = kept;
        return kept;
    }

    /// The event loop runs until nobody asks for another turn.
    void turn(FormView& view) {
        while (turnsAskedFor > 0) {
            turnsAskedFor = 0;
            if (view.runActions()) view.flush();
        }
    }
    /// The interval of what is repeated has passed. Whether anything is.
    bool tick() const {
        const auto work = repeated.lock();
        if (work != nullptr) (*work)();
        return work != nullptr;
    }

    /// The native control that shows a control; nothing where none does.
    Control* of(const forms::Control& control) const;
    /// The surface of a form or picture box; nothing where there is none.
    Surface* surfaceFor(const forms::Control& control) const;
    /// The names of the controls that show in native ones, sorted.
    std::vector<std::string> shown() const;

    std::string caption;
    Size size;
    bool waits = false;
    bool active = true;
    int turnsAskedFor = 0;
    int actionsRun = 0;
    std::weak_ptr<std::function<void()>> repeated;
    /// What exists, and how many were ever created.
    std::vector<Control*> controls;
    std::vector<Surface*> surfaces;
    int controlsMade = 0;
    Control* focused = nullptr;
};

class FakeFrame::Control final : public NativeControl {
 public:
    Control(FakeFrame& frame, const forms::Control& first)
        : frame_(frame), kind_(typeid(first).name()) {
        frame_.controls.push_back(this);
        ++frame_.controlsMade;
    }
    ~Control() override {
        std::erase(frame_.controls, this);
        if (frame_.focused == this) frame_.focused = nullptr;
    }

    bool fits(const forms::Control& control) const override {
        return typeid(control).name() == kind_;
    }
    void show(const ControlReference& control, const Rectangle& at) override {
        reference = control;
        place = at;
        visible = true;
    }
    void hide() override { visible = false; }
    bool hasFocus() const override { return frame_.focused == this; }
    void takeFocus() override { frame_.focused = this; }
    void collect() override {
        if (onCollect) onCollect();
    }

    std::function<void()> onCollect;
    ControlReference reference;
    Rectangle place;
    bool visible = false;

 private:
    FakeFrame& frame_;
    std::string kind_;
};

class FakeFrame::Surface final : public NativeSurface {
 public:
    Surface(FakeFrame& frame, ControlReference shown) : reference(std::move(shown)), frame_(frame) {
        frame_.surfaces.push_back(this);
    }
    ~Surface() override { std::erase(frame_.surfaces, this); }

    void place(const Rectangle& place) override {
        bounds = place;
        visible = true;
    }
    void hide() override { visible = false; }
    void repaint() override { ++repaints; }
    void setToolTip(const std::string& text) override { toolTip = text; }
    std::unique_ptr<NativeControl> makeControl(const forms::Control& control) override {
        return std::make_unique<Control>(frame_, control);
    }
    std::unique_ptr<NativeSurface> makeSurface(const ControlReference& box) override {
        return std::make_unique<Surface>(frame_, box);
    }

    ControlReference reference;
    Rectangle bounds;
    bool visible = false;
    int repaints = 0;
    std::string toolTip;

 private:
    FakeFrame& frame_;
};

/// A form of some class on such a toolkit, not opened yet.
template <class FormKind>
class ViewTest : public ::testing::Test {
 protected:
    void open() {
        view->open(Scale());
        view->flush();
    }
    void turn() { frame.turn(*view); }
    void focus(forms::Control& control) {
        view->post([&] { control.SetFocus(); });
        turn();
    }

    memory::MemoryRuntime runtime;
    forms::RuntimeScope scope{runtime};
    std::shared_ptr<FormKind> form = std::make_shared<FormKind>();
    FakeFrame frame;
    std::shared_ptr<FormView> view = std::make_shared<FormView>(*form, frame);
};

inline std::unique_ptr<NativeSurface> FakeFrame::makeSurface(const ControlReference& form) {
    return std::make_unique<Surface>(*this, form);
}

inline FakeFrame::Control* FakeFrame::of(const forms::Control& control) const {
    const auto found = std::ranges::find_if(controls, [&](const Control* each) {
        return each->visible && each->reference->control == &control;
    });
    return found == controls.end() ? nullptr : *found;
}

inline FakeFrame::Surface* FakeFrame::surfaceFor(const forms::Control& control) const {
    const auto found = std::ranges::find_if(
        surfaces, [&](const Surface* each) { return each->reference->control == &control; });
    return found == surfaces.end() ? nullptr : *found;
}

inline std::vector<std::string> FakeFrame::shown() const {
    std::vector<std::string> names;
    for (const Control* const each : controls) {
        if (each->visible) names.push_back(each->reference->control->name());
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace huebrush::view
