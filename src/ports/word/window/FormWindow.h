// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <deque>
#include <map>
#include <memory>
#include <optional>

#include "forms/Form.h"
#include "forms/PopupMenu.h"
#include "ports/word/window/DisabledWindows.h"
#include "ports/word/window/Site.h"
#include "ports/word/window/Window.h"
#include "view/FormView.h"

namespace huebrush::word {

/// The system's window around a form: it shows the form's view.
class FormWindow final : public std::enable_shared_from_this<FormWindow>,
                         public Window,
                         private view::NativeFrame {
 public:
    /// Made by std::make_shared, over another window, and hidden.
    FormWindow(Enter enter, forms::Form& form, HWND below);
    ~FormWindow() override;

    /// Shows the form over the window below; a modal one takes all input of the thread.
    void open(bool modal);
    /// Runs events until the form has left the screen.
    void waitForEnd();
    /// Hides the window, detached from its form: neither notices the other any more. Harmless when
    /// it has been.
    void retire();
    void toFront();
    void setTopMost(bool topMost);

    /// Whether this is the form's window.
    bool shows(const forms::Form& form) const { return &view_->form() == &form; }
    /// The window that this one belongs to.
    HWND below() const { return below_; }

    /// While what it returns lives, what the user does is queued. It keeps the window alive.
    std::shared_ptr<void> pauseActions();
    /// Brings the window up to date at once.
    void flush();

    /// Opens a menu at a place of a control, in its twips, and waits until it has closed. The item
    /// that the user has picked, or nothing.
    forms::MenuItem* pickFrom(const forms::PopupMenu& menu, forms::Control& owner, double x,
                              double y);

    /// The form's window that another one lies in, or is; null for a window of somebody else's.
    static FormWindow* around(HWND window);
    /// A key is about to go to a window of the form's, or the wheel was turned over one. Whether
    /// the form takes it: it is then handled soon, from the event loop. A control that scrolls by
    /// itself gets the wheel instead.
    bool takeKey(const MSG& key);
    bool takeWheel(HWND under, MSG& wheel);

 private:
    class Repeated;

    // What the view asks for.
    void setCaption(const std::string& caption) override;
    void setSize(const view::Size& size) override;
    void setWaitPointer(bool waits) override { waits_ = waits; }
    bool isActive() const override { return ::GetActiveWindow() == handle(); }
    std::unique_ptr<view::NativeSurface> makeSurface(const view::ControlReference& form) override;
    void askForTurn() override;
    void runAction(const std::function<void()>& action) override { action(); }
    std::shared_ptr<void> repeat(std::chrono::milliseconds interval,
                                 std::function<void()> work) override;

    LRESULT answer(const Message& message) override;
    std::shared_ptr<void> keepAlive() override { return weak_from_this().lock(); }
    void takeTurn();
    void handleKey();
    void passOnKey(const MSG& key, const std::vector<MSG>& characters) const;
    void userCloses();
    void resized(const Message& message);
    void changeResolution(const Message& message);
    void refreshLook(int resolution);
    void systemEndsWindow();
    void centre();
    bool showsWaitPointer(const Message& message) const;

    HWND below_;
    std::shared_ptr<Site> site_;
    std::shared_ptr<view::FormView> view_;
    std::optional<DisabledWindows> disabled_;
    std::deque<MSG> keys_;
    std::map<UINT_PTR, std::weak_ptr<Repeated>> repeated_;
    UINT_PTR lastTimer_ = 0;
    /// What of a turn of the wheel is less than a notch.
    int wheelRest_ = 0;
    bool waits_ = false;
    bool retired_ = false;
};

}  // namespace huebrush::word
