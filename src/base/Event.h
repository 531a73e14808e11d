// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace huebrush::base {

/// A list of handlers, called in the order in which they were connected.
///
/// A connection lasts as long as the event, or until its listener disconnects: whoever connects
/// makes sure that what the handler uses lives that long. A handler may connect further handlers
/// (they are called from the next raise on), or end the event together with what it belongs to: the
/// others are called all the same. What a handler throws passes to whoever raised the event.
template <class... Arguments>
class Event {
 public:
    using Handler = std::function<void(Arguments...)>;

    void connect(Handler handler, const void* listener = nullptr) {
        if (!connections_) connections_ = std::make_shared<Connections>();
        connections_->push_back({std::move(handler), listener});
    }
    /// Ends all connections of a listener.
    void disconnect(const void* listener) {
        if (!connections_) return;
        std::erase_if(*connections_,
                      [&](const Connection& each) { return each.listener == listener; });
    }
    bool connected() const { return connections_ && !connections_->empty(); }

    void operator()(Arguments... arguments) const {
        if (!connections_) return;
        // The handlers may end their own connections, and this event itself.
        const std::shared_ptr<Connections> connections = connections_;
        const std::size_t count = connections->size();
        for (std::size_t i = 0; i < count && i < connections->size(); ++i) {
            const Handler handler = (*connections)[i].handler;
            handler(arguments...);
        }
    }

 private:
    struct Connection {
        Handler handler;
        const void* listener;
    };
    using Connections = std::vector<Connection>;
    std::shared_ptr<Connections> connections_;
};

}  // namespace huebrush::base
