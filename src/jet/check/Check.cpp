// SPDX-License-Identifier: MPL-2.0

#include "jet/check/Check.h"

#include <algorithm>

#include "base/Text.h"

namespace huebrush::jet {

using base::text;

std::string Violation::text() const {
    const std::string where = pages > 1 ? base::text("pages ", page, " to ", page + pages - 1)
                                        : base::text("page ", page);
    return base::text(severity == Severity::damage ? "damage" : "waste", ": ", where, ", byte ",
                      offset, object.empty() ? "" : ", " + object, ": ", rule.breach,
                      found.empty() ? "" : ": " + found, " (rule ", rule.number, ")");
}

bool CheckResult::isDamaged() const {
    return std::any_of(violations.begin(), violations.end(),
                       [](const Violation& each) { return each.severity == Severity::damage; });
}

void CheckContext::add(Violation violation) {
    // A file in which everything is wrong need not be reported byte by byte.
    constexpr std::size_t kMost = 1000;
    if (result.violations.size() < kMost) result.violations.push_back(std::move(violation));
}

void CheckContext::violate(PageNumber page, std::size_t offset, const Rule& rule,
                           std::string found) {
    add({Severity::damage, page, 1, offset, rule, object, std::move(found)});
}

void CheckContext::waste(PageNumber page, std::size_t offset, const Rule& rule, std::string found) {
    add({Severity::waste, page, 1, offset, rule, object, std::move(found)});
}

void CheckContext::attempt(const std::function<void()>& part) {
    try {
        part();
    } catch (const Damage& damage) {
        incomplete = true;
        violate(damage.page(), damage.offset(), damage.rule());
    }
}

std::size_t CheckContext::offsetOf(RowId row) {
    return DataPage::open(database.pages(), row.page).slot(row.slot).offset;
}

void CheckContext::claim(PageNumber page) {
    if (page >= database.pages().count()) {
        violate(page, 0, rule::kPageExists);
        return;
    }
    const auto [at, added] = claimed.emplace(page, Claim{object, false});
    if (!added) violate(page, 0, rule::kOneOwner, text("also to ", at->second.object));
}

void CheckContext::claimMapPage(PageNumber page) {
    const auto [at, added] = claimed.emplace(page, Claim{"page maps", true});
    if (!added && !at->second.map) {
        violate(page, 0, rule::kOneOwner, text("to page maps and to ", at->second.object));
    }
}

void CheckContext::claimMap(RowId where) {
    if (!mapRows.insert(where).second) {
        violate(where.page, offsetOf(where), rule::kOneOwner,
                text("row ", int{where.slot}, " is the page map of two objects"));
    }
    claimMapPage(where.page);
    const UsageMap map(database.pages(), where);
    if (map.place() != where) claimMapPage(map.place().page);
    for (const PageNumber page : map.bitmapPages()) claim(page);
    for (const PageNumber page : map.all()) {
        if (page < database.pages().count()) continue;
        violate(where.page, offsetOf(where), rule::kMapPage,
                text("the map in row ", int{where.slot}, " lists page ", page,
                     " beyond the end of the file"));
    }
}

namespace {

constexpr const char* kHeaderName = "file header";

void checkFreeSpace(CheckContext& context) {
    const Space& space = context.database.space();
    auto& violations = context.result.violations;
    for (PageNumber page = 0; page < context.database.pages().count(); ++page) {
        const auto used = context.claimed.find(page);
        if (used != context.claimed.end()) {
            if (!space.isFree(page)) continue;
            context.object = used->second.object;
            context.violate(page, 0, rule::kUsedNotFree);
            context.object.clear();
        } else if (!space.isFree(page) && !context.incomplete) {
            const bool continues = !violations.empty() && violations.back().rule == rule::kOwned &&
                                   violations.back().page + violations.back().pages == page;
            if (continues) {
                ++violations.back().pages;
            } else {
                context.waste(page, 0, rule::kOwned);
            }
        }
    }
}

}  // namespace

CheckResult check(Database& database) {
    CheckContext context(database);
    std::vector<StoredObject> objects;
    context.object = kHeaderName;
    context.attempt([&] { objects = database.objects(); });
    context.claim(0);
    context.attempt([&] {
        const RowId map = database.header().freeMap;
        context.mapRows.insert(map);
        context.claimMapPage(map.page);
        context.claimMapPage(database.space().map().place().page);
        context.object = "free map";
        for (const PageNumber page : database.space().map().bitmapPages()) context.claim(page);
    });
    for (const StoredObject& object : objects) {
        if (!object.isTable()) continue;
        context.object = "table " + object.name;
        context.attempt([&] {
            const auto table = database.definition(static_cast<PageNumber>(object.id));
            checkTable(context, *table);
        });
    }
    context.object.clear();
    context.attempt([&] { checkRelations(context); });
    context.object.clear();
    context.attempt([&] { database.space().requireWhole(); });
    context.attempt([&] { checkFreeSpace(context); });
    return std::move(context.result);
}

}  // namespace huebrush::jet
