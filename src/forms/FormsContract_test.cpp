// SPDX-License-Identifier: MPL-2.0

#include "forms/FormsContract.h"

#include "forms/MenuContract.h"
#include "ports/memory/Driver.h"
#include "ports/memory/MemoryRuntime.h"

namespace huebrush::forms::contract {
namespace {

/// The port without a screen: the controls are all there is.
class MemoryPort {
 public:
    Runtime& runtime() { return runtime_; }
    void settle() {}
    void click(Control& control) { memory::Driver(control.form()).click(control); }
    void closeWindow(Form& form) { memory::Driver(form).close(); }
    // No window here is ever active.
    void deactivate(Form&) {}
    void activate(Form&) {}
    void inNextPump(std::function<void()> happening) {
        runtime_.onPump = [this, happening = std::move(happening)](std::size_t) {
            const auto once = happening;
            runtime_.onPump = nullptr;
            once();
        };
    }
    void answerNextBox(MsgBoxResult answer) { runtime_.answers.push_back(answer); }
    void pickInNextMenu(const std::string& caption) { runtime_.picks.push_back(caption); }

 private:
    memory::MemoryRuntime runtime_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, FormsContract, MemoryPort);
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, MenuContract, MemoryPort);

}  // namespace
}  // namespace huebrush::forms::contract
