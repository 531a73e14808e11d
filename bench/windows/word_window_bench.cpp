// SPDX-License-Identifier: MPL-2.0

// Measures the recolour dialog in its window on Windows, over the stand-in for Word, in one
// process. Prints, as JSON, the milliseconds of each step until no event is left, the last paint
// included.
//
//   word_window_bench ROWS

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "forms/ForwardingRuntime.h"
#include "ports/memory/TestHost.h"
#include "ports/word/host/Application.h"
#include "ports/word/runtime/WindowsRuntime.h"
#include "ports/word/testhost/StandIn.h"
#include "recolor/frmEditGraphic.h"

namespace {

using namespace huebrush;
using nlohmann::json;

constexpr int kScrollSteps = 60;
constexpr auto kRow = static_cast<std::int32_t>(recolor::ColorElement::kHeight);

/// Boxes are answered at once by their first button.
class Runtime final : public forms::ForwardingRuntime {
 public:
    using ForwardingRuntime::ForwardingRuntime;

    forms::MsgBoxResult MsgBox(const std::string&, std::int32_t, const std::string&) override {
        return forms::MsgBoxResult::ok;
    }
};

class WindowBench {
 public:
    explicit WindowBench(std::int32_t rows) {
        for (std::int32_t i = 0; i < rows; ++i) {
            test_.document->addSolid("Shape" + std::to_string(i), i);
        }
        test_.document->selectAll();
        standIn_.objects().keepsLog = false;
    }

    json measure() {
        json figures;
        std::shared_ptr<recolor::frmEditGraphic> dialog = recolor::frmEditGraphic::create();
        figures["open_ms"] = timed([&] { dialog->ShowDialog(application_); });
        figures["scan_ms"] = timed([&] { dialog->cmdAdd.press(); });
        figures["rows"] = dialog->Element.ubound();
        figures["reopen_ms"] = timed([&] {
            windows_.closeForm(*dialog);
            windows_.showForm(*dialog, false);
        });
        std::vector<double> steps;
        for (int i = 0; i < kScrollSteps; ++i) {
            steps.push_back(timed([&] { dialog->vs.scrollTo(dialog->vs.value() + kRow); }));
        }
        const auto middle = steps.begin() + kScrollSteps / 2;
        std::nth_element(steps.begin(), middle, steps.end());
        figures["scroll_ms"] = *middle;
        figures["close_ms"] = timed([&] {
            dialog->Unload();
            dialog.reset();
        });
        return figures;
    }

 private:
    template <class Work>
    double timed(const Work& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        windows_.DoEvents();
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
            .count();
    }

    memory::TestHost test_;
    word::WindowsRuntime windows_;
    Runtime runtime_{windows_};
    forms::RuntimeScope scope_{runtime_};
    word::StandIn standIn_{test_.application};
    word::Application application_{standIn_.application(),
                                   [](const std::function<void()>& handler) { handler(); }};
};

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "word_window_bench ROWS\n";
        return 2;
    }
    std::cout << WindowBench(std::stoi(arguments[1])).measure().dump() << '\n';
    return 0;
}
