// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <com/sun/star/lang/XTypeProvider.hpp>
#include <cppuhelper/implbase_ex.hxx>
#include <cppuhelper/weak.hxx>
#include <cstddef>
#include <type_traits>

namespace huebrush::libreoffice {

namespace detail {

/// The table of interfaces that cppuhelper's query functions read: its header declares one entry,
/// and they walk as many as the count says. The published headers offer a helper class for each
/// number of interfaces, but none for any number.
template <std::size_t Count>
struct ClassData {
    sal_Int16 count = static_cast<sal_Int16>(Count);
    sal_Bool storedTypeReferences = sal_False;
    sal_Bool createdId = sal_False;
    sal_Int8 id[16] = {};
    cppu::type_entry entries[Count] = {};

    cppu::class_data* get() {
        static_assert(std::is_standard_layout_v<ClassData>);
        static_assert(offsetof(ClassData, count) == offsetof(cppu::class_data, m_nTypes));
        static_assert(offsetof(ClassData, storedTypeReferences) ==
                      offsetof(cppu::class_data, m_storedTypeRefs));
        static_assert(offsetof(ClassData, createdId) == offsetof(cppu::class_data, m_createdId));
        static_assert(offsetof(ClassData, id) == offsetof(cppu::class_data, m_id));
        static_assert(sizeof(ClassData::id) == sizeof(cppu::class_data::m_id));
        static_assert(offsetof(ClassData, entries) == offsetof(cppu::class_data, m_typeEntries));
        static_assert(alignof(ClassData) == alignof(cppu::class_data));
        return reinterpret_cast<cppu::class_data*>(this);
    }
};

/// Where the part of `Interface` lies within an object of type `Class`.
template <class Class, class Interface>
sal_IntPtr interfaceOffset() {
    constexpr sal_IntPtr kAnyAddress = 16;
    auto* const object = reinterpret_cast<Class*>(kAnyAddress);  // NOLINT: never followed
    return reinterpret_cast<sal_IntPtr>(static_cast<Interface*>(object)) - kAnyAddress;
}

}  // namespace detail

/// Base of a UNO object that implements `Interfaces`: counts references, answers queries for them
/// and for all that they derive from, and may be held weakly.
template <class... Interfaces>
class WeakImplHelper : public cppu::OWeakObject,
                       public com::sun::star::lang::XTypeProvider,
                       public Interfaces... {
 public:
    com::sun::star::uno::Any SAL_CALL
    queryInterface(const com::sun::star::uno::Type& type) override {
        return cppu::WeakImplHelper_query(type, classData(), this, this);
    }
    void SAL_CALL acquire() noexcept override { OWeakObject::acquire(); }
    void SAL_CALL release() noexcept override { OWeakObject::release(); }

    com::sun::star::uno::Sequence<com::sun::star::uno::Type> SAL_CALL getTypes() override {
        return cppu::WeakImplHelper_getTypes(classData());
    }
    com::sun::star::uno::Sequence<sal_Int8> SAL_CALL getImplementationId() override { return {}; }

 private:
    using TypeProvider = com::sun::star::lang::XTypeProvider;

    template <class Interface>
    static cppu::type_entry entry() {
        return {{Interface::static_type}, detail::interfaceOffset<WeakImplHelper, Interface>()};
    }
    static cppu::class_data* classData() {
        static detail::ClassData<sizeof...(Interfaces) + 1> data{
            .entries = {entry<Interfaces>()..., entry<TypeProvider>()}};
        return data.get();
    }
};

}  // namespace huebrush::libreoffice
