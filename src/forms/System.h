// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace huebrush::forms {

/// The trees of the system's registry that are read here, with the system's numbers.
enum class RegistryRoot : std::uint32_t { localMachine = 0x80000002 };

using RegistryValue = std::variant<std::string, std::uint32_t>;

/// The system around the program: what is installed, and the way to start it.
class System {
 public:
    System() = default;
    System(const System&) = delete;
    System& operator=(const System&) = delete;
    virtual ~System() = default;

    /// A value of the registry; nothing where the key or the value is missing. A system without a
    /// registry answers for the programs that it has in place of the classic ones.
    virtual std::optional<RegistryValue> registryValue(RegistryRoot root, const std::string& key,
                                                       const std::string& name) = 0;
    virtual bool fileExists(const std::string& path) = 0;
    /// Starts a program in a normal window that takes the focus, and does not wait for it. An error
    /// (53) when it cannot be started.
    virtual void start(const std::string& path) = 0;
};

}  // namespace huebrush::forms
