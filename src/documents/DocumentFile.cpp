// SPDX-License-Identifier: MPL-2.0

#include "documents/DocumentFile.h"

#include <algorithm>
#include <span>
#include <utility>

#include "base/Text.h"
#include "documents/odf/OdfFile.h"
#include "documents/ooxml/OoxmlFile.h"
#include "documents/package/DocumentError.h"
#include "documents/package/Package.h"

namespace huebrush::documents {

namespace {

constexpr std::string_view kPackageEndings[] = {
    ".docx", ".docm", ".dotx", ".dotm", ".pptx", ".pptm", ".potx", ".potm", ".ppsx", ".ppsm",
    ".xlsx", ".xlsm", ".xltx", ".xltm", ".odt",  ".ott",  ".odg",  ".otg",  ".odp",  ".otp"};
constexpr std::string_view kFlatEndings[] = {".fodt", ".fodg", ".fodp"};

bool isOneOf(std::span<const std::string_view> endings, std::string_view ending) {
    return std::find(endings.begin(), endings.end(), base::lowerCase(ending)) != endings.end();
}

}  // namespace

bool isKnownEnding(std::string_view ending) {
    return isOneOf(kFlatEndings, ending) || isOneOf(kPackageEndings, ending);
}

bool isKnownFormat(std::string_view bytes, std::string_view ending) {
    if (isOneOf(kFlatEndings, ending)) return odf::isFlatOdf(bytes);
    return isPackage(bytes) && isOneOf(kPackageEndings, ending);
}

bool isEncrypted(std::string bytes) {
    try {
        return isPackage(bytes) && odf::isEncrypted(Package(std::move(bytes)));
    } catch (const DocumentError&) {
        // Whoever opens it says what is wrong with it.
        return false;
    }
}

std::unique_ptr<ShapeFile> openDocument(std::string bytes) {
    if (odf::isFlatOdf(bytes)) return std::make_unique<odf::OdfFile>(std::move(bytes));
    if (!isPackage(bytes)) throw DocumentError("is no package, as documents are");
    Package package(std::move(bytes));
    if (ooxml::isOoxmlPackage(package))
        return std::make_unique<ooxml::OoxmlFile>(std::move(package));
    if (odf::isOdfPackage(package)) return std::make_unique<odf::OdfFile>(std::move(package));
    throw DocumentError("is no document whose shapes can be read without an office");
}

}  // namespace huebrush::documents
