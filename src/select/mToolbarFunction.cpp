// SPDX-License-Identifier: MPL-2.0

#include "select/mToolbarFunction.h"

#include <functional>
#include <string>
#include <vector>

#include "base/Count16.h"
#include "base/Text.h"
#include "error/mError.h"
#include "fill/mFillGraficalObject.h"
#include "forms/Runtime.h"

namespace huebrush::select {

namespace {

using base::kLineBreak;
using base::text;
using host::MsoTriState;

/// What the two commands differ in.
struct Texts {
    const char* procedure;
    const char* selectOneHint;
    const char* onlyOneHint;
    const char* total;
    const char* noneFound;
};

constexpr Texts kLineTexts{
    "VseDleBarvyCary",
    "Označ libovolný grafický prvek obrázku, jehož barva čáry bude použita pro nalezení ostatních "
    "prvků v obrázku a spusť nástroj znovu.",
    "Označ pouze jeden libovolný grafický prvek obrázku, jehož barva čáry bude použita pro "
    "nalezení ostatních prvků v obrázku a spusť nástroj znovu.",
    "Celkový počet všech vybraných objektů se stejnou barvou čáry.. ",
    "Nebyly nalezeny žádné jiné objekty se shodnou barvou čáry!",
};

constexpr Texts kFillTexts{
    "VseDleTypuVyplne",
    "Označ libovolný grafický prvek obrázku, jehož výplň bude použita pro nalezení ostatních prvků "
    "v obrázku a spusť nástroj znovu.",
    "Označ pouze jeden libovolný grafický prvek obrázku, jehož barva výplně bude použita pro "
    "nalezení ostatních prvků v obrázku a spusť nástroj znovu.",
    "Celkový počet všech vybraných objektů se shodným typem výplně.. ",
    "Nebyly nalezeny žádné jiné objekty se shodným typem výplně!",
};

using Match = std::function<bool(host::Shape&)>;
using MatchFor = Match (*)(host::Shape& sample);

Match lineMatch(host::Shape& sample) {
    host::LineFormat& line = sample.Line();
    if (line.Visible() == MsoTriState::msoFalse) {
        return [](host::Shape& shape) { return shape.Line().Visible() == MsoTriState::msoFalse; };
    }
    // Both are read of every candidate: one whose line cannot be read is an error, not a mismatch.
    return [&line](host::Shape& shape) {
        const bool sameColor = shape.Line().ForeColorRGB() == line.ForeColorRGB();
        const bool sameVisible = shape.Line().Visible() == line.Visible();
        return sameColor && sameVisible;
    };
}

Match fillMatch(host::Shape& sample) {
    host::FillFormat& fill = sample.Fill();
    if (fill.Visible() == MsoTriState::msoFalse) {
        return [](host::Shape& shape) { return shape.Fill().Visible() == MsoTriState::msoFalse; };
    }
    return [&fill](host::Shape& shape) { return fill::IsSameFill(shape.Fill(), fill); };
}

void warnOfWrongSelection(bool none, const Texts& texts) {
    const char* const what = none ? "Není vybrán vzorový grafický prvkek!"
                                  : "Je vybráno více vzorových grafických prvků!";
    const char* const hint = none ? texts.selectOneHint : texts.onlyOneHint;
    forms::Runtime::current().MsgBox(text(what, kLineBreak, kLineBreak, hint),
                                     forms::MsgBoxStyle::kExclamation, "Nesprávný výběr");
}

/// Lets events run after each candidate, so that the progress shows. A candidate that an event has
/// changed is judged as it is then; one that is gone is an error.
std::vector<host::ShapePointer> findMatches(host::Application& WApp, host::Shapes& candidates,
                                            const Match& matches) {
    forms::Runtime& runtime = forms::Runtime::current();
    std::vector<host::ShapePointer> found;
    base::Count16 visited;
    const auto walk = candidates.enumerate();
    while (const host::ShapePointer candidate = walk->next()) {
        if (matches(*candidate)) found.push_back(candidate);
        ++visited;
        WApp.setStatusBar(text("Zpracovávám ", visited, ". objekt z ", candidates.Count(), "."));
        runtime.DoEvents();
    }
    return found;
}

void select(host::Shapes& shapes, const std::vector<host::ShapePointer>& found) {
    std::vector<std::string> names;
    names.reserve(found.size());
    for (const auto& shape : found) names.push_back(shape->Name());
    shapes.Range(names)->Select();
}

void selectAlike(host::Application& WApp, const Texts& texts, MatchFor matchFor) {
    const error::Place place{"Huebrush.mToolbarFunction.", texts.procedure,
                             "Při vybírání objektů došlo k chybě."};
    error::trap(place, [&] {
        const auto selected = WApp.Selection()->ShapeRange();
        const std::int32_t count = selected->Count();
        if (count != 1) {
            warnOfWrongSelection(count == 0, texts);
            return;
        }
        WApp.setCursor(host::WdCursorType::wdCursorWait);
        const host::ShapePointer sample = selected->Item(1);
        const Match matches = matchFor(*sample);
        const auto shapes = WApp.ActiveDocument()->Shapes();
        const auto found = findMatches(WApp, *shapes, matches);
        if (!found.empty()) select(*shapes, found);
        WApp.setStatusBar(found.size() > 1 ? text(texts.total, found.size(), ".")
                                           : std::string(texts.noneFound));
        WApp.setCursor(host::WdCursorType::wdCursorNormal);
    });
}

}  // namespace

void VseDleBarvyCary(host::Application& WApp) {
    selectAlike(WApp, kLineTexts, lineMatch);
}

void VseDleTypuVyplne(host::Application& WApp) {
    selectAlike(WApp, kFillTexts, fillMatch);
}

}  // namespace huebrush::select
