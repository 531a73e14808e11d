// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <cstdint>
#include <string>

#include "jet/database/Database.h"

namespace huebrush::jet {

/// The identities that own objects, scrambled as they are in a file with the date of creation that
/// new files get: how they follow from the date is not known.
namespace Identity {
inline const Bytes kEngine{0x65, 0x89};
inline const Bytes kAdmin{0x64, 0x8B};
inline const Bytes kUsers{0x65, 0x8B};
inline const Bytes kCreator{0x65, 0x8E};
}  // namespace Identity

/// A row of the catalogue. `properties` empty: none.
struct NewObject {
    std::int32_t id;
    std::int32_t parent;
    std::string name;
    std::int32_t type;
    Bytes owner;
    std::uint32_t flags = 0;
    Bytes properties = {};
};

void addObject(Database& database, const NewObject& object);
void addPermission(Database& database, std::int32_t object, const Bytes& identity,
                   std::uint32_t mask, bool inherited = false);

}  // namespace huebrush::jet
