// SPDX-License-Identifier: MPL-2.0

#include "ports/word/window/Accessible.h"

#include <oleacc.h>

#include <algorithm>
#include <string>

#include "forms/Controls.h"
#include "ports/word/com/Counted.h"
#include "ports/word/com/Pointer.h"
#include "ports/word/com/Text.h"
#include "ports/word/window/Surface.h"
#include "ports/word/window/native/Native.h"
#include "view/Accessibility.h"

namespace huebrush::word {

namespace {

using Part = SurfaceReading::Part;

/// The action of whatever can be pressed.
constexpr const char* kPress = "Stisknout";

/// The interfaces of an object that also lists its parts.
class Described : public IAccessible, public IEnumVARIANT {
 protected:
    ~Described() = default;
};

LONG roleOf(const Part& part) {
    const auto role = view::partRoleOf(*part.control);
    if (!role) {
        if (part.number != CHILDID_SELF) return ROLE_SYSTEM_WINDOW;
        return part.control->container() == nullptr ? ROLE_SYSTEM_CLIENT : ROLE_SYSTEM_GROUPING;
    }
    switch (*role) {
        case view::PartRole::text:
            return ROLE_SYSTEM_STATICTEXT;
        case view::PartRole::picture:
            return ROLE_SYSTEM_GRAPHIC;
        case view::PartRole::button:
            return ROLE_SYSTEM_PUSHBUTTON;
        case view::PartRole::group:
            break;
    }
    return ROLE_SYSTEM_GROUPING;
}

LONG stateOf(const Part& part) {
    const forms::Control& control = *part.control;
    LONG state = 0;
    if (!part.shown) state |= STATE_SYSTEM_INVISIBLE;
    // There, but scrolled away.
    if (!part.shown && control.isShown()) state |= STATE_SYSTEM_OFFSCREEN;
    if (control.isShown() && !control.isUsable()) state |= STATE_SYSTEM_UNAVAILABLE;
    const auto role = view::partRoleOf(control);
    if (role == view::PartRole::text || role == view::PartRole::picture) {
        state |= STATE_SYSTEM_READONLY;
    }
    const auto* const image = dynamic_cast<const forms::Image*>(&control);
    if (image != nullptr && image->DragDrop.connected()) state |= STATE_SYSTEM_MOVEABLE;
    return state;
}

/// Whether a press would be heard now: nothing is while a box has taken the input.
bool canBePressed(const Part& part, HWND window) {
    return view::isPressable(*part.control) && part.control->isUsable() &&
           ::IsWindowEnabled(::GetAncestor(window, GA_ROOT)) != FALSE;
}

void setNumber(VARIANT& value, LONG number) {
    value.vt = VT_I4;
    value.lVal = number;
}

HRESULT giveText(const std::string& text, BSTR* given) {
    if (text.empty()) return S_FALSE;
    *given = Text(text).release();
    return S_OK;
}

/// The object of a window, with its frame, as the system or the window itself describes it.
HRESULT objectOf(HWND window, IDispatch** object) {
    return ::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_WINDOW),
                                        __uuidof(IDispatch), reinterpret_cast<void**>(object));
}

/// A part as a child: an object where it is a window, or else its number.
HRESULT giveChild(SurfaceReading& reading, const Part& part, VARIANT& child) {
    const HWND window = reading.windowOf(part);
    if (window == nullptr) {
        setNumber(child, part.number);
        return S_OK;
    }
    IDispatch* object = nullptr;
    const HRESULT found = objectOf(window, &object);
    if (FAILED(found)) return found;
    child.vt = VT_DISPATCH;
    child.pdispVal = object;
    return S_OK;
}

/// One object for each reader that asks, since each walks the list at its own pace.
class Accessible final : public CountedDispatch<Accessible, Described> {
 public:
    explicit Accessible(std::shared_ptr<SurfaceReading> reading, std::size_t next = 0)
        : reading_(std::move(reading)), next_(next) {}

    static bool answersTo(REFIID id) {
        return id == IID_IDispatch || id == IID_IAccessible || id == IID_IEnumVARIANT;
    }
    void* interfaceFor(REFIID id) {
        if (id == IID_IEnumVARIANT) return static_cast<IEnumVARIANT*>(this);
        return static_cast<IAccessible*>(this);
    }

    // Readers call what is declared here, and nothing by name.
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        return ask(parent, [&] { return objectOf(reading_->window(), parent); });
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        return ask(count, [&] {
            *count = static_cast<LONG>(reading_->parts().size());
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT which, IDispatch** child) override {
        return askOf(which, child, [&](const Part& part) {
            if (part.number == CHILDID_SELF) return E_INVALIDARG;
            const HWND window = reading_->windowOf(part);
            return window == nullptr ? S_FALSE : objectOf(window, child);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT which, BSTR* name) override {
        return askOf(which, name,
                     [&](const Part& part) { return giveText(view::nameOf(*part.control), name); });
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT which, BSTR* description) override {
        return askOf(which, description, [&](const Part& part) {
            return giveText(view::descriptionOf(*part.control), description);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT which, VARIANT* role) override {
        return askOf(which, role, [&](const Part& part) {
            setNumber(*role, roleOf(part));
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT which, VARIANT* state) override {
        return askOf(which, state, [&](const Part& part) {
            setNumber(*state, stateOf(part));
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT which, BSTR* action) override {
        return askOf(which, action, [&](const Part& part) {
            if (!view::isPressable(*part.control)) return S_FALSE;
            return giveText(kPress, action);
        });
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT which) override {
        return enterAbout(which, [&](const Part& part) {
            if (!canBePressed(part, reading_->window())) return DISP_E_MEMBERNOTFOUND;
            const view::ControlPeer* const peer = view::ControlPeer::of(part.control);
            if (peer == nullptr) return CO_E_OBJNOTCONNECTED;
            reading_->site().post([pressed = peer->reference()] {
                if (pressed->control != nullptr) view::pressPart(*pressed->control);
            });
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT which) override {
        if (left == nullptr || top == nullptr || width == nullptr || height == nullptr) {
            return E_POINTER;
        }
        return askOf(which, left, [&](const Part& part) {
            POINT corner{part.place.left, part.place.top};
            ::ClientToScreen(reading_->window(), &corner);
            *left = corner.x;
            *top = corner.y;
            *width = part.place.width;
            *height = part.place.height;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* hit) override {
        return ask(hit, [&] { return hitTest({x, y}, *hit); });
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG where, VARIANT start, VARIANT* end) override {
        return askOf(start, end, [&](const Part& part) { return navigate(where, part, *end); });
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* focused) override {
        return ask(focused, [&] { return findFocus(*focused); });
    }

    // What nothing that is painted has.
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT which, BSTR* value) override {
        return askOf(which, value, [](const Part&) { return DISP_E_MEMBERNOTFOUND; });
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT which, BSTR* help) override {
        return askOf(which, help, [](const Part&) { return DISP_E_MEMBERNOTFOUND; });
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT which, LONG*) override {
        return askOf(which, file, [](const Part&) { return DISP_E_MEMBERNOTFOUND; });
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT which, BSTR* keys) override {
        return askOf(which, keys, [](const Part&) { return DISP_E_MEMBERNOTFOUND; });
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* selected) override {
        return ask(selected, [] { return DISP_E_MEMBERNOTFOUND; });
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG, VARIANT which) override {
        return enterAbout(which, [](const Part&) { return DISP_E_MEMBERNOTFOUND; });
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

    // The list of the parts.
    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* children, ULONG* given) override {
        if (given != nullptr) *given = 0;
        if (children == nullptr || (given == nullptr && wanted != 1)) return E_POINTER;
        std::for_each(children, children + wanted, [](VARIANT& each) { ::VariantInit(&each); });
        return enter([&] {
            const std::vector<Part> parts = reading_->parts();
            ULONG done = 0;
            for (; done < wanted && next_ < parts.size(); ++next_) {
                // A window may end meanwhile.
                if (reading_->hasEnded()) break;
                if (SUCCEEDED(giveChild(*reading_, parts[next_], children[done]))) ++done;
            }
            if (given != nullptr) *given = done;
            return done == wanted ? S_OK : S_FALSE;
        });
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        return enter([&] {
            const std::size_t size = reading_->parts().size();
            const std::size_t left = size - std::min(next_, size);
            next_ += std::min<std::size_t>(count, left);
            return count <= left ? S_OK : S_FALSE;
        });
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        return enter([&] {
            next_ = 0;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** clone) override {
        return ask(clone, [&] {
            *clone = new Accessible(reading_, next_);
            return S_OK;
        });
    }

 private:
    /// A call from outside.
    template <class Ask>
    HRESULT enter(const Ask& question) {
        if (reading_->hasEnded()) return CO_E_OBJNOTCONNECTED;
        HRESULT answer = E_FAIL;
        const Enter enterSession = reading_->site().enter;
        enterSession([&] { answer = question(); });
        return answer;
    }
    /// The same with an empty answer to begin with.
    template <class Value, class Ask>
    HRESULT ask(Value* given, const Ask& question) {
        if (given == nullptr) return E_POINTER;
        *given = {};
        return enter(question);
    }
    // The same about a part.
    template <class Ask>
    HRESULT enterAbout(const VARIANT& which, const Ask& question) {
        return enter([&] { return about(which, question); });
    }
    template <class Value, class Ask>
    HRESULT askOf(const VARIANT& which, Value* given, const Ask& question) {
        return ask(given, [&] { return about(which, question); });
    }
    template <class Ask>
    HRESULT about(const VARIANT& which, const Ask& question) {
        if (which.vt != VT_I4) return E_INVALIDARG;
        const std::optional<Part> part = reading_->find(which.lVal);
        return part ? question(*part) : E_INVALIDARG;
    }

    HRESULT hitTest(POINT at, VARIANT& hit) {
        ::ScreenToClient(reading_->window(), &at);
        const view::Point point{static_cast<std::int32_t>(at.x), static_cast<std::int32_t>(at.y)};
        if (!reading_->find(CHILDID_SELF)->place.contains(point)) return S_FALSE;
        const std::vector<Part> parts = reading_->parts();
        const auto found = std::find_if(parts.rbegin(), parts.rend(), [&](const Part& part) {
            return part.place.contains(point);
        });
        if (found != parts.rend()) return giveChild(*reading_, *found, hit);
        setNumber(hit, CHILDID_SELF);
        return S_OK;
    }

    HRESULT navigate(LONG where, const Part& start, VARIANT& end) {
        const std::vector<Part> parts = reading_->parts();
        const bool fromSelf = start.number == CHILDID_SELF;
        const bool inside = where == NAVDIR_FIRSTCHILD || where == NAVDIR_LASTCHILD;
        const bool beside = where == NAVDIR_NEXT || where == NAVDIR_PREVIOUS;
        if (!inside && !beside) return S_FALSE;
        if (inside != fromSelf || parts.empty()) return S_FALSE;
        if (inside) {
            return giveChild(*reading_, where == NAVDIR_FIRSTCHILD ? parts.front() : parts.back(),
                             end);
        }
        const auto at = std::ranges::find(parts, start.number, &Part::number);
        if (at == parts.end()) return S_FALSE;
        if (where == NAVDIR_PREVIOUS) {
            return at == parts.begin() ? S_FALSE : giveChild(*reading_, *(at - 1), end);
        }
        return at + 1 == parts.end() ? S_FALSE : giveChild(*reading_, *(at + 1), end);
    }

    HRESULT findFocus(VARIANT& focused) {
        const HWND focus = ::GetFocus();
        if (focus != nullptr && focus == reading_->window()) {
            setNumber(focused, CHILDID_SELF);
            return S_OK;
        }
        for (const Part& part : reading_->parts()) {
            const HWND window = reading_->windowOf(part);
            if (window != nullptr && (window == focus || ::IsChild(window, focus) != FALSE)) {
                return giveChild(*reading_, part, focused);
            }
        }
        return S_FALSE;
    }

    std::shared_ptr<SurfaceReading> reading_;
    std::size_t next_;
};

}  // namespace

std::vector<Part> SurfaceReading::parts() {
    std::erase_if(numbers_, [](const auto& each) { return each.second->control == nullptr; });
    RECT inside{};
    ::GetClientRect(window_, &inside);
    const view::Scale scale = site_->scale();
    std::vector<Part> parts;
    for (const view::Placed& each :
         view::readableSceneOf(surface(), scale.toTwips(static_cast<std::int32_t>(inside.right)),
                               scale.toTwips(static_cast<std::int32_t>(inside.bottom)))) {
        if (view::ControlPeer::of(each.control) == nullptr) continue;
        parts.push_back(
            {numberOf(*each.control), each.control, scale.toPixels(each.visible), true});
    }
    return parts;
}

LONG SurfaceReading::numberOf(const forms::Control& control) {
    const auto known = std::ranges::find_if(
        numbers_, [&](const auto& each) { return each.second->control == &control; });
    if (known != numbers_.end()) return known->first;
    numbers_.emplace_back(++lastNumber_, view::ControlPeer::of(&control)->reference());
    return lastNumber_;
}

std::optional<Part> SurfaceReading::find(LONG number) const {
    RECT inside{};
    ::GetClientRect(window_, &inside);
    const view::Rectangle whole{0, 0, static_cast<std::int32_t>(inside.right),
                                static_cast<std::int32_t>(inside.bottom)};
    if (number == CHILDID_SELF) {
        return Part{CHILDID_SELF, &surface(), whole, ::IsWindowVisible(window_) != FALSE};
    }
    const auto known =
        std::ranges::find(numbers_, number, &std::pair<LONG, view::ControlReference>::first);
    if (known == numbers_.end() || known->second->control == nullptr) return std::nullopt;
    forms::Control& control = *known->second->control;
    const view::Scale scale = site_->scale();
    const auto scene =
        view::sceneOf(surface(), scale.toTwips(whole.width), scale.toTwips(whole.height));
    const auto shown = std::ranges::find(scene, &control, &view::Placed::control);
    if (shown != scene.end()) return Part{number, &control, scale.toPixels(shown->visible), true};
    return Part{number, &control, scale.toPixels(view::placeOnSurface(control)), false};
}

HWND SurfaceReading::windowOf(const Part& part) const {
    const view::ControlPeer* const peer = view::ControlPeer::of(part.control);
    if (peer == nullptr) return nullptr;
    if (peer->native != nullptr) return dynamic_cast<const Native&>(*peer->native).handle();
    for (HWND each = ::GetWindow(window_, GW_CHILD); each != nullptr;
         each = ::GetWindow(each, GW_HWNDNEXT)) {
        const auto* const box = dynamic_cast<const Surface*>(Window::of(each));
        if (box != nullptr && box->control()->control == part.control) return each;
    }
    return nullptr;
}

LRESULT accessibleResult(std::shared_ptr<SurfaceReading> reading, WPARAM asked) {
    const auto object = Pointer<Accessible>::adopt(new Accessible(std::move(reading)));
    return ::LresultFromObject(__uuidof(IAccessible), asked,
                               static_cast<IAccessible*>(object.get()));
}

}  // namespace huebrush::word
