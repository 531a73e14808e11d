// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>

#include "base/Error.h"
#include "host/CommandBars.h"

namespace huebrush::host {

/// The host's numbers of its own controls: the tools that change the fill of what is selected.
namespace ControlId {
constexpr std::int32_t kFillColor = 1051;
constexpr std::int32_t kFillEffects = 1006;
}  // namespace ControlId

/// Base of the host's own controls: one can be run, while everything that changes it is an error
/// (5).
class BuiltInControl : public CommandBarControl {
 public:
    void setTag(const std::string&) override { refuse(); }
    void setCaption(const std::string&) override { refuse(); }
    void setTooltipText(const std::string&) override { refuse(); }
    void setEnabled(bool) override { refuse(); }
    void Delete() override { refuse(); }
    void CopyFace() override { refuse(); }
    void PasteFace() override { refuse(); }

 private:
    [[noreturn]] static void refuse() {
        throw base::Error(base::ErrorNumber::kInvalidProcedureCall,
                          "Vestavěný prvek nelze takto změnit.");
    }
};

}  // namespace huebrush::host
