// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace huebrush::libreoffice {

/// How long what was read from the office may be reused without reading it again: within one
/// handler, until events run. What was read carries the generation in which it was read; it is good
/// while isCurrent() says so. Outside a handler nothing is, so every read goes to the office.
///
/// Gathered writes are carried out before a generation ends: whoever gathers them calls
/// connectBeforeEnd().
class Snapshot {
 public:
    using Generation = std::uint64_t;
    /// The generation of what was never read.
    static constexpr Generation kNever = 0;

    bool isCurrent(Generation generation) const { return generation == current_; }
    /// For what is read now: never current outside a handler.
    Generation generation() const { return handlers_ > 0 ? current_ : kNever; }

    /// On any thread.
    bool isInHandler() const { return handlers_ > 0; }

    void enter() {
        if (handlers_++ == 0) renew();
    }
    void leave() {
        if (handlers_ == 1) finish();
        if (--handlers_ == 0) renew();
    }
    /// Events have run, or are about to: whatever was read may have changed.
    void invalidate() {
        finish();
        renew();
    }

    /// Called before a generation ends. Never throws.
    void connectBeforeEnd(std::function<void()> flush) { flushes_.push_back(std::move(flush)); }

 private:
    void renew() { current_ = ++last_; }
    void finish() const {
        for (const std::function<void()>& flush : flushes_) flush();
    }

    std::vector<std::function<void()>> flushes_;
    std::atomic<std::int32_t> handlers_ = 0;
    Generation last_ = 1;
    Generation current_ = 1;
};

/// While it lives, the office's events run: what was written is brought to the office before, and
/// what was read is not good any more afterwards.
class EventsRun {
 public:
    explicit EventsRun(std::shared_ptr<Snapshot> snapshot) : snapshot_(std::move(snapshot)) {
        snapshot_->invalidate();
    }
    EventsRun(const EventsRun&) = delete;
    EventsRun& operator=(const EventsRun&) = delete;
    ~EventsRun() { snapshot_->invalidate(); }

 private:
    std::shared_ptr<Snapshot> snapshot_;
};

/// A handler is running: one of our own commands, entered from the office's event loop.
class HandlerScope {
 public:
    explicit HandlerScope(std::shared_ptr<Snapshot> snapshot) : snapshot_(std::move(snapshot)) {
        snapshot_->enter();
    }
    HandlerScope(const HandlerScope&) = delete;
    HandlerScope& operator=(const HandlerScope&) = delete;
    ~HandlerScope() { snapshot_->leave(); }

 private:
    std::shared_ptr<Snapshot> snapshot_;
};

}  // namespace huebrush::libreoffice
