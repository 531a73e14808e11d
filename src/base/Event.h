#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace huebrush::base {

/// A list of handlers, called in the order in which they were connected.
///
/// A connection lasts as long as the event, or until its listener disconnects: who connects makes
/// sure that what the handler uses is alive that long. A handler may connect further handlers (they
/// are called from the next raise on); what a handler throws passes to whoever raised the event.
template <class... Arguments>
class Event {
 public:
    using Handler = std::function<void(Arguments...)>;

    void connect(Handler handler, const void* listener = nullptr) {
        connections_.push_back({std::move(handler), listener});
    }
    /// Ends all connections of a listener.
    void disconnect(const void* listener) {
        std::erase_if(connections_,
                      [&](const Connection& each) { return each.listener == listener; });
    }
    bool connected() const { return !connections_.empty(); }

    void operator()(Arguments... arguments) const {
        const std::size_t count = connections_.size();
        for (std::size_t i = 0; i < count && i < connections_.size(); ++i) {
            // A copy: the handler may end its own connection.
            const Handler handler = connections_[i].handler;
            handler(arguments...);
        }
    }

 private:
    struct Connection {
        Handler handler;
        const void* listener;
    };
    std::vector<Connection> connections_;
};

}  // namespace huebrush::base
