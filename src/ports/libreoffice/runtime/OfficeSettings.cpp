// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/OfficeSettings.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XNameContainer.hpp>
#include <com/sun/star/lang/XSingleServiceFactory.hpp>
#include <com/sun/star/util/XChangesBatch.hpp>

#include "base/Text.h"
#include "ports/libreoffice/uno/Configuration.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

constexpr std::string_view kSettings = "/cz.huebrush.Settings/Settings";
const rtl::OUString kValue = "Value";

/// One name for the three; a point does not occur in its parts.
rtl::OUString nameOf(const std::string& application, const std::string& section,
                     const std::string& key) {
    return toOffice(base::text(base::percentEncoded(application), ".",
                               base::percentEncoded(section), ".", base::percentEncoded(key)));
}

using PropertySet = css::uno::Reference<css::beans::XPropertySet>;

PropertySet newEntry(const css::uno::Reference<css::container::XNameContainer>& settings) {
    const css::uno::Reference<css::lang::XSingleServiceFactory> factory(settings,
                                                                        css::uno::UNO_QUERY_THROW);
    return {factory->createInstance(), css::uno::UNO_QUERY_THROW};
}

}  // namespace

std::optional<std::string> OfficeSettings::GetSetting(const std::string& application,
                                                      const std::string& section,
                                                      const std::string& key) {
    return officeCalls([&]() -> std::optional<std::string> {
        const css::uno::Reference<css::container::XNameAccess> settings(
            openConfiguration(context_, kSettings, false), css::uno::UNO_QUERY_THROW);
        const rtl::OUString name = nameOf(application, section, key);
        if (!settings->hasByName(name)) return std::nullopt;
        const PropertySet entry(settings->getByName(name), css::uno::UNO_QUERY_THROW);
        return fromOffice(propertyOf<rtl::OUString>(entry, kValue));
    });
}

void OfficeSettings::SaveSetting(const std::string& application, const std::string& section,
                                 const std::string& key, const std::string& value) {
    officeCalls([&] {
        const css::uno::Reference<css::container::XNameContainer> settings(
            openConfiguration(context_, kSettings, true), css::uno::UNO_QUERY_THROW);
        const rtl::OUString name = nameOf(application, section, key);
        const bool known = settings->hasByName(name);
        const PropertySet entry =
            known ? PropertySet(settings->getByName(name), css::uno::UNO_QUERY_THROW)
                  : newEntry(settings);
        entry->setPropertyValue(kValue, css::uno::makeAny(toOffice(value)));
        if (!known) settings->insertByName(name, css::uno::makeAny(entry));
        css::uno::Reference<css::util::XChangesBatch>(settings, css::uno::UNO_QUERY_THROW)
            ->commitChanges();
    });
}

}  // namespace huebrush::libreoffice
