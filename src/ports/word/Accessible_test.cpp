// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/Accessible.h"

#include <gtest/gtest.h>

#include <oleacc.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Error.h"
#include "forms/UserControl.h"
#include "ports/word/WindowsPort_test_support.h"
#include "ports/word/com/Pointer.h"
#include "ports/word/com/Text.h"
#include "ports/word/com/Variant.h"

namespace huebrush::word {
namespace {

using Names = std::vector<std::string>;

/// One button to the user, painted.
class PaintedButton final : public forms::UserControl {
 public:
    using UserControl::UserControl;
    const std::string* buttonCaption() const override { return &caption; }
    void press() override { pressed(); }
    void WriteProperties(forms::PropertyBag&) const override {}
    void ReadProperties(const forms::PropertyBag&) override {}

    std::string caption = "Nahoru";
    base::Event<> pressed;
};

class ReadForm final : public forms::Form {
 public:
    ReadForm() : Form("ReadForm") {
        Caption = std::string("Form");
        Move(0, 0, 6000, 4500);
        label.Move(100, 100, 1500, 300);
        label.Caption = std::string("Žluťoučký kůň");
        label.ToolTipText = std::string("tip");
        picture.Move(100, 500, 600, 600);
        picture.ToolTipText = std::string("Náhled");
        button.Move(1000, 500, 600, 600);
        box.Move(2200, 100, 1500, 300);
        box.Caption = std::string("Box");
        list.Move(100, 1500, 3000, 1500);
        list.ToolTipText = std::string("List");
        row.Move(150, 100, 1500, 300);
        row.Caption = std::string("Row");
        nobody.Move(3500, 3500, 300, 300);
    }
    forms::Label label{*this, "label"};
    forms::Image picture{*this, "picture"};
    PaintedButton button{*this, "button"};
    forms::CheckBox box{*this, "box"};
    forms::PictureBox list{*this, "list"};
    forms::Label row{list, "row"};
    forms::Image nobody{*this, "nobody"};
};

VARIANT child(LONG number) {
    VARIANT which{};
    which.vt = VT_I4;
    which.lVal = number;
    return which;
}

Pointer<IAccessible> objectOf(HWND window, LONG what = OBJID_CLIENT) {
    Pointer<IAccessible> object;
    ::AccessibleObjectFromWindow(window, static_cast<DWORD>(what), IID_IAccessible,
                                 object.outAny());
    return object;
}

std::string nameOf(IAccessible& object, LONG number = CHILDID_SELF) {
    BSTR name = nullptr;
    object.get_accName(child(number), &name);
    const std::string text = textOf(name);
    ::SysFreeString(name);
    return text;
}

template <class Get>
LONG numberFrom(const Get& get) {
    VARIANT value{};
    EXPECT_EQ(get(&value), S_OK);
    EXPECT_EQ(value.vt, VT_I4);
    return value.lVal;
}

LONG roleOf(IAccessible& object, LONG number) {
    return numberFrom([&](VARIANT* role) { return object.get_accRole(child(number), role); });
}

LONG stateOf(IAccessible& object, LONG number) {
    return numberFrom([&](VARIANT* state) { return object.get_accState(child(number), state); });
}

RECT locationOf(IAccessible& object, LONG number) {
    LONG left = 0;
    LONG top = 0;
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(object.accLocation(&left, &top, &width, &height, child(number)), S_OK);
    return {left, top, left + width, top + height};
}

/// The children as readers get them.
std::vector<Variant> childrenOf(IAccessible& object) {
    LONG count = 0;
    EXPECT_EQ(object.get_accChildCount(&count), S_OK);
    std::vector<VARIANT> got(static_cast<std::size_t>(count));
    LONG given = 0;
    if (count > 0) {
        EXPECT_EQ(::AccessibleChildren(&object, 0, count, got.data(), &given), S_OK);
    }
    EXPECT_EQ(given, count);
    std::vector<Variant> children(got.size());
    for (std::size_t i = 0; i < got.size(); ++i) *children[i].out() = got[i];
    return children;
}

Pointer<IAccessible> objectFrom(const Variant& value) {
    if (value.get().vt != VT_DISPATCH) return {};
    return Pointer<IDispatch>::share(value.get().pdispVal).as<IAccessible>(IID_IAccessible);
}

class AccessibleTest : public testing::Test {
 protected:
    AccessibleTest() {
        port.runtime().UnhandledError.connect(
            [this](const base::Error& error) { unhandled.push_back(error.number()); });
    }
    ~AccessibleTest() override {
        if (form) form->Unload();
        EXPECT_TRUE(unhandled.empty());
    }
    void show() {
        form->Show();
        port.settle();
    }
    HWND surface() { return ::GetWindow(port.windowOf(*form), GW_CHILD); }
    Pointer<IAccessible> object() { return objectOf(surface()); }
    /// The number of a painted part; 0 for none of that name.
    static LONG find(IAccessible& object, const std::string& name) {
        for (const Variant& each : childrenOf(object)) {
            if (each.get().vt == VT_I4 && nameOf(object, each.get().lVal) == name) {
                return each.get().lVal;
            }
        }
        return CHILDID_SELF;
    }

    WindowsPort port;
    forms::RuntimeScope scope{port.runtime()};
    std::shared_ptr<ReadForm> form = std::make_shared<ReadForm>();
    std::vector<std::int32_t> unhandled;
};

TEST_F(AccessibleTest, WhatIsPaintedHasNamesRolesAndPlaces) {
    show();
    const auto read = object();
    ASSERT_TRUE(read);
    EXPECT_EQ(nameOf(*read), "Form");
    EXPECT_EQ(roleOf(*read, CHILDID_SELF), ROLE_SYSTEM_CLIENT);
    Names names;
    for (const Variant& each : childrenOf(*read)) {
        if (each.get().vt == VT_I4) names.push_back(nameOf(*read, each.get().lVal));
    }
    EXPECT_EQ(names, (Names{"Nahoru", "Náhled", "Žluťoučký kůň"}));
    const LONG label = find(*read, "Žluťoučký kůň");
    const LONG picture = find(*read, "Náhled");
    const LONG button = find(*read, "Nahoru");
    EXPECT_EQ(roleOf(*read, label), ROLE_SYSTEM_STATICTEXT);
    EXPECT_EQ(roleOf(*read, picture), ROLE_SYSTEM_GRAPHIC);
    EXPECT_EQ(roleOf(*read, button), ROLE_SYSTEM_PUSHBUTTON);
    BSTR description = nullptr;
    EXPECT_EQ(read->get_accDescription(child(label), &description), S_OK);
    EXPECT_EQ(textOf(description), "tip");
    ::SysFreeString(description);
    for (const auto& [control, number] : std::vector<std::pair<forms::Control*, LONG>>{
             {&form->label, label}, {&form->picture, picture}, {&form->button, button}}) {
        const RECT place = port.placeOf(*control);
        const RECT location = locationOf(*read, number);
        EXPECT_NE(::EqualRect(&place, &location), FALSE) << control->name();
    }
}

TEST_F(AccessibleTest, WindowsOnASurfaceAreChildrenWithObjectsOfTheirOwn) {
    form->box.Value = forms::CheckValue::kTicked;
    show();
    const auto read = object();
    std::vector<HWND> windows;
    for (const Variant& each : childrenOf(*read)) {
        const auto inside = objectFrom(each);
        if (!inside) continue;
        HWND window = nullptr;
        EXPECT_EQ(::WindowFromAccessibleObject(inside.get(), &window), S_OK);
        windows.push_back(window);
    }
    ASSERT_EQ(windows.size(), 2U) << "the picture box, and the check box";
    EXPECT_EQ(windows[1], WindowsPort::nativeOf(form->box));
    const auto list = objectOf(windows[0]);
    ASSERT_TRUE(list);
    EXPECT_EQ(nameOf(*list), "List");
    EXPECT_EQ(roleOf(*list, CHILDID_SELF), ROLE_SYSTEM_GROUPING);
    EXPECT_NE(find(*list, "Row"), CHILDID_SELF);
    Pointer<IDispatch> parent;
    EXPECT_EQ(list->get_accParent(parent.out()), S_OK);
    EXPECT_TRUE(parent);
}

TEST_F(AccessibleTest, AReaderFindsTheSurfacesFromTheFormsWindow) {
    show();
    const auto outer = objectOf(port.windowOf(*form));
    ASSERT_TRUE(outer);
    HWND found = nullptr;
    for (const Variant& each : childrenOf(*outer)) {
        if (const auto inside = objectFrom(each)) {
            EXPECT_EQ(::WindowFromAccessibleObject(inside.get(), &found), S_OK);
        }
    }
    EXPECT_EQ(found, surface());
}

TEST_F(AccessibleTest, StatesFollowTheControls) {
    show();
    const auto read = object();
    const LONG label = find(*read, "Žluťoučký kůň");
    const LONG button = find(*read, "Nahoru");
    EXPECT_EQ(stateOf(*read, label), STATE_SYSTEM_READONLY);
    EXPECT_EQ(stateOf(*read, button), 0);
    form->button.Enabled = false;
    EXPECT_EQ(stateOf(*read, button), STATE_SYSTEM_UNAVAILABLE);
    form->button.Enabled = true;
    form->button.Left = 20000.0;
    EXPECT_EQ(stateOf(*read, button), STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN);
    EXPECT_EQ(nameOf(*read, button), "Nahoru") << "its number stays its own";
    EXPECT_EQ(find(*read, "Nahoru"), CHILDID_SELF) << "but it is not listed";
    form->button.Visible = false;
    EXPECT_EQ(stateOf(*read, button), STATE_SYSTEM_INVISIBLE);
    VARIANT state{};
    EXPECT_EQ(read->get_accState(child(999), &state), E_INVALIDARG);
}

TEST_F(AccessibleTest, APlaceOnTheScreenHasItsUppermostPart) {
    show();
    const auto read = object();
    const auto hitAt = [&](const RECT& place) {
        Variant hit;
        read->accHitTest((place.left + place.right) / 2, (place.top + place.bottom) / 2, hit.out());
        return hit;
    };
    const Variant picture = hitAt(port.placeOf(form->picture));
    ASSERT_EQ(picture.get().vt, VT_I4);
    EXPECT_EQ(nameOf(*read, picture.get().lVal), "Náhled");
    EXPECT_TRUE(objectFrom(hitAt(port.placeOf(form->box))));
    const Variant free = hitAt(port.placeOf(form->nobody));
    ASSERT_EQ(free.get().vt, VT_I4);
    EXPECT_EQ(free.get().lVal, CHILDID_SELF);
    EXPECT_EQ(hitAt({-500, -500, -400, -400}).get().vt, VT_EMPTY);
}

TEST_F(AccessibleTest, PartsFollowOneAnother) {
    show();
    const auto read = object();
    Variant last;
    EXPECT_EQ(read->accNavigate(NAVDIR_LASTCHILD, child(CHILDID_SELF), last.out()), S_OK);
    EXPECT_EQ(nameOf(*read, last.get().lVal), "Žluťoučký kůň");
    Variant before;
    EXPECT_EQ(read->accNavigate(NAVDIR_PREVIOUS, child(last.get().lVal), before.out()), S_OK);
    EXPECT_EQ(nameOf(*read, before.get().lVal), "Náhled");
    Variant after;
    EXPECT_EQ(read->accNavigate(NAVDIR_NEXT, child(before.get().lVal), after.out()), S_OK);
    EXPECT_EQ(after.get().lVal, last.get().lVal);
    EXPECT_EQ(read->accNavigate(NAVDIR_NEXT, child(last.get().lVal), after.out()), S_FALSE);
    EXPECT_EQ(after.get().vt, VT_EMPTY);
}

TEST_F(AccessibleTest, TheFocusIsInTheWindowThatHasIt) {
    show();
    form->box.SetFocus();
    port.waitUntil([&] { return ::GetFocus() == WindowsPort::nativeOf(form->box); }, "the focus");
    const auto read = object();
    Variant focused;
    EXPECT_EQ(read->get_accFocus(focused.out()), S_OK);
    HWND window = nullptr;
    ASSERT_TRUE(objectFrom(focused));
    EXPECT_EQ(::WindowFromAccessibleObject(objectFrom(focused).get(), &window), S_OK);
    EXPECT_EQ(window, WindowsPort::nativeOf(form->box));
}

TEST_F(AccessibleTest, APartIsPressedAfterTheCallAndOnlyWhileItIsUsable) {
    int presses = 0;
    form->button.pressed.connect([&] { ++presses; });
    show();
    const auto read = object();
    const LONG button = find(*read, "Nahoru");
    BSTR action = nullptr;
    EXPECT_EQ(read->get_accDefaultAction(child(button), &action), S_OK);
    EXPECT_EQ(textOf(action), "Stisknout");
    ::SysFreeString(action);
    EXPECT_EQ(read->accDoDefaultAction(child(button)), S_OK);
    EXPECT_EQ(presses, 0) << "not inside the call";
    port.settle();
    EXPECT_EQ(presses, 1);
    EXPECT_NE(read->accDoDefaultAction(child(find(*read, "Náhled"))), S_OK);
    form->button.Enabled = false;
    EXPECT_NE(read->accDoDefaultAction(child(button)), S_OK);
    port.settle();
    EXPECT_EQ(presses, 1);
}

TEST_F(AccessibleTest, APressThatEndsTheFormIsHarmless) {
    form->button.pressed.connect([&] { form->Unload(); });
    show();
    const auto read = object();
    EXPECT_EQ(read->accDoDefaultAction(child(find(*read, "Nahoru"))), S_OK);
    EXPECT_EQ(read->accDoDefaultAction(child(find(*read, "Nahoru"))), S_OK);
    port.settle();
    EXPECT_EQ(port.windowOf(*form), nullptr);
}

TEST_F(AccessibleTest, AnObjectThatOutlivesTheFormSaysSo) {
    show();
    const auto read = object();
    const LONG label = find(*read, "Žluťoučký kůň");
    Pointer<IEnumVARIANT> list = read.as<IEnumVARIANT>(IID_IEnumVARIANT);
    ASSERT_TRUE(list);
    form->Unload();
    form.reset();
    port.settle();
    BSTR name = nullptr;
    LONG count = 0;
    VARIANT value{};
    EXPECT_EQ(read->get_accName(child(label), &name), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(read->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(read->accHitTest(0, 0, &value), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(read->accDoDefaultAction(child(label)), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(list->Next(1, &value, nullptr), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(name, nullptr);
}

}  // namespace
}  // namespace huebrush::word
