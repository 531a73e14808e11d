// SPDX-License-Identifier: MPL-2.0

// Makes the palettes that come with the add-in, in the folder Data beside this program: the very
// file that the add-in itself makes where there is none.

#include <exception>
#include <iostream>

#include "forms/ForwardingRuntime.h"
#include "palette/OwnDataFile.h"
#include "ports/word/runtime/WindowsRuntime.h"

namespace {

using namespace huebrush;

/// Settings that remember nothing, so that the file is made each time that it is missing.
class NoSettings final : public forms::Settings {
 public:
    std::optional<std::string> GetSetting(const std::string&, const std::string&,
                                          const std::string&) override {
        return std::nullopt;
    }
    void SaveSetting(const std::string&, const std::string&, const std::string&,
                     const std::string&) override {}
};

class Runtime final : public forms::ForwardingRuntime {
 public:
    using ForwardingRuntime::ForwardingRuntime;

    forms::Settings& Settings() override { return settings_; }

 private:
    NoSettings settings_;
};

}  // namespace

int main() {
    try {
        word::WindowsRuntime windows;
        Runtime runtime(windows);
        const forms::RuntimeScope scope(runtime);
        palette::makeOwnDataFile();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
