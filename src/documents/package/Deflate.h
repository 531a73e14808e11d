// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace huebrush::documents {

/// Raw deflate data of these bytes, at level 6.
std::string deflated(std::string_view bytes);

/// The bytes of raw deflate data; `size` is how many there must be. DocumentError for damaged data,
/// and for data that holds more or fewer: no more than `size` bytes are ever kept.
std::string inflated(std::string_view data, std::size_t size);

std::uint32_t crc32Of(std::string_view bytes);

}  // namespace huebrush::documents
