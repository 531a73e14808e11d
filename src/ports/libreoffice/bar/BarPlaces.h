// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/container/XNameContainer.hpp>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "ports/libreoffice/uno/Services.h"

namespace huebrush::libreoffice {

/// Where a bar is: at an edge of the window in a row of bars, or floating above it.
struct BarPlace {
    /// The edges, with the numbers of the object model's docking position.
    enum class Edge : std::int32_t { left = 0, top = 1, right = 2, bottom = 3 };

    bool floating = false;
    Edge edge = Edge::top;
    /// The row counted from 0, and the distance in pixels from where the row begins.
    std::int32_t row = 0;
    std::int32_t distance = 0;
    /// In pixels of the screen, for a floating bar.
    std::int32_t left = 0;
    std::int32_t top = 0;
    bool visible = true;

    bool upright() const { return edge == Edge::left || edge == Edge::right; }
    friend bool operator==(const BarPlace&, const BarPlace&) = default;
};

/// The places of the tool bars of text windows. The office keeps them beyond the removal of a bar,
/// lays out each new window by them, and writes them when the user moves a bar.
///
/// A floating bar is a window of its own: while the office lays out its bars and the window manager
/// places their windows, what is asked for is lost or overwritten. So it is asked for again until
/// the bar has stayed there for a second, for ten seconds at most.
class BarPlaces {
 public:
    explicit BarPlaces(const ContextReference& context);
    BarPlaces(const BarPlaces&) = delete;
    BarPlaces& operator=(const BarPlaces&) = delete;
    ~BarPlaces();

    /// The bar's place, or a default one: a row of its own below the two standard bars. Of a
    /// floating bar that is still on its way, where it is to be.
    BarPlace of(const std::string& url) const;
    /// Puts the bar there, in all open windows and in those to come.
    void put(const std::string& url, const std::string& name, const BarPlace& place);

 private:
    class Watch;
    struct Request {
        std::string name;
        BarPlace place;
        int looks = 0;
        /// The last so many looks found the bar in its place.
        int inPlace = 0;
    };

    BarPlace stored(const std::string& url) const;
    void write(const std::string& url, const std::string& name, const BarPlace& place);
    void ask(const std::string& url, const std::string& name, const BarPlace& place);
    bool isAt(const std::string& url, const BarPlace& place) const;
    void lookAt(const std::string& url, const Request& request);
    void look();

    ContextReference context_;
    std::map<std::string, Request> requests_;
    std::shared_ptr<Watch> watch_;
    com::sun::star::uno::Reference<com::sun::star::container::XNameContainer> states_;
};

}  // namespace huebrush::libreoffice
