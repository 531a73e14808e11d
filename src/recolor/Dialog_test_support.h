// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "base/Text.h"
#include "ports/memory/Driver.h"
#include "ports/memory/TestHost.h"
#include "recolor/frmEditGraphic.h"

namespace huebrush::recolor {

/// The recolour dialog on the memory port, with a user at it. Rows are distinguished by the colour
/// of their current fill.
class DialogTest : public ::testing::Test {
 public:
    DialogTest() { dialog->connect(test.application); }
    DialogTest(const DialogTest&) = delete;
    DialogTest& operator=(const DialogTest&) = delete;
    ~DialogTest() override {
        EXPECT_TRUE(test.unhandled.empty());
        if (dialog) dialog->Unload();
    }

 protected:
    using Colors = std::vector<std::int32_t>;
    using Names = std::vector<std::string>;

    ColorElement& row(std::int16_t index) { return dialog->Element[index]; }
    std::int16_t rowCount() const { return dialog->Element.ubound(); }

    /// Scans what is selected now, and forgets the box with the result.
    void scan() {
        user.click(dialog->cmdAdd);
        test.runtime.boxes.clear();
    }
    /// One shape and one row a colour, with as many rows as before above them.
    void addRows(const Colors& colors) {
        std::vector<memory::MemoryShapePointer> shapes;
        for (const std::int32_t color : colors) {
            shapes.push_back(test.document->addSolid(base::text("Shape ", ++shapesMade_), color));
        }
        test.document->select(shapes);
        scan();
    }
    /// Rows of the colours 1 … count.
    void addRows(std::int32_t count) {
        Colors colors;
        for (std::int32_t color = 1; color <= count; ++color) colors.push_back(color);
        addRows(colors);
    }
    void tick(std::initializer_list<int> rows) {
        for (const int each : rows) {
            user.click(row(static_cast<std::int16_t>(each)).chkSelect);
        }
    }

    /// The rows' colours in their order.
    Colors order() const {
        Colors colors;
        for (std::int16_t i = 1; i <= rowCount(); ++i) {
            colors.push_back(dialog->Element[i].FillObject().original().ForeColorRGB);
        }
        return colors;
    }
    /// The indices of the rows that the view shows.
    Colors shown() const {
        Colors indices;
        for (std::int16_t i = 1; i <= rowCount(); ++i) {
            if (dialog->Element[i].Visible) indices.push_back(i);
        }
        return indices;
    }
    Colors selectValues() const {
        Colors values;
        for (std::int16_t i = 1; i <= rowCount(); ++i) {
            values.push_back(dialog->Element[i].SelectValue());
        }
        return values;
    }
    std::int16_t activeIndex() const {
        return dialog->ActiveElement() == nullptr ? std::int16_t{0}
                                                  : dialog->ActiveElement()->index();
    }
    /// The only box shown, or none, as "title: first line".
    std::string onlyBox() const {
        if (test.runtime.boxes.size() != 1) {
            return base::text(test.runtime.boxes.size(), " boxes");
        }
        const auto& box = test.runtime.boxes[0];
        return base::text(box.title, ": ", box.text.substr(0, box.text.find("\r\n")));
    }
    static std::string reported(const std::string& number, const std::string& procedure) {
        return base::text("Chyba č. ", number, ": Chyba v modulu \"Huebrush.frmEditGraphic.",
                          procedure, "\"...");
    }

    memory::TestHost test;
    int abouts = 0;
    /// What happens while the about box is open.
    std::function<void()> onAbout;
    std::shared_ptr<frmEditGraphic> dialog = frmEditGraphic::create([this] {
        ++abouts;
        if (onAbout) onAbout();
    });
    memory::Driver user{*dialog};

 private:
    int shapesMade_ = 0;
};

}  // namespace huebrush::recolor
