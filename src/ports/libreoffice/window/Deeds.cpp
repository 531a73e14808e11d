#include "ports/libreoffice/window/Deeds.h"

#include <utility>

#include "ports/libreoffice/Snapshot.h"
#include "ports/libreoffice/uno/MainThread.h"
#include "ports/libreoffice/window/FormWindow.h"

namespace huebrush::libreoffice {

Deeds::Deeds(const ContextReference& context, FormWindow& window,
             std::shared_ptr<Snapshot> snapshot)
    : context_(context), window_(window), snapshot_(std::move(snapshot)) {}

void Deeds::add(Deed deed) {
    waiting_.push_back(std::move(deed));
    wake();
}

void Deeds::wake() {
    if (woken_) return;
    woken_ = true;
    postToMainThread(context_, [weak = window_.weak_from_this()] {
        if (const auto window = weak.lock()) window->takeTurn();
    });
}

void Deeds::run() {
    woken_ = false;
    while (!waiting_.empty() && pauses_ == 0) {
        const Deed deed = std::move(waiting_.front());
        waiting_.erase(waiting_.begin());
        const HandlerScope scope(snapshot_);
        deed();
    }
}

}  // namespace huebrush::libreoffice
