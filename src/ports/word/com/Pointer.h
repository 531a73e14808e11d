// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace huebrush::word {

/// A reference to a COM object, given back at the end of this object.
template <class Interface>
class Pointer {
 public:
    Pointer() = default;
    Pointer(const Pointer& other) : Pointer(share(other.object_)) {}
    Pointer(Pointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Pointer& operator=(Pointer other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Pointer() { reset(); }

    /// Takes over a reference that somebody else has counted for us.
    static Pointer adopt(Interface* object) {
        Pointer pointer;
        pointer.object_ = object;
        return pointer;
    }
    /// One more reference.
    static Pointer share(Interface* object) {
        if (object != nullptr) object->AddRef();
        return adopt(object);
    }

    void reset() {
        // The last reference may end whatever holds this one.
        if (Interface* const object = std::exchange(object_, nullptr)) object->Release();
    }
    /// The reference, which the caller has to give back.
    Interface* release() { return std::exchange(object_, nullptr); }

    Interface* get() const { return object_; }
    Interface* operator->() const { return object_; }
    Interface& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

    /// Where a call is to put a counted reference.
    Interface** out() {
        reset();
        return &object_;
    }
    void** outAny() { return reinterpret_cast<void**>(out()); }

    /// Another interface of the object; none where it does not have it.
    template <class Other>
    Pointer<Other> as(REFIID id = __uuidof(Other)) const {
        Pointer<Other> other;
        if (object_ != nullptr && FAILED(object_->QueryInterface(id, other.outAny()))) {
            // Some leave something there, in spite of the failure.
            other.release();
        }
        return other;
    }

 private:
    Interface* object_ = nullptr;
};

}  // namespace huebrush::word
