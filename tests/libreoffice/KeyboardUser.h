// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <regex>
#include <string>
#include <thread>
#include <utility>

#include "OfficeContext.h"
#include "base/Color.h"
#include "base/Text.h"

namespace huebrush::tests {

/// The title of the window that has the keyboard.
inline std::string activeTitle() {
    std::string title;
    FILE* const pipe = popen("xdotool getactivewindow getwindowname 2>/dev/null", "r");
    for (int c = std::fgetc(pipe); c != EOF && c != '\n'; c = std::fgetc(pipe)) {
        title += static_cast<char>(c);
    }
    pclose(pipe);
    return title;
}

/// Whether a window of this title gets the keyboard; the screen takes its time. `meanwhile` is done
/// over and over until then.
inline bool becomesActive(const std::string& title, const std::function<void()>& meanwhile) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (activeTitle() != title) {
        if (std::chrono::steady_clock::now() > end) return false;
        meanwhile();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}
/// The same for the main thread, which the office needs in order to show and to close windows.
inline bool becomesActive(const std::string& title) {
    return becomesActive(title, &processEvents);
}

/// Runs a command line and returns whether it succeeded.
inline bool succeeds(const std::string& command) {
    return std::system(command.c_str()) == 0;
}

/// A user at the keyboard: waits for a window whose title matches, carries out a command line and
/// then another that ends the window, as often as it takes. Acts while the test's own thread is
/// inside a dialog, and goes with it.
class User {
 public:
    User(const std::string& title, std::string actions, std::string end)
        : title_(title, std::regex::extended), actions_(std::move(actions)), end_(std::move(end)) {}
    User(const User&) = delete;
    User& operator=(const User&) = delete;
    ~User() {
        done_ = true;
        thread_.join();
    }

    /// Whether the window has come.
    bool acted() const { return acted_; }

 private:
    void act() {
        for (; !done_; std::this_thread::sleep_for(std::chrono::milliseconds(50))) {
            if (!std::regex_match(activeTitle(), title_)) continue;
            if (!acted_.exchange(true)) run(actions_);
            run(end_);
        }
    }
    static void run(const std::string& command) { EXPECT_TRUE(succeeds(command)) << command; }

    std::regex title_;
    std::string actions_;
    std::string end_;
    std::atomic<bool> done_ = false;
    std::atomic<bool> acted_ = false;
    std::thread thread_{[this] { act(); }};
};

inline constexpr const char* kNoAction = "true";
inline constexpr const char* kReturnKey = "xdotool key Return";
inline constexpr const char* kEscapeKey = "xdotool key Escape";
inline constexpr const char* kCloseButton = "wmctrl -c :ACTIVE:";

/// The digits of a colour as web pages have them, red first.
inline std::string hexadecimal(base::Rgb color) {
    std::array<char, 8> digits{};
    std::snprintf(digits.data(), digits.size(), "%06x",
                  static_cast<unsigned>(base::swapRedAndBlue(color)));
    return digits.data();
}

inline constexpr const char* kColorDialog = "Pick a Color";
inline constexpr const char* kAreaDialog = "Area";

// What a user does in one of the office's dialogs for a fill, and how it is ended.
inline constexpr const char* kNothing = "";
inline constexpr const char* kGradient = " --gradient";
inline std::string chosen(base::Rgb color) {
    return " --choose " + hexadecimal(color);
}
inline constexpr const char* kOk = " confirm";
inline constexpr const char* kCancel = " cancel";
inline constexpr const char* kEscape = " escape";
inline constexpr const char* kClose = " close";

/// A user of one of the office's dialogs for a fill, by mouse and keys, as a program of its own:
/// waits until the dialog shows the colour that it opens with, acts, and ends it. Fails the test if
/// that does not happen. The end of this object signals that the dialog is over, although its
/// window may stay until events run again.
class ToolUser {
 public:
    ToolUser(const std::string& title, base::Rgb start, const std::string& action,
             const std::string& end)
        : program_(popen((commandOf(title, start) + action + end).c_str(), "w")) {}
    ToolUser(const ToolUser&) = delete;
    ToolUser& operator=(const ToolUser&) = delete;
    ~ToolUser() { EXPECT_EQ(pclose(program_), 0) << "the user of the dialog has failed"; }

 private:
    static std::string commandOf(const std::string& title, base::Rgb start) {
        const char* const plugin = std::getenv("SAL_USE_VCLPLUGIN");
        return base::text("/usr/bin/python3 '", HUEBRUSH_HOST_TOOL_USER, "' --plugin ",
                          plugin == nullptr ? "none" : plugin, " --title '", title, "' --start ",
                          hexadecimal(start));
    }

    FILE* program_;
};

}  // namespace huebrush::tests
