// SPDX-License-Identifier: MPL-2.0

#include "files/Process_test_support.h"

#include <array>
#include <stdexcept>

#include "base/Text.h"
#include "files/win32/System.h"

namespace huebrush::files {

class OtherProcess::Native {
 public:
    explicit Native(const std::vector<std::string>& words) {
        std::array<wchar_t, 1024> program{};
        ::GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
        std::wstring line;
        for (const std::string& word : words) {
            const std::u16string wide = base::toUtf16(word);
            // None ends with a backslash or has a quote in it.
            line += (line.empty() ? L"\"" : L" \"") + std::wstring(wide.begin(), wide.end()) + L'"';
        }
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        PROCESS_INFORMATION made = {};
        if (::CreateProcessW(program.data(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                             nullptr, &start, &made) == 0) {
            throw std::runtime_error("the other process does not start");
        }
        const Handle thread(made.hThread);
        process_ = Handle(made.hProcess);
    }
    int end() const {
        ::WaitForSingleObject(process_.get(), INFINITE);
        DWORD code = 0;
        ::GetExitCodeProcess(process_.get(), &code);
        return static_cast<int>(code);
    }
    void kill() const {
        constexpr UINT kKilled = 137;
        ::TerminateProcess(process_.get(), kKilled);
    }

 private:
    Handle process_;
};

OtherProcess::OtherProcess(const std::string& task, const Task::Arguments& arguments) {
    std::vector<std::string> words{"test", "--task", task};
    words.insert(words.end(), arguments.begin(), arguments.end());
    native_ = std::make_unique<Native>(words);
}

OtherProcess::~OtherProcess() {
    kill();
}

int OtherProcess::wait() {
    return native_->end();
}

void OtherProcess::kill() {
    native_->kill();
    native_->end();
}

}  // namespace huebrush::files
