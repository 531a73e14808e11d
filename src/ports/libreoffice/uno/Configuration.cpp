// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/uno/Configuration.h"

#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>

#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;

css::uno::Reference<css::uno::XInterface> openConfiguration(const ContextReference& context,
                                                            std::string_view path,
                                                            bool forWriting) {
    const auto provider = singleton<css::lang::XMultiServiceFactory>(
        context, "com.sun.star.configuration.theDefaultProvider");
    const css::uno::Any node =
        css::uno::makeAny(css::beans::NamedValue("nodepath", css::uno::makeAny(toOffice(path))));
    return provider->createInstanceWithArguments(
        toOffice(forWriting ? "com.sun.star.configuration.ConfigurationUpdateAccess"
                            : "com.sun.star.configuration.ConfigurationAccess"),
        css::uno::Sequence<css::uno::Any>(&node, 1));
}

}  // namespace huebrush::libreoffice
