// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <rtl/ustring.hxx>
#include <string>
#include <string_view>

namespace huebrush::libreoffice {

/// Between the logic's UTF-8 and the office's UTF-16.
rtl::OUString toOffice(std::string_view utf8);
std::string fromOffice(const rtl::OUString& text);

}  // namespace huebrush::libreoffice
