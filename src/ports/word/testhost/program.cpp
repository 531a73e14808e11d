// SPDX-License-Identifier: MPL-2.0

// Stands in for Word as a program: it loads the add-ins that are registered as Word does, and plays
// a script with them (see Script). What happens is printed.
//
//   word_testhost [--each-failure | --rounds=N] STEP...
//   word_testhost --window STEP...
//
// Message boxes are real ones; a user is played who presses their first button. The exit code is 1
// when an add-in cannot be loaded, or could be unloaded while it is in use.
//
// With --window there is a window with the document and the add-in's bar, for a user at the screen,
// who answers the boxes, too. After the steps given, more are read from standard input, a line
// each, while the window stays; what happened is printed with a line with a full stop behind it.
// One more step, controls, prints what the add-in's windows show (see ShownControls). It ends with
// the input, or when its window is closed.

#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <utility>

#include "base/Bitmap.h"
#include "base/Text.h"
#include "ports/word/com/Text.h"
#include "ports/word/runtime/RegistrySettings.h"
#include "ports/word/runtime/Registry_test_support.h"
#include "ports/word/runtime/WindowsClipboard.h"
#include "ports/word/testhost/AddInLoader.h"
#include "ports/word/testhost/HostRuntime.h"
#include "ports/word/testhost/HostWindow.h"
#include "ports/word/testhost/PaintedFill.h"
#include "ports/word/testhost/Script.h"
#include "ports/word/testhost/ShownControls.h"

namespace huebrush::word {
namespace {

using base::text;
using Lines = std::vector<std::string>;

std::string textOfWindow(HWND window) {
    wchar_t text[2048]{};
    ::GetWindowTextW(window, text, 2048);
    return toUtf8(text);
}

BOOL CALLBACK addButton(HWND child, LPARAM buttons) {
    wchar_t kind[32]{};
    ::GetClassNameW(child, kind, 32);
    if (std::wstring(kind) == L"Button") {
        reinterpret_cast<std::vector<int>*>(buttons)->push_back(::GetDlgCtrlID(child));
    }
    return TRUE;
}

/// The registered add-in, and the user in front of its boxes.
class LoadedAddIn final : public ScriptedAddIn {
 public:
    LoadedAddIn(memory::TestHost& host, const AddInLoader& loader, bool answersBoxes)
        : loader_(loader), runtime_(host.runtime), scope_(runtime_) {
        // Each play begins with a bar that has never been anywhere.
        clearRegistry("Software\\VB and VBA Program Settings\\Huebrush\\ToolBarPosition");
        if (!answersBoxes) return;
        current_ = this;
        timer_ = ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &look);
    }
    LoadedAddIn(const LoadedAddIn&) = delete;
    LoadedAddIn& operator=(const LoadedAddIn&) = delete;
    ~LoadedAddIn() override {
        if (timer_ != 0) ::KillTimer(nullptr, timer_);
        current_ = nullptr;
    }

    void connect(const Pointer<IDispatch>& application) override {
        constexpr LONG kAtStart = 1;
        entry_ = loader_.create();
        entry_->OnConnection(application.get(), kAtStart, nullptr, nullptr);
    }
    void disconnect() override {
        constexpr LONG kHostEnds = 0;
        // The add-in may be in the middle of something, and this be called again.
        const auto entry = std::exchange(entry_, {});
        if (entry) entry->OnDisconnection(kHostEnds, nullptr);
    }
    void disconnectInNextBox() override { leaves_ = true; }
    forms::Settings& settings() override { return settings_; }
    Lines takeBoxes() override { return std::exchange(boxes_, {}); }

 private:
    /// Looks for a box until it is there.
    static void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) {
        const HWND box = ::FindWindowW(L"#32770", nullptr);
        if (box == nullptr || current_ == nullptr || box == current_->answered_) return;
        current_->answered_ = box;
        current_->answer(box);
    }
    void answer(HWND box) {
        constexpr int kText = 0xFFFF;
        std::vector<int> buttons;
        ::EnumChildWindows(box, &addButton, reinterpret_cast<LPARAM>(&buttons));
        boxes_.push_back(
            describeBox(textOfWindow(box), textOfWindow(::GetDlgItem(box, kText)), buttons));
        if (std::exchange(leaves_, false)) {
            disconnect();
            if (loader_.canUnload()) boxes_.emplace_back("can be unloaded while its box is open");
        }
        if (buttons.empty()) return;
        ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(*std::ranges::min_element(buttons)), 0);
    }

    /// Timers know nothing of whom they are for.
    static inline LoadedAddIn* current_ = nullptr;

    const AddInLoader& loader_;
    HostRuntime runtime_;
    forms::RuntimeScope scope_;
    RegistrySettings settings_;
    Pointer<Extensibility> entry_;
    Lines boxes_;
    HWND answered_ = nullptr;
    bool leaves_ = false;
    UINT_PTR timer_ = 0;
};

void print(const Lines& lines) {
    for (const std::string& line : lines) std::printf("%s\n", line.c_str());
}

/// The blocks of memory in use in this process.
std::int64_t blocksInUse() {
    std::vector<HANDLE> heaps(::GetProcessHeaps(0, nullptr));
    heaps.resize(std::min<std::size_t>(
        heaps.size(), ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data())));
    std::int64_t blocks = 0;
    for (const HANDLE heap : heaps) {
        PROCESS_HEAP_ENTRY entry{};
        while (::HeapWalk(heap, &entry) != FALSE) {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) ++blocks;
        }
    }
    return blocks;
}

/// How many blocks of memory the system itself keeps of each picture that is read from the
/// clipboard. It should keep none; Wine does.
double blocksOfRead() {
    constexpr int kReads = 100;
    WindowsClipboard clipboard;
    const auto read = [&] {
        clipboard.SetData(base::bitmapOf(1, 1, {0, 0, 0, 0}));
        clipboard.GetData();
    };
    read();
    const std::int64_t before = blocksInUse();
    for (int i = 0; i < kReads; ++i) read();
    return static_cast<double>(blocksInUse() - before) / kReads;
}

/// Plays the same again and again, and prints what is different after it.
void playRounds(std::size_t rounds, const Steps& steps, const MakeAddIn& make) {
    const double ofRead = blocksOfRead();
    const Lines first = play(steps, make);
    // Each face is read by the add-in when it is copied, and by the host when it is pasted.
    const auto reads = std::ranges::count_if(
        first, [](const std::string& line) { return line.ends_with("Face"); });
    const std::int64_t before = blocksInUse();
    std::size_t different = 0;
    for (std::size_t round = 1; round < rounds; ++round) {
        if (play(steps, make) != first) ++different;
    }
    const double kept = ofRead * static_cast<double>(reads) * static_cast<double>(rounds - 1);
    const std::int64_t more = blocksInUse() - before - static_cast<std::int64_t>(kept);
    print(first);
    print({text(rounds, " rounds, ", different, " different, ", more, " more blocks")});
}

/// The stand-in with its window, and a user at the screen.
class WindowedHost {
 public:
    explicit WindowedHost(const AddInLoader& loader) : addIn_(host_, loader, false) {
        host_.application.pictureOf = &paintedFill;
    }

    void run(const Steps& steps) {
        for (const std::string& each : steps) step(each);
        window_.readInput([this](const std::string& line) {
            if (line == kControls) {
                printControls();
            } else {
                step(line);
            }
        });
        MSG message{};
        while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
        step("disconnect");
    }

 private:
    void step(const std::string& step) {
        try {
            script_.step(step);
        } catch (const std::exception& error) {
            print({text("error: ", error.what())});
        }
        window_.refresh();
        const Lines& lines = script_.lines();
        print({lines.begin() + static_cast<std::ptrdiff_t>(printed_), lines.end()});
        printed_ = lines.size();
        endAnswer();
    }
    /// Whatever else is shown stays as it is.
    void printControls() const {
        print({text("> ", kControls)});
        print(shownControls(window_.handle()));
        endAnswer();
    }
    static void endAnswer() {
        print({"."});
        std::fflush(stdout);
    }

    static constexpr const char* kControls = "controls";

    memory::TestHost host_;
    LoadedAddIn addIn_;
    Script script_{host_, addIn_};
    HostWindow window_{host_};
    std::size_t printed_ = 0;
};

int run(Steps steps) {
    if (steps.empty()) return 2;
    const std::string mode = steps.front().starts_with("--") ? steps.front() : "";
    if (!mode.empty()) steps.erase(steps.begin());
    const Lines names = addInsToLoad();
    print({text(names.size(), " add-ins")});
    for (const std::string& name : names) {
        print({text("add-in ", name)});
        const AddInLoader loader(name);
        const auto make = [&](memory::TestHost& host) {
            return std::make_unique<LoadedAddIn>(host, loader, true);
        };
        constexpr std::string_view kRounds = "--rounds=";
        if (mode == "--window") {
            WindowedHost(loader).run(steps);
        } else if (mode == "--each-failure") {
            print(playEachFailure(steps, make));
        } else if (mode.starts_with(kRounds)) {
            playRounds(std::stoul(mode.substr(kRounds.size())), steps, make);
        } else {
            print(play(steps, make));
        }
        print({loader.canUnload() ? "can be unloaded" : "is still in use"});
    }
    return 0;
}

Steps argumentsOfProgram() {
    int count = 0;
    LPWSTR* const given = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    Steps arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(toUtf8(given[i]));
    ::LocalFree(given);
    return arguments;
}

}  // namespace
}  // namespace huebrush::word

int main() {
    _setmode(_fileno(stdout), _O_BINARY);
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    int result = 1;
    try {
        result = huebrush::word::run(huebrush::word::argumentsOfProgram());
    } catch (const std::exception& error) {
        std::printf("error: %s\n", error.what());
    }
    ::CoUninitialize();
    return result;
}
