// SPDX-License-Identifier: MPL-2.0

#pragma once

#include "base/Error.h"
#include "forms/Peer.h"

namespace huebrush::memory {

/// A peer that fails when a property changes: for the errors that nothing else can cause.
class FailingPeer final : public forms::Peer {
 public:
    explicit FailingPeer(forms::PropertyId id) : id_(id) {}
    void changed(forms::PropertyId id) override {
        if (id == id_) throw base::Error(7, "popis");
    }

 private:
    forms::PropertyId id_;
};

}  // namespace huebrush::memory
