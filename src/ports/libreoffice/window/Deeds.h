#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

class FormWindow;
class Snapshot;

/// What the user has done in a window, run from the event loop one after the other, each as a
/// handler.
class Deeds {
 public:
    using Deed = std::function<void()>;

    /// The window calls run() in its turn.
    Deeds(const ContextReference& context, FormWindow& window, std::shared_ptr<Snapshot> snapshot);

    void add(Deed deed);
    /// Lets the window have a turn soon, though there is no deed.
    void wake();
    /// Runs all there are, and those that come meanwhile.
    void run();
    /// Forgets those that have not been run.
    void clear() { waiting_.clear(); }

    /// While it lives, the queue pauses.
    class Pause {
     public:
        explicit Pause(Deeds& deeds) : deeds_(deeds) { ++deeds_.pauses_; }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
        ~Pause() {
            if (--deeds_.pauses_ == 0 && !deeds_.waiting_.empty()) deeds_.wake();
        }

     private:
        Deeds& deeds_;
    };

 private:
    ContextReference context_;
    FormWindow& window_;
    std::shared_ptr<Snapshot> snapshot_;
    std::vector<Deed> waiting_;
    bool woken_ = false;
    int pauses_ = 0;
};

}  // namespace huebrush::libreoffice
