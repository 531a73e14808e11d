// SPDX-License-Identifier: MPL-2.0

// The operations of the bench, done by Huebrush inside the office's process: the same service
// interface and the same figures as the peers in peer_pyuno.py and peer_basic.bas.

#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/drawing/ShapeCollection.hpp>
#include <com/sun/star/drawing/XShapes.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/view/XSelectionSupplier.hpp>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "Job.h"
#include "base/Error.h"
#include "batch/BatchRuntime.h"
#include "batch/Session.h"
#include "error/mError.h"
#include "ports/libreoffice/document/DrawPage.h"
#include "ports/libreoffice/document/WindowSelection.h"
#include "ports/libreoffice/entry/Application.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "select/mToolbarFunction.h"

namespace {

namespace css = com::sun::star;
using namespace huebrush;
using namespace huebrush::libreoffice;
using bench::milliseconds;
using nlohmann::json;

constexpr std::int32_t kNewColor = 0x336699;
constexpr std::int32_t kHostColor = 0x993366;
/// Of every four fills, one is changed.
constexpr std::int32_t kEvery = 4;

/// In a document without a window the recolour is measured as the program's service does it; in the
/// window, which becomes the active one, the selection commands, and the recolour as the dialog
/// does it.
class Bench {
 public:
    Bench(const ContextReference& context, const css::uno::Reference<css::frame::XModel>& model)
        : context_(context),
          model_(model),
          application_(context, std::string()),
          platform_(context, std::string(), application_.activeWindow(), application_.snapshot()),
          runtime_(platform_),
          scope_(runtime_) {}

    json measure() {
        json figures;
        if (isHidden(model_)) {
            measureService(figures);
        } else {
            application_.activeWindow().activate(model_->getCurrentController()->getFrame());
            measureInWindow(figures);
        }
        for (const batch::Message& message : runtime_.messages()) {
            if (message.kind != batch::Message::Kind::information) figures["error"] = message.text;
        }
        return figures;
    }

 private:
    void measureInWindow(json& figures) {
        measureSelection(figures, "select_fill_ms", "selected_fill", select::VseDleTypuVyplne);
        measureHostSelect(figures, "host_select_ms");
        measureSelection(figures, "select_line_ms", "selected_line", select::VseDleBarvyCary);
        measureHostSelect(figures, "host_select_line_ms");
        // As the peers do: what is selected costs every change of a selected shape.
        selectSample();
        measureRecolour(figures, "_dialog_ms");
    }

    /// The program's service scans and applies in one go; between the two clicks in the dialog
    /// events run, after which nothing counts as read any more.
    void measureService(json& figures) {
        {
            const HandlerScope handler(application_.snapshot());
            measureRecolour(figures, "_ms");
        }
        measureHostWrites(figures);
    }

    /// A colour for every fourth shape by the office's own call alone: what no recolour can go
    /// below, and how it grows. Where the shapes stand is found before.
    void measureHostWrites(json& figures) const {
        const DrawPage page(model_);
        std::vector<Siblings> found(1);
        const std::int32_t count = page.count();
        for (std::int32_t at = 0; at < count; ++at) addPlaces(page.at(at), {at}, found);
        const css::uno::Any color(static_cast<sal_Int32>(kHostColor));
        std::int32_t number = 0;
        figures["host_apply_ms"] = milliseconds([&] {
            for (const Siblings& siblings : found) {
                css::uno::Reference<css::container::XIndexAccess> group;
                for (const std::int32_t at : siblings.leaves) {
                    if (number++ % kEvery != 0) continue;
                    if (!group.is()) group = groupAt(page, siblings.group);
                    write(siblings.group.empty() ? page.at(at) : memberAt(group, at), color);
                }
            }
        });
    }

    /// Leaf shapes that are in one group, or on the page when there is none.
    struct Siblings {
        std::vector<std::int32_t> group;
        std::vector<std::int32_t> leaves;
    };

    static ShapeReference memberAt(const css::uno::Reference<css::container::XIndexAccess>& group,
                                   std::int32_t at) {
        return {group->getByIndex(at), css::uno::UNO_QUERY_THROW};
    }

    static css::uno::Reference<css::container::XIndexAccess> groupAt(
        const DrawPage& page, const std::vector<std::int32_t>& place) {
        if (place.empty()) return {};
        ShapeReference shape = page.at(place.front());
        for (std::size_t depth = 1; depth < place.size(); ++depth) {
            shape = memberAt({shape, css::uno::UNO_QUERY_THROW}, place[depth]);
        }
        return {shape, css::uno::UNO_QUERY_THROW};
    }

    static void write(const ShapeReference& shape, const css::uno::Any& color) {
        css::uno::Reference<css::beans::XPropertySet>(shape, css::uno::UNO_QUERY_THROW)
            ->setPropertyValue("FillColor", color);
    }

    static void addPlaces(const ShapeReference& shape, const std::vector<std::int32_t>& place,
                          std::vector<Siblings>& found) {
        const ShapeKind kind = kindOf(shape);
        if (!kind.isShape) return;
        if (!kind.isGroup()) {
            const std::vector<std::int32_t> group(place.begin(), place.end() - 1);
            if (found.back().group != group) found.push_back({group, {}});
            found.back().leaves.push_back(place.back());
            return;
        }
        const css::uno::Reference<css::container::XIndexAccess> members(shape,
                                                                        css::uno::UNO_QUERY_THROW);
        std::vector<std::int32_t> inner = place;
        inner.push_back(0);
        for (const std::int32_t count = members->getCount(); inner.back() < count; ++inner.back()) {
            addPlaces(memberAt(members, inner.back()), inner, found);
        }
    }

    /// The foremost shape, which is the first of the peers' walk and the last of ours.
    void selectSample() {
        const HandlerScope handler(application_.snapshot());
        const auto walk = application_.ActiveDocument()->Shapes()->enumerate();
        host::ShapePointer sample;
        while (host::ShapePointer shape = walk->next()) sample = std::move(shape);
        sample->Select();
        // The user has seen it selected before he runs a command.
        createService<css::awt::XToolkitExperimental>(context_, "com.sun.star.awt.Toolkit")
            ->processEventsToIdle();
    }

    css::uno::Reference<css::view::XSelectionSupplier> selection() const {
        return {model_->getCurrentController(), css::uno::UNO_QUERY_THROW};
    }

    void measureSelection(json& figures, const char* time, const char* count,
                          void (*command)(host::Application&)) {
        selectSample();
        figures[time] = milliseconds([&] {
            // Events run, as they do for the button's click.
            const forms::RuntimeScope scope(platform_);
            const HandlerScope handler(application_.snapshot());
            command(application_);
        });
        const css::uno::Reference<css::drawing::XShapes> selected(selection()->getSelection(),
                                                                  css::uno::UNO_QUERY_THROW);
        figures[count] = selected->getCount();
    }

    /// The same selection made by the office's own call alone.
    void measureHostSelect(json& figures, const char* time) {
        const css::uno::Any selected = selection()->getSelection();
        selectSample();
        figures[time] = milliseconds([&] { selection()->select(selected); });
    }

    void measureRecolour(json& figures, const std::string& suffix) {
        batch::Session session(application_, application_.Documents().documentOf(model_));
        std::vector<batch::FillRow> rows;
        figures["scan" + suffix] = milliseconds([&] {
            const HandlerScope handler(application_.snapshot());
            rows = session.scan();
        });
        batch::RecolorRequest request;
        std::size_t shapes = 0;
        for (const batch::FillRow& row : rows) {
            shapes += row.shapes;
            if ((row.row - 1) % kEvery == 0) {
                request.rows.push_back({row.row, batch::solid(kNewColor, 0), std::nullopt});
            }
        }
        batch::RecolorResult result;
        figures["apply" + suffix] = milliseconds([&] {
            const HandlerScope handler(application_.snapshot());
            result = session.recolor(request);
        });
        figures["fills"] = rows.size();
        figures["shapes"] = shapes;
        figures["applied"] = result.changed;
    }

    ContextReference context_;
    css::uno::Reference<css::frame::XModel> model_;
    libreoffice::Application application_;
    OfficeRuntime platform_;
    batch::BatchRuntime runtime_;
    forms::RuntimeScope scope_;
};

}  // namespace

extern "C" SAL_DLLPUBLIC_EXPORT css::uno::XInterface* huebrush_bench(
    css::uno::XComponentContext* context, const css::uno::Sequence<css::uno::Any>&) {
    return bench::Job<Bench>::make(context);
}
