// SPDX-License-Identifier: MPL-2.0

#include "forms/FormsContract.h"

#include <map>

#include "forms/FieldsContract.h"
#include "forms/KeysContract.h"
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
    void whileModal(std::function<void()> happening) {
        runtime_.onModal = [happening = std::move(happening)](Form&) { happening(); };
    }
    void type(TextBox& box, const std::string& text) { memory::Driver(box.form()).type(box, text); }
    void pick(ListBox& list, std::int16_t index) { memory::Driver(list.form()).pick(list, index); }
    void key(Form& form, const std::string& name) {
        static const std::map<std::string, std::int16_t> kNamed{
            {"Return", KeyCode::kReturn},  {"Escape", KeyCode::kEscape}, {"Tab", KeyCode::kTab},
            {"BackSpace", KeyCode::kBack}, {"Left", KeyCode::kLeft},     {"End", KeyCode::kEnd}};
        const memory::Driver user(form);
        const auto named = kNamed.find(name);
        if (named != kNamed.end()) return user.key(named->second);
        user.type(name);
    }
    void pickInNextMenu(const std::string& caption) { runtime_.picks.push_back(caption); }

 private:
    memory::MemoryRuntime runtime_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Memory, FormsContract, MemoryPort);
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, MenuContract, MemoryPort);
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, FieldsContract, MemoryPort);
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, KeysContract, MemoryPort);

}  // namespace
}  // namespace huebrush::forms::contract
