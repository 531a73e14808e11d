// SPDX-License-Identifier: MPL-2.0

#include <algorithm>
#include <random>

#include "recolor/Dialog_test_support.h"

namespace huebrush::recolor {
namespace {

using base::text;

/// A user who does whatever comes to mind, also while the dialog works, shows a menu or a box, or
/// has a tool of the host open. Equal seeds do the same.
class RandomUser {
 public:
    explicit RandomUser(std::uint32_t seed) : random_(seed) {
        open();
        test.runtime.onPump = [this](std::size_t) { interfere(); };
        test.runtime.onBox = [this] { interfere(); };
        test.runtime.onMenu = [this] { pick(); };
        for (const std::int32_t id : {960, 1006, 1051}) {
            test.application.tools[id] = [this](memory::MemoryShape& shape) {
                shape.fill.ForeColorRGB = below(5);
                shape.fill.Visible =
                    below(4) == 0 ? host::MsoTriState::msoFalse : host::MsoTriState::msoTrue;
                interfere();
                return below(2) - 1;
            };
        }
    }
    RandomUser(const RandomUser&) = delete;
    RandomUser& operator=(const RandomUser&) = delete;
    ~RandomUser() {
        if (dialog) dialog->Unload();
    }

    /// What the user does next. Input that the dialog does not take is not made, and is no action.
    bool act() {
        struct Action {
            const char* name;
            void (RandomUser::*act)();
        };
        static constexpr Action kActions[] = {
            {"add", &RandomUser::add},
            {"add", &RandomUser::add},
            {"tick", &RandomUser::tick},
            {"tick", &RandomUser::tick},
            {"select all", &RandomUser::all},
            {"choose a view", &RandomUser::view},
            {"recolour", &RandomUser::recolour},
            {"move", &RandomUser::move},
            {"key", &RandomUser::key},
            {"tab", &RandomUser::tab},
            {"drag", &RandomUser::drag},
            {"drag beside", &RandomUser::dragBeside},
            {"remove", &RandomUser::remove},
            {"fill menu", &RandomUser::fillMenu},
            {"fill menu", &RandomUser::fillMenu},
            {"scroll", &RandomUser::scroll},
            {"resize", &RandomUser::resize},
            {"minimise", &RandomUser::minimise},
            {"logo", &RandomUser::logo},
            {"close", &RandomUser::close},
            {"delete a shape", &RandomUser::deleteShape},
            {"another document", &RandomUser::anotherDocument},
        };
        const Action& action = kActions[static_cast<std::size_t>(below(std::size(kActions)))];
        history.push_back(text(std::string(static_cast<std::size_t>(depth_), '>'), action.name));
        const std::size_t entry = history.size() - 1;
        bool acted = true;
        try {
            (this->*action.act)();
        } catch (const memory::ImpossibleInput&) {
            history[entry] += " (impossible)";
            acted = false;
        }
        if (!dialog && depth_ == 0) open();
        return acted;
    }

    std::string lastActions() const {
        std::string all;
        const std::size_t first = history.size() > 12 ? history.size() - 12 : 0;
        for (std::size_t i = first; i < history.size(); ++i) all += "\n" + history[i];
        return all;
    }

    memory::TestHost test;
    std::shared_ptr<frmEditGraphic> dialog;
    std::vector<std::string> history;
    /// All dialogs, fills and groups that there have been.
    std::vector<std::weak_ptr<void>> made;

 private:
    std::int32_t below(std::size_t count) {
        return static_cast<std::int32_t>(random_() % static_cast<std::uint32_t>(count));
    }
    std::int16_t anyRow() {
        return static_cast<std::int16_t>(1 + below(static_cast<std::size_t>(rows()) + 1));
    }
    std::int16_t rows() const { return dialog->Element.ubound(); }
    memory::Driver user() const {
        if (!dialog) throw memory::ImpossibleInput("There is no dialog");
        return memory::Driver(*dialog);
    }
    /// The row, or none that a user can reach.
    ColorElement& row(std::int16_t index) const {
        if (!dialog || index > rows()) throw memory::ImpossibleInput("There is no such row");
        return dialog->Element[index];
    }

    /// Something happens while the dialog waits.
    void interfere() {
        constexpr int kDeepest = 2;
        if (depth_ >= kDeepest || below(6) != 0) return;
        ++depth_;
        act();
        --depth_;
    }
    void open() {
        dialog = frmEditGraphic::create();
        dialog->connect(test.application);
        dialog->Unloaded.connect([this] { dialog.reset(); });
        made.push_back(dialog);
    }

    void add() {
        user();
        if (rows() > 40) return;
        if (test.document->closed) anotherDocument();
        test.document->selected.clear();
        for (std::int32_t i = below(6); i >= 0; --i) {
            const auto shape = test.document->addSolid("Shape", below(5));
            test.document->selected.push_back(shape);
        }
        user().click(dialog->cmdAdd);
        for (std::int16_t i = 1; dialog && i <= rows(); ++i) {
            made.push_back(row(i).fillReference());
            made.push_back(std::const_pointer_cast<ShapeGroup>(row(i).ElementsGroup()));
        }
    }
    void tick() { user().click(row(anyRow()).chkSelect); }
    void all() { user().click(dialog->chkSelAll); }
    void view() {
        user();
        user().click(*dialog->optView[static_cast<std::size_t>(below(3))]);
    }
    void recolour() {
        user();
        user().click(dialog->cmdDiscolour);
    }
    void move() {
        user();
        user().click(below(2) == 0 ? dialog->nfbUP : dialog->nfbDown);
    }
    void key() {
        static constexpr std::int16_t kKeys[] = {forms::KeyCode::kUp, forms::KeyCode::kDown,
                                                 forms::KeyCode::kDelete, forms::KeyCode::kBack};
        user().key(kKeys[below(std::size(kKeys))], static_cast<std::int16_t>(below(3)));
    }
    void tab() {
        if (below(2) == 0) {
            user().tab();
        } else {
            user().shiftTab();
        }
    }
    void drag() {
        ColorElement& from = row(anyRow());
        const std::vector<forms::Control*> over{&row(anyRow()), &row(anyRow())};
        user().click(from.chkSelect);
        user().drag([&] { from.grab(); }, over);
    }
    void dragBeside() {
        ColorElement& from = row(anyRow());
        user().click(from.chkSelect);
        user().drag([&] { from.grab(); }, {});
    }
    /// A menu is open.
    void pick() {
        const std::vector<memory::ShownMenu::Item> items = test.runtime.menus.back().items;
        interfere();
        test.runtime.picks.clear();
        const auto item = static_cast<std::size_t>(below(items.size() + 1));
        if (item < items.size()) test.runtime.picks = {items[item].caption};
    }
    void remove() {
        user();
        user().click(dialog->cmdRemove);
    }
    void fillMenu() { user().click(row(anyRow()).cmdChangeDes); }
    void scroll() {
        user();
        user().scrollTo(dialog->vs, below(40000));
    }
    void resize() { user().resize(below(12000), below(12000)); }
    void minimise() {
        user();
        dialog->WindowState = forms::WindowState::minimized;
        resize();
        if (dialog) dialog->WindowState = forms::WindowState::normal;
        resize();
    }
    void logo() {
        user();
        user().moveMouse(dialog->imgQXLogo, static_cast<float>(below(900)), 210);
        user().click(dialog->imgQXLogo);
    }
    void close() {
        if (below(4) == 0) user().close();
    }
    void deleteShape() {
        if (test.document->shapes.empty()) return;
        test.document->remove(
            test.document->shapes[static_cast<std::size_t>(below(test.document->shapes.size()))]);
    }
    void anotherDocument() {
        if (below(2) == 0 && !test.document->closed) test.document->Close();
        test.document = test.application.open("Another");
    }

    std::mt19937 random_;
    int depth_ = 0;
};

/// What holds whenever the dialog waits for its user.
void check(frmEditGraphic& dialog) {
    std::int32_t selected = 0;
    const ColorElement* focused = nullptr;
    for (std::int16_t i = 1; i <= dialog.Element.ubound(); ++i) {
        const ColorElement& row = dialog.Element[i];
        EXPECT_EQ(row.index(), i);
        if (row.SelectValue() != 0) ++selected;
        if (!row.shpFocus.Visible) continue;
        EXPECT_EQ(focused, nullptr) << "two rows show the focus";
        focused = &row;
    }
    EXPECT_EQ(dialog.ActiveElement(), focused);
    EXPECT_EQ(dialog.nfbUP.Enabled.get(), focused != nullptr);
    EXPECT_EQ(dialog.nfbDown.Enabled.get(), focused != nullptr);
    if (focused != nullptr) {
        ASSERT_NE(dialog.focused(), nullptr);
        EXPECT_TRUE(focused->contains(*dialog.focused()));
    }
    EXPECT_EQ(dialog.selectedCount(), selected);
    EXPECT_EQ(dialog.cmdDiscolour.Caption.get(),
              selected == 0 ? "Pře&barvit" : text("Pře&barvit (", selected, ")"));
    EXPECT_GE(dialog.vs.value(), 0);
    EXPECT_LE(dialog.vs.value(), dialog.vs.Max);
    EXPECT_EQ(dialog.picElementGroup.Top.get(), -dialog.vs.value());
    for (const double size : {dialog.picMain.Height.get(), dialog.vs.Height.get(),
                              dialog.frameMain.Height.get(), dialog.imgHorn.Top.get()}) {
        EXPECT_GE(size, 0);
    }
}

/// A refresh packs the rows of the view, whatever happened before.
void checkPacked(frmEditGraphic& dialog) {
    const auto view = static_cast<std::size_t>(std::stoi(dialog.optView0.Tag.get()));
    memory::Driver(dialog).click(*dialog.optView[view]);
    double top = 0;
    for (std::int16_t i = 1; i <= dialog.Element.ubound(); ++i) {
        const ColorElement& row = dialog.Element[i];
        EXPECT_EQ(row.Visible.get(), view == 0 || (view == 1) == (row.SelectValue() != 0));
        if (!row.Visible) continue;
        EXPECT_EQ(row.Top.get(), top);
        top += row.Height;
    }
    EXPECT_EQ(dialog.picElementGroup.Height.get(), top);
}

class RandomActionsTest : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomActionsTest, LeaveTheDialogWholeAndNothingBehind) {
    constexpr int kActions = 1000;
    std::vector<std::weak_ptr<void>> made;
    {
        RandomUser user(GetParam());
        for (int action = 0; action < kActions;) {
            if (user.act()) ++action;
            SCOPED_TRACE(text("seed ", GetParam(), ", action ", action, user.lastActions()));
            EXPECT_TRUE(user.test.unhandled.empty());
            check(*user.dialog);
            if (action % 10 == 0) checkPacked(*user.dialog);
            if (HasFailure()) break;
        }
        made = user.made;
    }
    for (const auto& object : made) EXPECT_TRUE(object.expired());
    EXPECT_GT(made.size(), 100U);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomActionsTest, ::testing::Range(1U, 9U));

}  // namespace
}  // namespace huebrush::recolor
