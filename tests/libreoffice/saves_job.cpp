// SPDX-License-Identifier: MPL-2.0

// A job for tests: saves and erases palettes by means of their dialog, over and over, in the office
// that loads it, until that office is killed. The environment names the file (HUEBRUSH_SAVES_FILE),
// a file for notes (HUEBRUSH_SAVES_NOTES), and the number of the first palette
// (HUEBRUSH_SAVES_FIRST).
//
// The notes have a line before and after each change, "begin save Paleta 7" and "done save Paleta
// 7". Palette 7 has 1 + 7 mod 20 fills, in the colours 700, 701 and so on, with previews in these.

#include <com/sun/star/task/XJob.hpp>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <rtl/ref.hxx>
#include <string>
#include <vector>

#include "base/Bitmap.h"
#include "base/Color.h"
#include "base/Text.h"
#include "batch/BatchRuntime.h"
#include "palette/DataFile.h"
#include "palette/frmSaveFill.h"
#include "ports/libreoffice/entry/Application.h"
#include "ports/libreoffice/runtime/OfficeRuntime.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"
#include "ports/memory/Driver.h"

namespace {

namespace css = com::sun::star;
using namespace huebrush;

constexpr std::int16_t kMostPalettes = 6;
constexpr std::int32_t kPreviewWidth = 81;
constexpr std::int32_t kPreviewHeight = 25;

/// Rows of solid fills in one colour after the other, all of them ticked.
class SolidRows final : public palette::PaletteRows {
 public:
    void fill(std::int32_t first, std::size_t count) {
        fills_ = std::vector<fill::CFill>(count);
        for (fill::CFill& each : fills_) {
            fill::FillProperties solid;
            solid.Visible = host::MsoTriState::msoTrue;
            solid.Type = host::MsoFillType::msoFillSolid;
            solid.ForeColorRGB = first++;
            each.setDestination(solid);
        }
    }

    std::int16_t lastRow() const override { return static_cast<std::int16_t>(fills_.size()); }
    bool isRowSelected(std::int16_t) const override { return true; }
    std::int16_t selectedRows() const override { return lastRow(); }
    fill::CFill& fillOf(std::int16_t row) override {
        return fills_.at(static_cast<std::size_t>(row) - 1);
    }
    base::Picture previewOf(std::int16_t row) const override {
        const base::Rgb color =
            fills_.at(static_cast<std::size_t>(row) - 1).destination().ForeColorRGB;
        std::vector<std::uint8_t> pixels;
        for (std::int32_t i = 0; i < kPreviewWidth * kPreviewHeight; ++i) {
            pixels.insert(pixels.end(),
                          {base::blue(color), base::green(color), base::red(color), 0xFF});
        }
        return base::bitmapOf(kPreviewWidth, kPreviewHeight, pixels);
    }
    bool isTopMost() const override { return false; }
    void setTopMost(bool) override {}

 private:
    std::vector<fill::CFill> fills_;
};

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

/// Saves palettes, and erases the first of the list when there are many, until a box appears: then
/// it ends with a note of that.
class Saves {
 public:
    explicit Saves(batch::BatchRuntime& runtime)
        : runtime_(runtime),
          notes_(variable("HUEBRUSH_SAVES_NOTES"), std::ios::app),
          dialog_(palette::frmSaveFill::create(jet::systemFiles())),
          user_(*dialog_) {
        palette::rememberDataFile(variable("HUEBRUSH_SAVES_FILE"));
        dialog_->ShowSaveData(rows_);
    }

    void run() {
        for (std::int32_t number = std::stoi(variable("HUEBRUSH_SAVES_FIRST")); goesOn();
             ++number) {
            save(number);
            if (goesOn() && dialog_->lstFillGroup.ListCount() > kMostPalettes) eraseFirst();
        }
        notes_ << "failed: " << runtime_.messages().front().text << std::endl;
    }

 private:
    bool goesOn() const { return runtime_.messages().empty(); }

    template <class Change>
    void note(const std::string& what, const Change& change) {
        notes_ << "begin " << what << std::endl;
        change();
        if (goesOn()) notes_ << "done " << what << std::endl;
    }
    void save(std::int32_t number) {
        rows_.fill(100 * number, 1 + static_cast<std::size_t>(number) % 20);
        const std::string name = base::text("Paleta ", number);
        user_.click(dialog_->cmdNew);
        user_.type(dialog_->txtFillGroupName, name);
        note("save " + name, [this] { user_.click(dialog_->cmdApply); });
    }
    void eraseFirst() {
        user_.pick(dialog_->lstFillGroup, 0);
        note("erase " + dialog_->lstFillGroup.List(0), [this] { user_.click(dialog_->cmdErase); });
    }

    batch::BatchRuntime& runtime_;
    std::ofstream notes_;
    SolidRows rows_;
    std::shared_ptr<palette::frmSaveFill> dialog_;
    memory::Driver user_;
};

class SavesJob final : public libreoffice::WeakImplHelper<css::task::XJob> {
 public:
    explicit SavesJob(const libreoffice::ContextReference& context) : context_(context) {}

    css::uno::Any SAL_CALL execute(const css::uno::Sequence<css::beans::NamedValue>&) override {
        libreoffice::postToMainThread(context_, [context = context_] {
            libreoffice::Application application(context, std::string());
            libreoffice::OfficeRuntime platform(context, std::string(), application.activeWindow(),
                                                application.snapshot());
            batch::BatchRuntime runtime(platform);
            const forms::RuntimeScope scope(runtime);
            Saves(runtime).run();
        });
        return {};
    }

 private:
    libreoffice::ContextReference context_;
};

}  // namespace

extern "C" SAL_DLLPUBLIC_EXPORT css::uno::XInterface* huebrush_saves_job(
    css::uno::XComponentContext* context, const css::uno::Sequence<css::uno::Any>&) {
    const rtl::Reference<SavesJob> job(new SavesJob(context));
    job->acquire();
    return static_cast<cppu::OWeakObject*>(job.get());
}
