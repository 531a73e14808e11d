// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/uno/Errors.h"

#include <com/sun/star/uno/Any.hxx>
#include <cppuhelper/exc_hlp.hxx>
#include <string>

#include "base/Text.h"
#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

base::Error currentHostError() {
    const com::sun::star::uno::Any caught = cppu::getCaughtException();
    const std::string kind = fromOffice(caught.getValueTypeName());
    com::sun::star::uno::Exception exception;
    caught >>= exception;
    const std::string message = fromOffice(exception.Message);
    return {HostErrorNumber::kCommandFailed,
            message.empty() ? kind : base::text(message, " (", kind, ")")};
}

base::Error currentFailure() {
    try {
        throw;
    } catch (const com::sun::star::uno::Exception&) {
        return currentHostError();
    } catch (...) {
        return base::currentError();
    }
}

}  // namespace huebrush::libreoffice
