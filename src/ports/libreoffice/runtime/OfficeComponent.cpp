// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/OfficeComponent.h"

#include <osl/file.hxx>

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/deployment/XPackageInformationProvider.hpp>
#include <com/sun/star/i18n/XLocaleData.hpp>
#include <com/sun/star/util/XStringSubstitution.hpp>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "ports/libreoffice/uno/Configuration.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Properties.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

namespace {

std::string pathOf(const rtl::OUString& url) {
    rtl::OUString path;
    osl::FileBase::getSystemPathFromFileURL(url, path);
    return fromOffice(path.endsWith("/") ? path.copy(0, path.getLength() - 1) : path);
}

rtl::OUString configuredLocale(const ContextReference& context, std::string_view node,
                               const char* name) {
    const css::uno::Reference<css::beans::XPropertySet> values(
        openConfiguration(context, node, false), css::uno::UNO_QUERY_THROW);
    return propertyOf<rtl::OUString>(values, rtl::OUString::createFromAscii(name));
}

/// The locale that the user has chosen in the office's options, or else the system's.
rtl::OUString officeLocale(const ContextReference& context) {
    const rtl::OUString chosen =
        configuredLocale(context, "/org.openoffice.Setup/L10N", "ooSetupSystemLocale");
    if (!chosen.isEmpty()) return chosen;
    return configuredLocale(context, "/org.openoffice.System/L10N", "Locale");
}

css::lang::Locale localeOf(const rtl::OUString& tag) {
    sal_Int32 position = 0;
    css::lang::Locale locale;
    locale.Language = tag.getToken(0, '-', position);
    if (position >= 0) locale.Country = tag.getToken(0, '-', position);
    return locale;
}

}  // namespace

std::string extensionFolder(const ContextReference& context, const std::string& identifier) {
    return officeCalls([&] {
        return pathOf(singleton<css::deployment::XPackageInformationProvider>(
                          context, "com.sun.star.deployment.PackageInformationProvider")
                          ->getPackageLocation(toOffice(identifier)));
    });
}

OfficeComponent::OfficeComponent(const ContextReference& context, std::string folder)
    : context_(context), folder_(std::move(folder)), icons_(folder_) {}

std::string OfficeComponent::version() const {
    return HUEBRUSH_VERSION;
}

/// In the user's profile: the extension's own folder is another one after each update.
std::string OfficeComponent::userFolder() const {
    return officeCalls([&] {
        return pathOf(createService<css::util::XStringSubstitution>(
                          context_, "com.sun.star.util.PathSubstitution")
                          ->substituteVariables("$(user)", true)) +
               "/huebrush";
    });
}

std::string OfficeComponent::temporaryFolder() const {
    // What other users have left in a folder of all users could not be replaced.
    const char* const own = std::getenv("XDG_RUNTIME_DIR");
    std::error_code error;
    if (own != nullptr && std::filesystem::is_directory(own, error)) return own;
    rtl::OUString url;
    osl::FileBase::getTempDirURL(url);
    return pathOf(url);
}

base::Picture OfficeComponent::icon(std::int32_t number) const {
    return icons_.largest(number);
}

char OfficeComponent::decimalSeparator() const {
    return officeCalls([&] {
        const auto locales =
            createService<css::i18n::XLocaleData>(context_, "com.sun.star.i18n.LocaleData");
        const rtl::OUString separator =
            locales->getLocaleItem(localeOf(officeLocale(context_))).decimalSeparator;
        return separator == "," ? ',' : '.';
    });
}

}  // namespace huebrush::libreoffice
