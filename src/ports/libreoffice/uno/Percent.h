#pragma once

#include <string>
#include <string_view>

namespace huebrush::libreoffice {

/// The text with every byte but ASCII letters, digits, '-' and '_' written as "%XX": two texts
/// differ exactly when their encoded forms do.
std::string percentEncoded(std::string_view text);

}  // namespace huebrush::libreoffice
