// SPDX-License-Identifier: MPL-2.0

#include "ports/libreoffice/runtime/FilePicker.h"

#include <array>
#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/ui/dialogs/ExecutableDialogResults.hpp>
#include <com/sun/star/ui/dialogs/TemplateDescription.hpp>
#include <com/sun/star/ui/dialogs/XFilePicker3.hpp>
#include <osl/file.hxx>

#include "base/Error.h"
#include "ports/libreoffice/uno/Errors.h"
#include "ports/libreoffice/uno/Text.h"

namespace huebrush::libreoffice {

namespace css = com::sun::star;
namespace dialogs = com::sun::star::ui::dialogs;

namespace {

sal_Int16 templateFor(forms::FileDialog::Purpose purpose) {
    return purpose == forms::FileDialog::Purpose::save
               ? dialogs::TemplateDescription::FILESAVE_SIMPLE
               : dialogs::TemplateDescription::FILEOPEN_SIMPLE;
}

css::uno::Reference<dialogs::XFilePicker3> makePicker(const ContextReference& context,
                                                      const FileDialogOwner& owner,
                                                      forms::FileDialog::Purpose purpose) {
    const std::array<css::uno::Any, 2> arguments{
        css::uno::makeAny(templateFor(purpose)),
        css::uno::makeAny(css::beans::NamedValue("ParentWindow", css::uno::makeAny(owner)))};
    return {context->getServiceManager()->createInstanceWithArgumentsAndContext(
                "com.sun.star.ui.dialogs.FilePicker",
                css::uno::Sequence<css::uno::Any>(arguments.data(), arguments.size()), context),
            css::uno::UNO_QUERY_THROW};
}

std::string withExtension(const std::string& path, const forms::FileDialog& dialog) {
    const std::string extension = dialog.pattern.substr(dialog.pattern.find('.'));
    const std::size_t name = path.find_last_of('/') + 1;
    const bool hasOne = path.find('.', name) != std::string::npos;
    return dialog.purpose == forms::FileDialog::Purpose::save && !hasOne ? path + extension : path;
}

}  // namespace

std::string pickFile(const ContextReference& context, const FileDialogOwner& owner,
                     const forms::FileDialog& dialog) {
    rtl::OUString path;
    const bool chosen = officeCalls([&] {
        const auto picker = makePicker(context, owner, dialog.purpose);
        picker->setTitle(toOffice(dialog.title));
        picker->appendFilter(toOffice(dialog.description), toOffice(dialog.pattern));
        picker->setCurrentFilter(toOffice(dialog.description));
        if (picker->execute() != dialogs::ExecutableDialogResults::OK) return false;
        const css::uno::Sequence<rtl::OUString> files = picker->getSelectedFiles();
        return files.hasElements() &&
               osl::FileBase::getSystemPathFromFileURL(files[0], path) == osl::FileBase::E_None;
    });
    if (!chosen) base::throwCancelled();
    return withExtension(fromOffice(path), dialog);
}

}  // namespace huebrush::libreoffice
