// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/Error.h"
#include "ports/word/com/Pointer.h"
#include "ports/word/com/Variant.h"

namespace huebrush::word {

/// The arguments of a call, in the order in which the member declares its parameters. They are
/// taken as they come: one of a type that the parameter does not have is an error (13).
class ServedCall {
 public:
    explicit ServedCall(std::vector<const VARIANT*> given) : given_(std::move(given)) {}

    bool has(std::size_t parameter) const;
    std::int32_t integer(std::size_t parameter) const;
    float single(std::size_t parameter) const;
    bool boolean(std::size_t parameter) const;
    std::string text(std::size_t parameter) const;
    /// An array of variants that counts from 0, each of them a text.
    std::vector<std::string> texts(std::size_t parameter) const;

 private:
    const VARIANT& typed(std::size_t parameter, VARTYPE type) const;

    std::vector<const VARIANT*> given_;
};

/// What a walk over a collection gives: the next member, nothing at the end.
using ServedWalk = std::function<std::optional<Variant>()>;

/// What the objects of one kind can do: a table of names and functions.
class ServedKind {
 public:
    /// How a member is called.
    enum class Way { get, put, procedure, function };
    using Serve = std::function<Variant(const std::shared_ptr<void>& self, const ServedCall&)>;
    struct Member {
        std::string name;
        Way way;
        /// Their names; those in brackets may be left out.
        std::vector<std::string> parameters;
        Serve serve;
    };

    explicit ServedKind(std::string name) : name_(std::move(name)) {}

    const std::string& name() const { return name_; }
    /// The number of a member; nothing where there is none of this name.
    std::optional<DISPID> number(const std::string& member) const;
    const Member* find(DISPID number, Way way) const;
    bool knows(DISPID number) const;

    std::vector<Member> members;
    std::function<ServedWalk(void* self)> enumerate;
    /// The events that the objects raise through a connection point.
    std::optional<IID> events;

 private:
    DISPID first() const;

    std::string name_;
};

/// The kind of the objects that stand for a `Self`.
template <class Self>
class KindOf : public ServedKind {
 public:
    using ServedKind::ServedKind;

    template <class Function>
    KindOf& get(const char* member, Function function) {
        return add(member, Way::get, {},
                   [function](Self& self, const ServedCall&) { return Variant(function(self)); });
    }
    /// A property that takes arguments.
    template <class Function>
    KindOf& get(const char* member, std::vector<std::string> parameters, Function function) {
        return add(member, Way::get, std::move(parameters),
                   [function](Self& self, const ServedCall& call) {
                       return Variant(function(self, call));
                   });
    }
    /// A property that is given the object itself, to keep it.
    template <class Function>
    KindOf& owned(const char* member, Function function) {
        members.push_back({member,
                           Way::get,
                           {},
                           [function](const std::shared_ptr<void>& self, const ServedCall&) {
                               const auto owner = std::static_pointer_cast<Self>(self);
                               return Variant(function(owner));
                           }});
        return *this;
    }
    template <class Function>
    KindOf& put(const char* member, Function function) {
        return add(member, Way::put, {"value"}, withoutAnswer(function));
    }
    template <class Function>
    KindOf& procedure(const char* member, std::vector<std::string> parameters, Function function) {
        return add(member, Way::procedure, std::move(parameters), withoutAnswer(function));
    }
    template <class Function>
    KindOf& function(const char* member, std::vector<std::string> parameters, Function function) {
        return add(member, Way::function, std::move(parameters),
                   [function](Self& self, const ServedCall& call) {
                       return Variant(function(self, call));
                   });
    }
    template <class Function>
    KindOf& walk(Function function) {
        enumerate = [function](void* self) { return function(*static_cast<Self*>(self)); };
        return *this;
    }
    KindOf& raises(const IID& interfaceOfEvents) {
        events = interfaceOfEvents;
        return *this;
    }

 private:
    template <class Function>
    static auto withoutAnswer(Function function) {
        return [function](Self& self, const ServedCall& call) {
            function(self, call);
            return Variant();
        };
    }
    template <class Function>
    KindOf& add(const char* member, Way way, std::vector<std::string> parameters,
                Function function) {
        members.push_back({member, way, std::move(parameters),
                           [function](const std::shared_ptr<void>& self, const ServedCall& call) {
                               return function(*static_cast<Self*>(self.get()), call);
                           }});
        return *this;
    }
};

/// Objects to bind to. It writes down each call, counts each object and each reference that it has
/// handed out, and fails at whichever call it is told to.
class ServedObjects : public std::enable_shared_from_this<ServedObjects> {
 public:
    /// Made by std::make_shared: the objects keep it.
    ServedObjects() = default;
    ServedObjects(const ServedObjects&) = delete;
    ServedObjects& operator=(const ServedObjects&) = delete;

    /// An object of this kind. As long as one is in use, what has an identity is served by the same
    /// object each time.
    template <class Self>
    Pointer<IDispatch> serve(const KindOf<Self>& kind,
                             std::type_identity_t<std::shared_ptr<Self>> self,
                             const void* identity = nullptr) {
        return serveAny(kind, std::move(self), identity);
    }
    /// Raises Click on the object of this identity, if it is in use and somebody listens.
    void click(const ServedKind& kind, const void* identity);

    /// The calls, as "Bar.Name", "Bar.Left = 3", "Bars.Add(Huebrush)", "Bar.FindControl(Tag:=A)".
    std::vector<std::string> log;
    /// Measurements do without the log.
    bool keepsLog = true;
    std::size_t calls = 0;
    /// How often a member's number was asked for.
    std::size_t lookups = 0;
    /// The number of the call that fails, counted from 1; 0 for none. The calls behind it do not.
    std::size_t failAt = 0;
    base::Error failure{4198, "Příkaz selhal."};
    /// Errors are described only when somebody asks.
    bool defersDetails = false;
    /// Numbers and truth values are answered in other types than they have.
    bool answersInOtherTypes = false;

    std::size_t objects() const { return objects_; }
    long references() const { return references_; }
    /// The sinks that listen.
    std::size_t listeners() const { return listeners_; }

 private:
    friend class ServedObject;
    friend class ServedEnumerator;
    using Identity = std::pair<const ServedKind*, const void*>;

    Pointer<IDispatch> serveAny(const ServedKind& kind, std::shared_ptr<void> self,
                                const void* identity);
    /// Counts a call, notes what `describe` says of it, and throws where it is the one that fails.
    template <class Describe>
    void note(const Describe& describe) {
        if (keepsLog) log.push_back(describe());
        if (++calls == failAt) throw base::Error(failure);
    }

    std::map<Identity, class ServedObject*> known_;
    std::size_t objects_ = 0;
    long references_ = 0;
    std::size_t listeners_ = 0;
};

}  // namespace huebrush::word
