// SPDX-License-Identifier: MPL-2.0

#include "cli/InterruptibleInput.h"

#include <unistd.h>

#include "cli/Interrupt.h"

namespace huebrush::cli {

InterruptibleInput::int_type InterruptibleInput::underflow() {
    if (!waitForInput(descriptor_)) return traits_type::eof();
    const ssize_t count = ::read(descriptor_, bytes_.data(), bytes_.size());
    if (count <= 0) return traits_type::eof();
    setg(bytes_.data(), bytes_.data(), bytes_.data() + count);
    return traits_type::to_int_type(bytes_.front());
}

}  // namespace huebrush::cli
