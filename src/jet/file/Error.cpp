#include "jet/file/Error.h"

#include "base/Text.h"

namespace huebrush::jet {

Damage::Damage(PageNumber page, std::size_t offset, const Rule& broken)
    : Error(ErrorNumber::kDamaged,
            base::text("Soubor databáze je poškozen: strana ", page, ", bajt ", offset,
                       ", pravidlo ", broken.number, " (", broken.text, ").")),
      page_(page),
      offset_(offset),
      rule_(broken) {}

void throwDamage(PageNumber page, std::size_t offset, const Rule& broken) {
    throw Damage(page, offset, broken);
}

}  // namespace huebrush::jet
