#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <regex>
#include <string>
#include <thread>
#include <utility>

#include "base/Color.h"

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

/// Whether a window of this title gets the keyboard; the screen takes its time.
inline bool becomesActive(const std::string& title) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (activeTitle() != title) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

/// A user at the keyboard: waits for a window whose title matches, does something in it and then
/// ends it, as often as it takes. Acts while the test's own thread is inside a tool, and goes with
/// it.
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
    static void run(const std::string& command) {
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
    }

    std::regex title_;
    std::string actions_;
    std::string end_;
    std::atomic<bool> done_ = false;
    std::atomic<bool> acted_ = false;
    std::thread thread_{[this] { act(); }};
};

// How a user ends a dialog. More than one of its parts may have the letter of a button.
inline constexpr const char* kOk = "xdotool key alt+o";
/// From the field of the colour's green part, where Return is OK.
inline constexpr const char* kOkOfColors = "xdotool key alt+g Return";
inline constexpr const char* kCancel = "xdotool key alt+c";
inline constexpr const char* kEscape = "xdotool key Escape";
inline constexpr const char* kClose = "wmctrl -c :ACTIVE:";

inline constexpr const char* kColorDialog = "Pick a Color";
inline constexpr const char* kAreaDialog = "Area";
// What a user does in the dialog of areas. The kinds of fill are buttons in a row; the keyboard
// starts at the first of them, or before it.
inline constexpr const char* kNothing = "true";
inline std::string chooseGradient() {
    const char* const plugin = std::getenv("SAL_USE_VCLPLUGIN");
    const bool isGtk = plugin != nullptr && std::string(plugin) == "gtk3";
    return isGtk ? "xdotool key Tab Tab Tab space" : "xdotool key alt+l Tab space";
}
inline constexpr const char* kTypeGreen = "xdotool key alt+g ctrl+a type 200; xdotool key Tab";
/// Types the parts of a colour over those of the old one.
inline constexpr const char* kTypeColor =
    "xdotool key ctrl+a type 18; xdotool key Tab ctrl+a type 52; xdotool key Tab ctrl+a type 86; "
    "xdotool key Tab";
inline constexpr base::Rgb kTyped = base::rgb(18, 52, 86);

}  // namespace huebrush::tests
