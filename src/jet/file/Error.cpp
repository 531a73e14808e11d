// SPDX-License-Identifier: MPL-2.0

#include "jet/file/Error.h"

#include "base/Text.h"

namespace huebrush::jet {

Damage::Damage(PageNumber page, std::size_t offset, const Rule& broken)
    : Error(ErrorNumber::kDamaged,
            base::text("Soubor databáze je poškozený: strana ", page, ", bajt ", offset,
                       " (pravidlo ", broken.number, ")."),
            base::text("the database file is damaged: page ", page, ", byte ", offset, ": ",
                       broken.breach, " (rule ", broken.number, ")")),
      page_(page),
      offset_(offset),
      rule_(broken) {}

void throwDamage(PageNumber page, std::size_t offset, const Rule& broken) {
    throw Damage(page, offset, broken);
}

}  // namespace huebrush::jet
