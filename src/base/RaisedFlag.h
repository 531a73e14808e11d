// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <utility>

namespace huebrush::base {

/// Sets a flag for a lifetime, and then gives it back the value it had.
class RaisedFlag {
 public:
    explicit RaisedFlag(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    RaisedFlag(const RaisedFlag&) = delete;
    RaisedFlag& operator=(const RaisedFlag&) = delete;
    ~RaisedFlag() { flag_ = before_; }

 private:
    bool& flag_;
    bool before_;
};

}  // namespace huebrush::base
