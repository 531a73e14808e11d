// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstddef>
#include <functional>
#include <unordered_map>

#include "mapping/HostFill.h"

namespace huebrush::libreoffice {

/// The values that fills were read with, each kept once: thousands of shapes share them, and a scan
/// compares every shape with many others, so what it reads has to stay small.
class FillPool {
 public:
    /// Good until clear().
    const host::FillProperties& keep(const mapping::HostFill& fill) {
        const auto [kept, isNew] = fills_.try_emplace(fill);
        if (isNew) kept->second = propertiesOf(fill);
        return kept->second;
    }
    void clear() { fills_.clear(); }

 private:
    struct Hash {
        std::size_t operator()(const mapping::HostFill& fill) const {
            auto hash = static_cast<std::size_t>(fill.type);
            const auto mix = [&hash](auto value) {
                constexpr std::size_t kFactor = 1000003;
                hash = hash * kFactor + std::hash<decltype(value)>{}(value);
            };
            mix(fill.foreColor);
            mix(fill.backColor);
            mix(fill.transparency);
            mix(fill.gradientStyle);
            mix(fill.gradientVariant);
            mix(fill.presetTexture);
            mix(fill.pattern);
            return hash;
        }
    };

    std::unordered_map<mapping::HostFill, host::FillProperties, Hash> fills_;
};

}  // namespace huebrush::libreoffice
