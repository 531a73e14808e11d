#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace huebrush::base {

/// A list of handlers, called in the order in which they were connected.
///
/// Connections last as long as the event: who connects a handler makes sure that what the handler
/// uses outlives the event's owner. A handler may connect further handlers (they are called from
/// the next raise on); what a handler throws passes to whoever raised the event.
template <class... Arguments>
class Event {
 public:
    using Handler = std::function<void(Arguments...)>;

    void connect(Handler handler) { handlers_.push_back(std::move(handler)); }
    bool connected() const { return !handlers_.empty(); }

    void operator()(Arguments... arguments) const {
        const std::size_t count = handlers_.size();
        for (std::size_t i = 0; i < count; ++i) {
            const Handler handler = handlers_[i];
            handler(arguments...);
        }
    }

 private:
    std::vector<Handler> handlers_;
};

}  // namespace huebrush::base
