// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <ocidl.h>

#include <functional>

#include "ports/word/com/Pointer.h"

namespace huebrush::word {

class EventSink;

/// Listens to one event of an object of the host, for as long as this lives.
class EventConnection {
 public:
    /// What an event runs. It is a way in from the host: what it throws ends here.
    using Handler = std::function<void()>;

    EventConnection();
    /// Listens to the event with this number among those of an interface. An object that does not
    /// raise these events, as those of older hosts, is left alone: nothing is ever heard of it.
    EventConnection(const Pointer<IDispatch>& source, REFIID events, DISPID event, Handler handler);
    EventConnection(EventConnection&& other) noexcept;
    EventConnection& operator=(EventConnection other) noexcept;
    EventConnection(const EventConnection&) = delete;
    ~EventConnection();

    /// Whether the object raises such events.
    explicit operator bool() const { return static_cast<bool>(point_); }

 private:
    Pointer<IConnectionPoint> point_;
    Pointer<EventSink> sink_;
    DWORD cookie_ = 0;
};

}  // namespace huebrush::word
