// SPDX-License-Identifier: MPL-2.0

// A service for tests in windows: recolours the document that it is given, on the main thread, with
// a different fill for each row. So a test can undo it without clicking through it first. Like the
// add-in, it keeps the document for as long as it lives: what it has done can be undone that long.

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/task/XJob.hpp>
#include <memory>
#include <rtl/ref.hxx>
#include <utility>

#include "base/Error.h"
#include "batch/BatchRuntime.h"
#include "batch/Session.h"
#include "error/mError.h"
#include "ports/libreoffice/entry/Application.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace {

namespace css = com::sun::star;
using namespace huebrush;
using namespace huebrush::libreoffice;
using Model = css::uno::Reference<css::frame::XModel>;

/// Fills of several kinds in turn, those among them that Writer cannot hold by itself.
batch::FillEdit editOf(std::int32_t row) {
    return [row](fill::FillProperties fill) {
        fill.Visible = host::MsoTriState::msoTrue;
        fill.ForeColorRGB = 0x204080 + row;
        fill.BackColorRGB = 0x80C0E0;
        switch (row % 4) {
            case 0:
                fill.Type = host::MsoFillType::msoFillPatterned;
                fill.Pattern = 14;
                break;
            case 1:
                fill.Type = host::MsoFillType::msoFillGradient;
                fill.GradientColorType = host::MsoGradientColorType::msoGradientTwoColors;
                fill.GradientStyle = 3;
                fill.GradientVariant = 2;
                break;
            case 2:
                fill.Visible = host::MsoTriState::msoFalse;
                break;
            default:
                fill.Type = host::MsoFillType::msoFillSolid;
                break;
        }
        return fill;
    };
}

void recolour(const ContextReference& context, Application& application, const Model& model) {
    OfficeRuntime platform(context, std::string(), application.activeWindow(),
                           application.snapshot());
    batch::BatchRuntime runtime(platform);
    const forms::RuntimeScope scope(runtime);
    const HandlerScope handler(application.snapshot());
    batch::Session session(application, application.Documents().documentOf(model));
    batch::RecolorRequest request;
    for (const batch::FillRow& row : session.scan()) {
        request.rows.push_back({row.row, editOf(row.row), std::nullopt});
    }
    session.recolor(request);
}

class RecolourJob final : public WeakImplHelper<css::task::XJob> {
 public:
    explicit RecolourJob(const ContextReference& context) : context_(context) {}

    css::uno::Any SAL_CALL
    execute(const css::uno::Sequence<css::beans::NamedValue>& arguments) override {
        Model model;
        arguments[0].Value >>= model;
        postToMainThread(context_, [self = rtl::Reference<RecolourJob>(this), model] {
            self->recolourNow(model);
        });
        return {};
    }

 private:
    void recolourNow(const Model& model) {
        if (!application_) {
            application_ = std::make_unique<libreoffice::Application>(context_, std::string());
        }
        recolour(context_, *application_, model);
    }

    ContextReference context_;
    std::unique_ptr<libreoffice::Application> application_;
};

}  // namespace

extern "C" SAL_DLLPUBLIC_EXPORT css::uno::XInterface* huebrush_recolour_job(
    css::uno::XComponentContext* context, const css::uno::Sequence<css::uno::Any>&) {
    const rtl::Reference<RecolourJob> job(new RecolourJob(context));
    job->acquire();
    return static_cast<cppu::OWeakObject*>(job.get());
}
