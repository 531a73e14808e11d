// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <chrono>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/task/XJob.hpp>
#include <nlohmann/json.hpp>
#include <rtl/ref.hxx>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Services.h"
#include "ports/libreoffice/uno/Text.h"
#include "ports/libreoffice/uno/WeakImplHelper.h"

namespace huebrush::bench {

template <class Work>
double milliseconds(const Work& work) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// A service of the bench: measures on the document that is its first argument, on the main thread,
/// and answers with the figures as JSON. `Measurer` is made with the context and the document's
/// model, and has `nlohmann::json measure()`.
template <class Measurer>
class Job final : public libreoffice::WeakImplHelper<com::sun::star::task::XJob> {
 public:
    explicit Job(const libreoffice::ContextReference& context) : context_(context) {}

    /// What the office calls to make the service.
    static com::sun::star::uno::XInterface* make(com::sun::star::uno::XComponentContext* context) {
        const rtl::Reference<Job> job(new Job(context));
        job->acquire();
        return static_cast<cppu::OWeakObject*>(job.get());
    }

    com::sun::star::uno::Any SAL_CALL
    execute(const com::sun::star::uno::Sequence<com::sun::star::beans::NamedValue>& arguments)
        override {
        nlohmann::json figures;
        try {
            com::sun::star::uno::Reference<com::sun::star::frame::XModel> model;
            arguments[0].Value >>= model;
            figures = Measurer(context_, model).measure();
        } catch (const com::sun::star::uno::Exception&) {
            figures["error"] = libreoffice::currentHostError().description();
        } catch (const std::exception& error) {
            figures["error"] = error.what();
        }
        return com::sun::star::uno::Any(libreoffice::toOffice(figures.dump()));
    }

 private:
    libreoffice::ContextReference context_;
};

}  // namespace huebrush::bench
