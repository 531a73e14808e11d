// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/EventPump.h"

#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <utility>

#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Snapshot.h"

namespace huebrush::libreoffice {

namespace {

constexpr std::chrono::milliseconds kRunEvery(40);

}  // namespace

EventPump::EventPump(const ContextReference& context, std::shared_ptr<Snapshot> snapshot,
                     std::function<void()> before)
    : context_(context),
      snapshot_(std::move(snapshot)),
      before_(std::move(before)),
      rate_(kRunEvery) {}

void EventPump::run() {
    if (!rate_.isDue()) return;
    const auto start = RateLimit::Clock::now();
    runNow();
    rate_.done(start);
}

void EventPump::runNow() {
    if (before_) before_();
    const EventsRun running(snapshot_);
    ignoringOffice([&] {
        createService<com::sun::star::awt::XToolkitExperimental>(context_,
                                                                 "com.sun.star.awt.Toolkit")
            ->processEventsToIdle();
    });
}

}  // namespace huebrush::libreoffice
