// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "forms/Runtime.h"

namespace huebrush::forms {

/// A runtime on top of another one, to which it passes everything on; a derived class changes what
/// is to be different.
class ForwardingRuntime : public Runtime {
 public:
    explicit ForwardingRuntime(Runtime& platform) : platform_(platform) {}

    MsgBoxResult MsgBox(const std::string& text, std::int32_t style,
                        const std::string& title) override {
        return platform_.MsgBox(text, style, title);
    }
    void PopupMenu(forms::PopupMenu& menu, Control& owner, double x, double y) override {
        platform_.PopupMenu(menu, owner, x, y);
    }
    std::string ChooseFile(const FileDialog& dialog) override {
        return platform_.ChooseFile(dialog);
    }
    base::Picture DrawIcon(const base::Picture& icon, const base::Picture& canvas) override {
        return platform_.DrawIcon(icon, canvas);
    }
    void DoEvents() override { platform_.DoEvents(); }
    forms::Clipboard& Clipboard() override { return platform_.Clipboard(); }
    forms::Settings& Settings() override { return platform_.Settings(); }
    const forms::Component& Component() override { return platform_.Component(); }
    forms::System& System() override { return platform_.System(); }
    void showForm(Form& form, bool modal) override { platform_.showForm(form, modal); }
    void closeForm(Form& form) override { platform_.closeForm(form); }
    void setTopMost(Form& form, bool topMost) override { platform_.setTopMost(form, topMost); }

 private:
    Runtime& platform_;
};

}  // namespace huebrush::forms
