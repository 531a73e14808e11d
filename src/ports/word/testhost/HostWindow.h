// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "ports/memory/TestHost.h"

namespace huebrush::word {

/// The window of the stand-in for Word: the shapes of its document, in rows, each in the colour of
/// its fill, below the buttons of the add-in's bar, which a user can click.
class HostWindow {
 public:
    explicit HostWindow(memory::TestHost& host);
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow();

    /// Null once it has been closed.
    HWND handle() const { return window_; }
    /// Shows the bar and the document as they are now.
    void refresh();
    /// Reads lines of the input from here on: each is passed to `use`, also while a box is open or
    /// events are pumped. At the end of the input the thread is to quit.
    void readInput(std::function<void(const std::string& line)> use);

 private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
    LRESULT handle(UINT message, WPARAM wide, LPARAM longer);
    static void quit();
    void paint() const;
    void click(std::size_t button);

    memory::TestHost& host_;
    std::function<void(const std::string& line)> use_;
    HWND window_ = nullptr;
    std::vector<HWND> buttons_;
};

}  // namespace huebrush::word
