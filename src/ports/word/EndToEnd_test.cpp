// SPDX-License-Identifier: MPL-2.0

// The DLL as it is registered, loaded by another program that plays Word. What happens has to be
// what happens when the add-in, without the DLL and on a runtime without a screen, is connected to
// the same host: the calls of that are asserted one by one elsewhere.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "addin/ConnectW2000.h"
#include "base/Text.h"
#include "ports/word/com/Text.h"
#include "ports/word/host/Application.h"
#include "ports/word/runtime/Registry_test_support.h"
#include "ports/word/testhost/Script.h"

namespace huebrush::word {
namespace {

using base::text;
using Lines = std::vector<std::string>;

constexpr const char* kSettings = "Software\\VB and VBA Program Settings\\Huebrush";

/// The add-in alone, in this process.
class DirectAddIn final : public ScriptedAddIn {
 public:
    explicit DirectAddIn(memory::TestHost& host) : host_(host) {
        host.runtime.onBox = [this] {
            if (std::exchange(leaves_, false)) disconnect();
        };
    }

    void connect(const Pointer<IDispatch>& application) override {
        application_ = std::make_unique<Application>(
            application, [](const std::function<void()>& handler) { handler(); });
        addIn_ = std::make_unique<addin::ConnectW2000>();
        busy_ = true;
        addIn_->OnConnection(*application_);
        busy_ = false;
        if (left_) release();
    }
    void disconnect() override {
        if (addIn_) addIn_->OnDisconnection();
        left_ = true;
        if (!busy_) release();
    }
    void disconnectInNextBox() override { leaves_ = true; }
    forms::Settings& settings() override { return host_.runtime.Settings(); }
    Lines takeBoxes() override {
        Lines lines;
        for (const auto& box : std::exchange(host_.runtime.boxes, {})) {
            const bool asks = (box.style & forms::MsgBoxStyle::kButtonsMask) != 0;
            lines.push_back(describeBox(
                box.title, box.text,
                asks ? std::vector<int>{IDABORT, IDRETRY, IDIGNORE} : std::vector<int>{IDOK}));
        }
        return lines;
    }

 private:
    void release() {
        left_ = false;
        addIn_.reset();
        application_.reset();
    }

    memory::TestHost& host_;
    std::unique_ptr<Application> application_;
    std::unique_ptr<addin::ConnectW2000> addIn_;
    bool busy_ = false;
    bool left_ = false;
    bool leaves_ = false;
};

MakeAddIn directly(char separator = '.') {
    return [separator](memory::TestHost& host) {
        host.runtime.separator = separator;
        return std::make_unique<DirectAddIn>(host);
    };
}

/// The folder of this program.
std::string ownFolder() {
    wchar_t name[MAX_PATH]{};
    ::GetModuleFileNameW(nullptr, name, MAX_PATH);
    const std::string file = toUtf8(std::wstring(name));
    return file.substr(0, file.rfind('\\'));
}

/// The lines of a file.
Lines linesOf(HANDLE file) {
    std::string whole(::GetFileSize(file, nullptr), '\0');
    ::SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    DWORD size = 0;
    ::ReadFile(file, whole.data(), static_cast<DWORD>(whole.size()), &size, nullptr);
    Lines lines;
    for (std::size_t at = 0; at < size;) {
        const std::size_t end = std::min<std::size_t>(whole.find('\n', at), size);
        lines.push_back(whole.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

/// Starts a program that inherits handles. Under load Wine has been seen to refuse that for a
/// moment, before anything of the program had run, so it is asked again for some seconds.
PROCESS_INFORMATION start(const std::string& command, STARTUPINFOW& settings) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    PROCESS_INFORMATION process{};
    std::wstring line = toWide(command);
    while (::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                            &settings, &process) == FALSE) {
        const DWORD reason = ::GetLastError();
        if (std::chrono::steady_clock::now() > end) {
            ADD_FAILURE() << command << " cannot be started: error " << reason;
            break;
        }
        std::cerr << "asking again, after error " << reason << '\n';
        ::Sleep(100);
    }
    return process;
}

/// Runs a program to its end. What it printed, into a file: a pipe would stay open for as long as
/// the services that Wine starts with it.
Lines runProgram(const std::string& command) {
    SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
    const HANDLE printed =
        ::CreateFileW(toWide(ownFolder() + "\\printed.txt").c_str(), GENERIC_READ | GENERIC_WRITE,
                      FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, CREATE_ALWAYS,
                      FILE_ATTRIBUTE_NORMAL, nullptr);
    STARTUPINFOW settings{};
    settings.cb = sizeof(settings);
    settings.dwFlags = STARTF_USESTDHANDLES;
    settings.hStdOutput = printed;
    settings.hStdError = printed;
    const PROCESS_INFORMATION process = start(command, settings);
    Lines lines;
    if (process.hProcess != nullptr) {
        ::WaitForSingleObject(process.hProcess, INFINITE);
        DWORD result = 1;
        ::GetExitCodeProcess(process.hProcess, &result);
        EXPECT_EQ(result, 0U) << command;
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
        lines = linesOf(printed);
    }
    ::CloseHandle(printed);
    return lines;
}

std::string library() {
    return text("\"", ownFolder(), "\\huebrush.dll\"");
}

class EndToEndTest : public testing::Test {
 protected:
    static void SetUpTestSuite() { runProgram(text("regsvr32 /s ", library())); }
    static void TearDownTestSuite() { runProgram(text("regsvr32 /u /s ", library())); }
    void TearDown() override {
        ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L".");
        clearRegistry(kSettings);
    }

    /// What the program prints of its only add-in.
    static Lines playInProgram(const Steps& steps, const std::string& mode = {}) {
        std::string command = text("\"", ownFolder(), "\\word_testhost.exe\" ", mode);
        for (const std::string& step : steps) command += text(" \"", step, "\"");
        Lines lines = runProgram(command);
        EXPECT_GE(lines.size(), 3U);
        if (lines.size() < 3) return {};
        EXPECT_EQ(lines[0], "1 add-ins");
        EXPECT_EQ(lines[1], "add-in Huebrush.ConnectW2000");
        EXPECT_EQ(lines.back(), "can be unloaded");
        return {lines.begin() + 2, lines.end() - 1};
    }
    static void expectSame(const Steps& steps, char separator = '.') {
        SCOPED_TRACE(testing::PrintToString(steps));
        clearRegistry(kSettings);
        const Lines lines = playInProgram(steps);
        EXPECT_EQ(lines, play(steps, directly(separator)));
        EXPECT_EQ(std::ranges::count(lines, "in use: 0 objects, 0 references, 0 listeners"),
                  std::ranges::count(steps, "disconnect"));
    }
};

const Steps& session() {
    static const Steps steps{"connect",        "click=SellFill", "select=Slunce",
                             "click=SellLine", "move",           "disconnect"};
    return steps;
}

Steps sessionAfter(Steps first) {
    first.insert(first.end(), session().begin(), session().end());
    return first;
}

TEST_F(EndToEndTest, ASessionRunsAsItDoesWithoutTheFile) {
    expectSame(session());
    const Lines lines = playInProgram(session());
    EXPECT_NE(std::ranges::find(lines, "CommandBars.Add(Huebrush)"), lines.end());
    EXPECT_NE(std::ranges::find(lines, "Shapes.Range([Slunce, Měsíc])"), lines.end());
    EXPECT_NE(std::ranges::find(lines, "setting Left=12"), lines.end());
}

TEST_F(EndToEndTest, EveryVersionIsServedUnderEitherSeparator) {
    for (const auto& [stored, separator] : {std::pair(L".", '.'), std::pair(L",", ',')}) {
        ASSERT_TRUE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, stored));
        for (const char* const version : {"7.0", "8.0", "9.0", "10.0"}) {
            expectSame(sessionAfter({text("version=", version)}), separator);
        }
    }
    expectSame(sessionAfter({"name=Microsoft Excel"}));
    expectSame(sessionAfter({"version=beta"}));
    expectSame(sessionAfter({"version=16.0", "setting=Host/TestedVersion=16.0"}));
}

TEST_F(EndToEndTest, BarsAreFoundMadePlacedAndRemoved) {
    expectSame(sessionAfter({"bar"}));
    expectSame(sessionAfter({"bar", "button=SellLine"}));
    expectSame(
        sessionAfter({"setting=ToolBarPosition/Position=1", "setting=ToolBarPosition/Left=100",
                      "setting=ToolBarPosition/Top=200", "setting=ToolBarPosition/RowIndex=3"}));
    expectSame(sessionAfter({"setting=ToolBarPosition/Position=1"}));
    expectSame({"connect", "delete", "disconnect"});
    Steps twice = session();
    twice.insert(twice.end(), session().begin(), session().end());
    expectSame(twice);
}

TEST_F(EndToEndTest, WordMayDisconnectWhileABoxIsOpen) {
    expectSame({"version=10.0", "leave", "connect", "disconnect"});
    expectSame({"leave", "fail=10", "connect", "disconnect"});
}

TEST_F(EndToEndTest, WhicheverCallFailsItIsReportedAsItIsWithoutTheFile) {
    const Lines lines = playInProgram(session(), "--each-failure");
    const Lines expected = playEachFailure(session(), directly());
    ASSERT_GT(std::ranges::count(lines, "> connect"), 100);
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(std::ranges::count(lines, "in use: 0 objects, 0 references, 0 listeners"),
              std::ranges::count(lines, "> connect"));
}

TEST_F(EndToEndTest, AHundredRoundsLeaveNothingBehind) {
    playInProgram({"connect", "disconnect"});
    const Lines lines = playInProgram({"connect", "click=SellFill", "disconnect"}, "--rounds=100");
    ASSERT_FALSE(lines.empty());
    EXPECT_TRUE(lines.back().starts_with("100 rounds, 0 different, ")) << lines.back();
    const int more = std::stoi(lines.back().substr(lines.back().rfind(',') + 2));
    // Less than one for each round.
    EXPECT_LT(more, 90) << lines.back();
}

TEST(RegistrationProgramTest, RegisteringAndBackLeavesTheRegistryAsItWas) {
    const Lines before = registryBelow("Software");
    runProgram(text("regsvr32 /s ", library()));
    EXPECT_NE(registryBelow("Software"), before);
    runProgram(text("regsvr32 /u /s ", library()));
    EXPECT_EQ(registryBelow("Software"), before);
}

}  // namespace
}  // namespace huebrush::word
