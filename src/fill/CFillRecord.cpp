// SPDX-License-Identifier: MPL-2.0

// The fill descriptor in the records of palette files.

#include <type_traits>

#include "base/Text.h"
#include "error/mError.h"
#include "fill/CFill.h"
#include "fill/RecordColumns.h"
#include "forms/Runtime.h"
#include "jet/records/Recordset.h"
#include "preview/mDBMakeFillPreview.h"

namespace huebrush::fill {

namespace {

constexpr const char* kPreview = "FillPreview";

bool isOnRecord(jet::Recordset& rs) {
    return !rs.Eof() && !rs.Bof();
}

void refuseUnknownTexture() {
    forms::Runtime::current().MsgBox(
        base::text("Výplň nemůže být uložena!", base::kLineBreak,
                   "Objekt jehož výplň chcete uložit do databáze používá neznámou texturu."),
        forms::MsgBoxStyle::kExclamation, "Záznam neuložen");
}

}  // namespace

bool CFill::FillToRecordset(jet::Recordset& rs) {
    bool written = false;
    error::trap(place("FillToRecordset", "Chyba při ukládání údajů do databáze..."), [&] {
        if (!isOnRecord(rs)) return;
        if (destination_.UnknownTexture) return refuseUnknownTexture();
        forEachColumn([&](const auto& property) {
            rs.SetField(property.name, columnValue(destination_.*property.member));
        });
        written = true;
    });
    return written;
}

void CFill::FillFromRecordset(jet::Recordset& rs) {
    error::trap(place("FillFromRecordset", "Chyba při čtení údajů z databáze..."), [&] {
        if (!isOnRecord(rs)) return;
        forEachColumn([&](const auto& property) {
            auto& member = destination_.*property.member;
            member = fromColumn<std::remove_reference_t<decltype(member)>>(rs.Field(property.name));
        });
        ReadFromRecordset(preview::ReadPictureFromRS([&rs] { return rs.Field(kPreview); }));
        change_ = true;
    });
}

}  // namespace huebrush::fill
