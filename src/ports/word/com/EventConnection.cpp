// SPDX-License-Identifier: MPL-2.0

#include "ports/word/com/EventConnection.h"

#include <olectl.h>

#include <utility>

#include "base/Error.h"
#include "ports/word/com/Counted.h"
#include "ports/word/com/Failure.h"

namespace huebrush::word {

/// What the host calls. It lives as long as the host holds it, and is deaf once its connection has
/// ended.
class EventSink final : public CountedDispatch<EventSink, IDispatch> {
 public:
    EventSink(REFIID events, DISPID event, EventConnection::Handler handler)
        : events_(events), event_(event), handler_(std::move(handler)) {}

    bool answersTo(REFIID id) const { return id == IID_IDispatch || id == events_; }
    void end() { handler_ = nullptr; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*,
                                     EXCEPINFO*, UINT*) override {
        if (member != event_) return S_OK;
        // The handler may end the connection, and the host drop this object.
        const Pointer<EventSink> alive = Pointer<EventSink>::share(this);
        base::ignoring([this] {
            const EventConnection::Handler handler = handler_;
            if (handler) handler();
        });
        return S_OK;
    }

 private:
    const IID events_;
    const DISPID event_;
    EventConnection::Handler handler_;
};

namespace {

/// Where an object raises these events; nothing where it does not.
Pointer<IConnectionPoint> pointOf(const Pointer<IDispatch>& source, REFIID events) {
    Pointer<IConnectionPoint> point;
    const auto container = source.as<IConnectionPointContainer>();
    if (container && FAILED(container->FindConnectionPoint(events, point.out()))) point.release();
    return point;
}

}  // namespace

EventConnection::EventConnection() = default;

EventConnection::EventConnection(const Pointer<IDispatch>& source, REFIID events, DISPID event,
                                 Handler handler)
    : point_(pointOf(source, events)) {
    if (!point_) return;
    sink_ = Pointer<EventSink>::adopt(new EventSink(events, event, std::move(handler)));
    const HRESULT result = point_->Advise(sink_.get(), &cookie_);
    if (FAILED(result)) {
        point_.reset();
        sink_.reset();
        check(result);
    }
}

EventConnection::EventConnection(EventConnection&& other) noexcept
    : point_(std::move(other.point_)),
      sink_(std::move(other.sink_)),
      cookie_(std::exchange(other.cookie_, 0)) {}

EventConnection& EventConnection::operator=(EventConnection other) noexcept {
    std::swap(point_, other.point_);
    std::swap(sink_, other.sink_);
    std::swap(cookie_, other.cookie_);
    return *this;
}

EventConnection::~EventConnection() {
    if (sink_) sink_->end();
    // An object that is gone from the host may refuse it; the host then has no use for the sink.
    if (point_) point_->Unadvise(cookie_);
}

}  // namespace huebrush::word
