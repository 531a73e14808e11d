#include "jet/check/Check.h"

#include "base/Text.h"

namespace huebrush::jet {

std::string Violation::text() const {
    return base::text("strana ", page, ", bajt ", offset, ": ", object.empty() ? "" : object + ": ",
                      "pravidlo ", rule.number, ": ", rule.text);
}

void CheckContext::violate(PageNumber page, std::size_t offset, const Rule& rule) {
    // A file that is all wrong need not be told of byte by byte.
    constexpr std::size_t kMost = 1000;
    if (result.violations.size() < kMost) result.violations.push_back({page, offset, rule, object});
}

void CheckContext::attempt(const std::function<void()>& part) {
    try {
        part();
    } catch (const Damage& damage) {
        violate(damage.page(), damage.offset(), damage.rule());
    }
}

void CheckContext::claim(PageNumber page) {
    if (page >= database.pages().count()) {
        violate(page, 0, rule::kPageExists);
        return;
    }
    if (!claimed.emplace(page, false).second) violate(page, 0, rule::kOneOwner);
}

void CheckContext::claimMapPage(PageNumber page) {
    const auto [at, added] = claimed.emplace(page, true);
    if (!added && !at->second) violate(page, 0, rule::kOneOwner);
}

void CheckContext::claimMap(RowId where) {
    claimMapPage(where.page);
    const UsageMap map(database.pages(), where);
    for (const PageNumber page : map.bitmapPages()) claim(page);
    for (const PageNumber page : map.all()) {
        if (page >= database.pages().count()) violate(where.page, where.slot, rule::kMapPage);
    }
}

namespace {

void checkFreeSpace(CheckContext& context) {
    const Space& space = context.database.space();
    for (PageNumber page = 0; page < context.database.pages().count(); ++page) {
        const bool used = context.claimed.contains(page);
        if (used && space.isFree(page)) context.violate(page, 0, rule::kUsedNotFree);
        if (!used && !space.isFree(page)) context.result.unowned.push_back(page);
    }
}

}  // namespace

CheckResult check(Database& database) {
    CheckContext context(database);
    std::vector<StoredObject> objects;
    context.attempt([&] { objects = database.objects(); });
    context.claim(0);
    context.attempt([&] {
        const RowId map = database.header().freeMap;
        context.claimMapPage(map.page);
        for (const PageNumber page : database.space().map().bitmapPages()) context.claim(page);
    });
    for (const StoredObject& object : objects) {
        if (!object.isTable()) continue;
        context.object = object.name;
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
