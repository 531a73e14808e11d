// SPDX-License-Identifier: MPL-2.0

// Measures the add-in's work in Word: the adapter over the stand-in for Word, in one process. Of
// each operation it prints, as JSON, the median time and the calls of Word a shape, and the least
// number of calls that the operation can do with. That is counted on the memory host, where each
// property is one call. In Word the fill and the line of a shape are objects of their own, which
// are asked for once, and so are their colours, which are asked for each time: nothing says how
// long such an object holds when the fill changes.
//
//   word_bench SHAPES RUNS
//
// Events run as they do on Windows; what a window would draw is not in the times, nor is Word.

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "forms/ForwardingRuntime.h"
#include "ports/memory/Driver.h"
#include "ports/memory/TestHost.h"
#include "ports/word/host/Application.h"
#include "ports/word/runtime/WindowsRuntime.h"
#include "ports/word/testhost/StandIn.h"
#include "recolor/frmEditGraphic.h"
#include "select/mToolbarFunction.h"

namespace {

using namespace huebrush;
using nlohmann::json;

constexpr std::int32_t kFills = 8;

/// Boxes are answered at once, and events run as on Windows.
class Runtime final : public forms::ForwardingRuntime {
 public:
    using ForwardingRuntime::ForwardingRuntime;

    void DoEvents() override { windows_.DoEvents(); }

 private:
    word::WindowsRuntime windows_;
};

/// What the user does with a document, after what has to be done before.
struct Operation {
    const char* name;
    std::function<void(host::Application&, recolor::frmEditGraphic&)> prepare;
    std::function<void(host::Application&, recolor::frmEditGraphic&)> run;
};

void scan(host::Application&, recolor::frmEditGraphic& dialog) {
    memory::Driver(dialog).click(dialog.cmdAdd);
}

/// Scans, and gives new fills to a quarter of the rows, ticked.
void editAQuarter(host::Application& application, recolor::frmEditGraphic& dialog) {
    scan(application, dialog);
    const memory::Driver user(dialog);
    for (std::int16_t row = 1; row <= dialog.Element.ubound() / 4; ++row) {
        dialog.Element[row].FillObject().setDesTransparency(0.25F);
        user.click(dialog.Element[row].chkSelect);
    }
}

const std::vector<Operation>& operations() {
    const auto nothing = [](host::Application&, recolor::frmEditGraphic&) {};
    static const std::vector<Operation> all{
        {"scan", nothing, scan},
        {"apply", editAQuarter,
         [](host::Application&, recolor::frmEditGraphic& dialog) {
             memory::Driver(dialog).click(dialog.cmdDiscolour);
         }},
        {"select_fill", nothing,
         [](host::Application& application, recolor::frmEditGraphic&) {
             select::VseDleTypuVyplne(application);
         }},
        {"select_line", nothing,
         [](host::Application& application, recolor::frmEditGraphic&) {
             select::VseDleBarvyCary(application);
         }},
    };
    return all;
}

/// A document of solid fills, all of it selected for the dialog, and one shape for the commands.
struct Bench {
    Bench(std::int32_t shapes, const Operation& operation) {
        for (std::int32_t i = 0; i < shapes; ++i) {
            test.document->addSolid("Shape" + std::to_string(i), i % kFills);
        }
        test.document->selectAll();
        if (std::string_view(operation.name).starts_with("select")) {
            test.document->select({test.document->shapes[0]});
        }
    }

    memory::TestHost test;
};

/// The calls of an operation on the host of the memory port, without those of the runtime.
std::vector<std::string> leastCalls(std::int32_t shapes, const Operation& operation) {
    Bench bench(shapes, operation);
    bench.test.runtime.log = nullptr;
    const auto dialog = recolor::frmEditGraphic::create();
    dialog->connect(bench.test.application);
    operation.prepare(bench.test.application, *dialog);
    bench.test.startLog();
    operation.run(bench.test.application, *dialog);
    std::vector<std::string> calls = bench.test.calls();
    dialog->Unload();
    return calls;
}

/// The number of calls with those for the objects between: a fill and a line once, a colour each
/// time.
std::size_t withObjects(const std::vector<std::string>& calls) {
    std::set<std::string> objects;
    std::size_t colors = 0;
    for (const std::string& call : calls) {
        const std::string member = call.substr(call.find(' ') + 1);
        for (const std::string_view kind : {".Fill.", ".Line."}) {
            const auto at = member.find(kind);
            if (at != std::string::npos) objects.insert(member.substr(0, at + kind.size()));
        }
        if (member.find("Color.RGB") != std::string::npos) ++colors;
    }
    return calls.size() + objects.size() + colors;
}

json measure(std::int32_t shapes, int runs, const Operation& operation) {
    std::vector<double> times;
    std::size_t calls = 0;
    for (int i = 0; i < runs; ++i) {
        Bench bench(shapes, operation);
        Runtime runtime(bench.test.runtime);
        const forms::RuntimeScope scope(runtime);
        word::StandIn standIn(bench.test.application);
        standIn.objects().keepsLog = false;
        word::Application application(standIn.application(),
                                      [](const std::function<void()>& handler) { handler(); });
        const auto dialog = recolor::frmEditGraphic::create();
        dialog->connect(application);
        operation.prepare(application, *dialog);
        const std::size_t before = standIn.objects().calls;
        const auto start = std::chrono::steady_clock::now();
        operation.run(application, *dialog);
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                .count());
        calls = standIn.objects().calls - before;
        dialog->Unload();
    }
    std::nth_element(times.begin(), times.begin() + runs / 2, times.end());
    const auto perShape = [&](std::size_t count) { return static_cast<double>(count) / shapes; };
    return {{"ms", times[static_cast<std::size_t>(runs) / 2]},
            {"calls", perShape(calls)},
            {"least", perShape(withObjects(leastCalls(shapes, operation)))}};
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "word_bench SHAPES RUNS\n";
        return 2;
    }
    json figures;
    for (const Operation& operation : operations()) {
        figures[operation.name] =
            measure(std::stoi(arguments[1]), std::stoi(arguments[2]), operation);
    }
    std::cout << figures.dump() << '\n';
    return 0;
}
