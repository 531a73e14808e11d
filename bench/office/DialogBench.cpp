// SPDX-License-Identifier: MPL-2.0

// The recolour dialog in a window of the office: how long what the user does there takes, until the
// office has nothing left to do.

#include <malloc.h>

#include <algorithm>
#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <com/sun/star/drawing/XDrawPageSupplier.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>
#include <string>
#include <vector>

#include "Job.h"
#include "forms/ForwardingRuntime.h"
#include "ports/libreoffice/entry/Application.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "recolor/frmEditGraphic.h"

namespace {

namespace css = com::sun::star;
using namespace huebrush;
using namespace huebrush::libreoffice;
using bench::milliseconds;
using nlohmann::json;

constexpr int kScrollSteps = 60;
constexpr int kTicks = 20;
constexpr int kTurns = 9;
constexpr int kSelections = 100;

/// The office's runtime, but boxes are answered at once by their first button.
class AnsweringRuntime final : public forms::ForwardingRuntime {
 public:
    using ForwardingRuntime::ForwardingRuntime;

    forms::MsgBoxResult MsgBox(const std::string&, std::int32_t, const std::string&) override {
        return forms::MsgBoxResult::ok;
    }
};

double median(std::vector<double> figures) {
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

double kibibytesInUse() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1024;
}

class DialogBench {
 public:
    DialogBench(const ContextReference& context,
                const css::uno::Reference<css::frame::XModel>& model)
        : model_(model),
          toolkit_(
              createService<css::awt::XToolkitExperimental>(context, "com.sun.star.awt.Toolkit")),
          application_(context, std::string()),
          platform_(context, std::string(), application_.activeWindow(), application_.snapshot()),
          runtime_(platform_),
          scope_(runtime_) {
        application_.activeWindow().activate(model_->getCurrentController()->getFrame());
        application_.setOwner([this] {
            FormWindows& windows = platform_.windows();
            return Documents::OwnerWindow{windows.owner(), windows.hold()};
        });
        platform_.setEventsMayRun(true);
    }

    json measure() {
        const double closed = selectionChange();
        selectAll();
        const double before = kibibytesInUse();
        figures_["open_ms"] = timed([&] {
            dialog_ = recolor::frmEditGraphic::create();
            dialog_->ShowDialog(application_);
        });
        figures_["scan_ms"] = timed([&] { dialog_->cmdAdd.press(); });
        const auto rows = dialog_->Element.ubound();
        figures_["rows"] = rows;
        figures_["row_kib"] = (kibibytesInUse() - before) / rows;
        figures_["reopen_ms"] = timed([&] {
            platform_.closeForm(*dialog_);
            platform_.showForm(*dialog_, false);
        });
        measureList();
        figures_["selection_ms"] = selectionChange() - closed;
        // Removal at the end: there are fewer rows after it.
        tickEverySecond();
        figures_["remove_half_ms"] = timed([&] { dialog_->mnuRemoveSelect.Click(); });
        figures_["rows_left"] = dialog_->Element.ubound();
        timed([&] { dialog_->Unload(); });
        return figures_;
    }

 private:
    void settle() {
        platform_.windows().flush();
        toolkit_->processEventsToIdle();
    }

    /// The time of something that the user does, until the office is idle again.
    template <class Work>
    double timed(const Work& work) {
        return milliseconds([&] {
            {
                const HandlerScope handler(application_.snapshot());
                work();
            }
            settle();
        });
    }

    void selectAll() {
        const HandlerScope handler(application_.snapshot());
        const auto shapes = application_.ActiveDocument()->Shapes();
        std::vector<std::string> names;
        const auto walk = shapes->enumerate();
        while (const host::ShapePointer shape = walk->next()) names.push_back(shape->Name());
        shapes->Range(names)->Select();
    }

    void measureList() {
        std::vector<double> steps;
        steps.reserve(kScrollSteps);
        for (int i = 0; i < kScrollSteps; ++i) {
            steps.push_back(timed([&] { dialog_->vs.scrollTo(dialog_->vs.value() + kRow); }));
        }
        figures_["scroll_ms"] = median(std::move(steps));
        std::vector<double> ticks;
        ticks.reserve(kTicks);
        for (int i = 0; i < kTicks; ++i) {
            ticks.push_back(timed([&] { dialog_->Element[1].chkSelect.toggle(); }));
        }
        figures_["tick_ms"] = median(std::move(ticks));
        // The ticks have left the box grey, which a click takes to clear.
        timed([&] { dialog_->chkSelAll.toggle(); });
        std::vector<double> selections;
        std::vector<double> drags;
        selections.reserve(kTurns);
        drags.reserve(kTurns);
        for (int i = 0; i < kTurns; ++i) {
            selections.push_back(timed([&] { dialog_->chkSelAll.toggle(); }));
            timed([&] { dialog_->chkSelAll.toggle(); });
            drags.push_back(timed([&] { dragFirstToLast(); }));
        }
        figures_["select_all_ms"] = median(std::move(selections));
        figures_["drag_ms"] = median(std::move(drags));
    }

    void dragFirstToLast() {
        recolor::ColorElement& first = dialog_->Element[1];
        recolor::ColorElement& last = dialog_->Element[dialog_->Element.ubound()];
        first.SetFocus();
        first.grab();
        dialog_->handle([&] {
            dialog_->dragOver(last, 0, 0, forms::DragState::enter);
            dialog_->dragOver(last, 0, 0, forms::DragState::over);
            dialog_->dropAt(&last, 0, 0);
        });
    }

    void tickEverySecond() {
        timed([&] {
            for (std::int16_t i = 2; i <= dialog_->Element.ubound(); i = next(i)) {
                dialog_->Element[i].setSelectValue(forms::CheckValue::kTicked);
            }
        });
    }
    static std::int16_t next(std::int16_t i) { return static_cast<std::int16_t>(i + 2); }

    /// A change of the selection in the document, until the office is idle again.
    double selectionChange() {
        const css::uno::Reference<css::view::XSelectionSupplier> selection(
            model_->getCurrentController(), css::uno::UNO_QUERY_THROW);
        const css::uno::Reference<css::container::XIndexAccess> page(
            css::uno::Reference<css::drawing::XDrawPageSupplier>(model_, css::uno::UNO_QUERY_THROW)
                ->getDrawPage(),
            css::uno::UNO_QUERY_THROW);
        std::vector<double> changes;
        for (int i = 0; i < kSelections; ++i) {
            const css::uno::Any shape = page->getByIndex(i % 2);
            changes.push_back(milliseconds([&] {
                selection->select(shape);
                toolkit_->processEventsToIdle();
            }));
        }
        return median(std::move(changes));
    }

    static constexpr auto kRow = static_cast<std::int32_t>(recolor::ColorElement::kHeight);

    css::uno::Reference<css::frame::XModel> model_;
    css::uno::Reference<css::awt::XToolkitExperimental> toolkit_;
    libreoffice::Application application_;
    OfficeRuntime platform_;
    AnsweringRuntime runtime_;
    forms::RuntimeScope scope_;
    std::shared_ptr<recolor::frmEditGraphic> dialog_;
    json figures_;
};

}  // namespace

extern "C" SAL_DLLPUBLIC_EXPORT css::uno::XInterface* huebrush_dialog_bench(
    css::uno::XComponentContext* context, const css::uno::Sequence<css::uno::Any>&) {
    return bench::Job<DialogBench>::make(context);
}
