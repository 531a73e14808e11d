// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/BarPlaces.h"

#include <algorithm>
#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/ui/DockingArea.hpp>
#include <utility>

#include "ports/libreoffice/bar/TextWindows.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

using Edge = BarPlace::Edge;

constexpr std::pair<Edge, css::ui::DockingArea> kDockingAreas[] = {
    {Edge::left, css::ui::DockingArea_DOCKINGAREA_LEFT},
    {Edge::top, css::ui::DockingArea_DOCKINGAREA_TOP},
    {Edge::right, css::ui::DockingArea_DOCKINGAREA_RIGHT},
    {Edge::bottom, css::ui::DockingArea_DOCKINGAREA_BOTTOM},
};

/// The row after the standard and the formatting bar.
constexpr std::int32_t kFirstFreeRow = 2;

css::ui::DockingArea areaOf(Edge edge) {
    return std::ranges::find(kDockingAreas, edge, &std::pair<Edge, css::ui::DockingArea>::first)
        ->second;
}

Edge edgeOf(css::ui::DockingArea area) {
    const auto* const found =
        std::ranges::find(kDockingAreas, area, &std::pair<Edge, css::ui::DockingArea>::second);
    return found == std::end(kDockingAreas) ? Edge::top : found->first;
}

/// The office counts rows across and pixels along the edge.
css::awt::Point dockPoint(const BarPlace& place) {
    return place.upright() ? css::awt::Point(place.row, place.distance)
                           : css::awt::Point(place.distance, place.row);
}

BarPlace placeOf(const PropertyValues& state) {
    BarPlace place;
    bool docked = true;
    valueOf(state, "Docked") >>= docked;
    place.floating = !docked;
    valueOf(state, "Visible") >>= place.visible;

    css::ui::DockingArea area = css::ui::DockingArea_DOCKINGAREA_TOP;
    valueOf(state, "DockingArea") >>= area;
    place.edge = edgeOf(area);
    css::awt::Point point(0, kFirstFreeRow);
    valueOf(state, "DockPos") >>= point;
    place.row = place.upright() ? point.X : point.Y;
    place.distance = place.upright() ? point.Y : point.X;

    css::awt::Point corner;
    valueOf(state, "Pos") >>= corner;
    place.left = corner.X;
    place.top = corner.Y;
    return place;
}

/// The bars of a window are locked in their rows, and a locked one does not float.
void putInWindow(const LayoutManager& layout, const rtl::OUString& url, const BarPlace& place) {
    layout->createElement(url);
    if (place.floating) {
        layout->unlockWindow(url);
        layout->floatWindow(url);
        layout->setElementPos(url, css::awt::Point(place.left, place.top));
    } else {
        layout->dockWindow(url, areaOf(place.edge), dockPoint(place));
    }
    if (place.visible) {
        layout->showElement(url);
    } else {
        layout->hideElement(url);
    }
}

}  // namespace

BarPlaces::BarPlaces(const ContextReference& context) : context_(context) {
    officeCalls([&] {
        const auto modules = createService<css::container::XNameAccess>(
            context_, "com.sun.star.ui.WindowStateConfiguration");
        states_.set(modules->getByName("com.sun.star.text.TextDocument"),
                    css::uno::UNO_QUERY_THROW);
    });
}

BarPlace BarPlaces::of(const std::string& url) const {
    return officeCalls([&] {
        PropertyValues state;
        if (states_->hasByName(toOffice(url))) states_->getByName(toOffice(url)) >>= state;
        return placeOf(state);
    });
}

void BarPlaces::put(const std::string& url, const std::string& name, const BarPlace& place) {
    write(url, name, place);
    for (const LayoutManager& layout : layoutsOfTextWindows(context_)) {
        officeCalls([&] { putInWindow(layout, toOffice(url), place); });
    }
}

void BarPlaces::write(const std::string& url, const std::string& name, const BarPlace& place) {
    officeCalls([&] {
        const css::uno::Any state = css::uno::makeAny(
            properties({property("Docked", css::uno::makeAny(!place.floating)),
                        property("DockingArea", css::uno::makeAny(areaOf(place.edge))),
                        property("DockPos", css::uno::makeAny(dockPoint(place))),
                        property("Pos", css::uno::makeAny(css::awt::Point(place.left, place.top))),
                        property("Visible", css::uno::makeAny(place.visible)),
                        property("Locked", css::uno::makeAny(!place.floating)),
                        property("UIName", css::uno::makeAny(toOffice(name)))}));
        if (states_->hasByName(toOffice(url))) {
            states_->replaceByName(toOffice(url), state);
        } else {
            states_->insertByName(toOffice(url), state);
        }
    });
}

}  // namespace huebrush::libreoffice
