// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <array>
#include <streambuf>

namespace huebrush::cli {

/// What somebody types at a terminal, byte by byte as it arrives. An interrupt ends it (see
/// Interrupt.h), even one that arrives just before the wait for a key begins.
class InterruptibleInput final : public std::streambuf {
 public:
    explicit InterruptibleInput(int descriptor) : descriptor_(descriptor) {}

 private:
    int_type underflow() override;

    int descriptor_;
    std::array<char, 256> bytes_{};
};

}  // namespace huebrush::cli
