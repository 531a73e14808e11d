// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/bar/BarPlaces.h"

#include <algorithm>
#include <chrono>
#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/ui/DockingArea.hpp>
#include <cstdlib>
#include <utility>

#include "base/Error.h"
#include "ports/libreoffice/bar/TextWindows.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"
#include "ports/libreoffice/uno/Repeater.h"

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

constexpr std::chrono::milliseconds kBetweenLooks(100);
constexpr int kLooksInPlace = 10;
constexpr int kMostLooks = 100;

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

/// A window manager may count the edge and the title of a bar once more or once less.
bool isNear(const css::awt::Point& point, const BarPlace& place) {
    constexpr std::int32_t kEdge = 10;
    constexpr std::int32_t kTitle = 40;
    return std::abs(point.X - place.left) <= kEdge && std::abs(point.Y - place.top) <= kTitle;
}

}  // namespace

/// Has the bars looked at again and again; its end ends that.
class BarPlaces::Watch {
 public:
    static std::shared_ptr<Watch> start(BarPlaces& places) {
        auto watch = std::make_shared<Watch>(places);
        watch->repeater_ = std::make_unique<Repeater>(places.context_, kBetweenLooks,
                                                      [weak = std::weak_ptr(watch)] {
                                                          if (const auto running = weak.lock())
                                                              running->places_.look();
                                                      });
        return watch;
    }
    explicit Watch(BarPlaces& places) : places_(places) {}

 private:
    BarPlaces& places_;
    std::unique_ptr<Repeater> repeater_;
};

BarPlaces::~BarPlaces() = default;

BarPlaces::BarPlaces(const ContextReference& context) : context_(context) {
    officeCalls([&] {
        const auto modules = createService<css::container::XNameAccess>(
            context_, "com.sun.star.ui.WindowStateConfiguration");
        states_.set(modules->getByName("com.sun.star.text.TextDocument"),
                    css::uno::UNO_QUERY_THROW);
    });
}

BarPlace BarPlaces::of(const std::string& url) const {
    const auto request = requests_.find(url);
    return request == requests_.end() ? stored(url) : request->second.place;
}

BarPlace BarPlaces::stored(const std::string& url) const {
    return officeCalls([&] {
        PropertyValues state;
        if (states_->hasByName(toOffice(url))) states_->getByName(toOffice(url)) >>= state;
        return placeOf(state);
    });
}

void BarPlaces::put(const std::string& url, const std::string& name, const BarPlace& place) {
    requests_.erase(url);
    ask(url, name, place);
    if (!place.floating) return;
    requests_[url] = {name, place};
    if (watch_ == nullptr) watch_ = Watch::start(*this);
}

void BarPlaces::ask(const std::string& url, const std::string& name, const BarPlace& place) {
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

bool BarPlaces::isAt(const std::string& url, const BarPlace& place) const {
    const BarPlace now = stored(url);
    if (!now.floating || !isNear(css::awt::Point(now.left, now.top), place)) return false;
    const std::vector<LayoutManager> layouts = layoutsOfTextWindows(context_);
    return officeCalls([&] {
        return std::ranges::all_of(layouts, [&](const LayoutManager& layout) {
            return !layout->isElementVisible(toOffice(url)) ||
                   (layout->isElementFloating(toOffice(url)) &&
                    isNear(layout->getElementPos(toOffice(url)), place));
        });
    });
}

void BarPlaces::lookAt(const std::string& url, const Request& request) {
    const bool inPlace = isAt(url, request.place);
    if (!inPlace) ask(url, request.name, request.place);
    // Another request may have been made meanwhile.
    const auto now = requests_.find(url);
    if (now == requests_.end() || now->second.place != request.place) return;
    now->second.inPlace = inPlace ? request.inPlace + 1 : 0;
}

void BarPlaces::look() {
    for (auto& [url, request] : requests_) ++request.looks;
    for (const auto& known : std::map(requests_)) {
        base::ignoring<base::Error>([&] { lookAt(known.first, known.second); });
    }
    std::erase_if(requests_, [](const auto& known) {
        return known.second.inPlace >= kLooksInPlace || known.second.looks >= kMostLooks;
    });
    if (requests_.empty()) watch_.reset();
}

}  // namespace huebrush::libreoffice
