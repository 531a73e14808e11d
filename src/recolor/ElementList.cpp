// SPDX-License-Identifier: MPL-2.0

#include "recolor/ElementList.h"

#include <utility>

namespace huebrush::recolor {

ElementList::ElementList(Rows& rows, Exchange exchange)
    : rows_(rows), exchange_(std::move(exchange)) {}

void ElementList::exchangeContents(ColorElement& first, ColorElement& second) {
    const auto fill = first.fillReference();
    const base::Picture destination = first.DestinationPicture();
    const base::Picture source = first.SourcePicture();
    const auto group = first.ElementsGroup();
    const std::int16_t selected = first.SelectValue();
    const auto give = [](ColorElement& row, const auto& newFill, const base::Picture& newDes,
                         const base::Picture& newSource, const auto& newGroup,
                         std::int16_t newSelected) {
        row.setFillObject(newFill);
        row.setDestinationPicture(newDes);
        row.setSourcePicture(newSource);
        row.setElementsGroup(newGroup);
        row.setSelectValue(newSelected);
    };
    give(first, second.fillReference(), second.DestinationPicture(), second.SourcePicture(),
         second.ElementsGroup(), second.SelectValue());
    give(second, fill, destination, source, group, selected);
}

void ElementList::exchange(std::int32_t first, std::int32_t second) {
    exchange_(rows_[static_cast<std::int16_t>(first)], rows_[static_cast<std::int16_t>(second)]);
}

base::Count16 ElementList::selectedCount() const {
    base::Count16 count;
    for (std::int16_t i = 1; i <= rows_.ubound(); ++i) {
        if (rows_[i].isSelected()) ++count;
    }
    return count;
}

bool ElementList::anyChanged() const {
    for (std::int16_t i = 1; i <= rows_.ubound(); ++i) {
        if (rows_[i].FillObject().Change()) return true;
    }
    return false;
}

void ElementList::select(std::int16_t value) {
    for (std::int16_t i = 1; i <= rows_.ubound(); ++i) rows_[i].setSelectValue(value);
}

ColorElement* ElementList::moveBy(std::int16_t from, std::int16_t step) {
    const std::int16_t last = rows_.ubound();
    for (std::int32_t to = from + step; to >= 1 && to <= last; to += step) {
        ColorElement& target = rows_[static_cast<std::int16_t>(to)];
        if (!target.Visible) continue;
        exchange(from, to);
        return &target;
    }
    return nullptr;
}

void ElementList::moveTo(std::int16_t from, std::int16_t to) {
    const std::int32_t step = from < to ? 1 : -1;
    for (std::int32_t at = from; at != to; at += step) exchange(at, at + step);
}

void ElementList::remove(std::int16_t index) {
    const std::int16_t last = rows_.ubound();
    for (std::int32_t at = index; at < last; ++at) exchange(at, at + 1);
    rows_.Unload(last);
}

void ElementList::removeWith(std::int16_t selectValue) {
    for (std::int16_t i = 1; i <= rows_.ubound();) {
        if (rows_[i].SelectValue() == selectValue) {
            remove(i);
        } else {
            ++i;
        }
    }
}

void ElementList::removeAll() {
    for (std::int16_t i = rows_.ubound(); i >= 1; --i) rows_.Unload(i);
}

}  // namespace huebrush::recolor
