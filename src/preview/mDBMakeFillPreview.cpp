// SPDX-License-Identifier: MPL-2.0

#include "preview/mDBMakeFillPreview.h"

#include <optional>
#include <utility>

#include "base/PictureFile.h"
#include "base/Text.h"
#include "error/mError.h"
#include "files/Error.h"
#include "files/Names.h"
#include "files/TemporaryFile.h"
#include "forms/Runtime.h"

namespace huebrush::preview {

namespace {

using error::Steps;
using files::TemporaryFile;
using jet::Bytes;

std::int16_t always() {
    return 1;
}

error::Place placeOf(const char* procedure, const char* message) {
    return {"Huebrush.mDBMakeFillPreview.", procedure, message};
}

base::Error errorOf(const files::Error& error) {
    constexpr std::int32_t kDiskFull = 61;
    constexpr std::int32_t kPathNotFound = 76;
    const files::Cause cause = error.cause();
    const std::int32_t number = cause == files::Cause::noSpace   ? kDiskFull
                                : cause == files::Cause::missing ? kPathNotFound
                                                                 : base::ErrorNumber::kPathAccess;
    return {number, base::text("Dočasný soubor „", error.name(),
                               "“ nelze použít: ", error.textOfReason(), ".")};
}

/// The temporary file; what is done with it is an error unless it is open.
class Passage {
 public:
    void open(const std::string& name) { file_.emplace(name); }
    TemporaryFile* operator->() {
        constexpr std::int32_t kNotOpen = 52;
        if (!file_) throw base::Error(kNotOpen, "Dočasný soubor není otevřen.");
        return &*file_;
    }

 private:
    std::optional<TemporaryFile> file_;
};

/// A step on a file, with the errors of the forms runtime.
template <class Body>
void onFile(Steps& step, const Body& body) {
    step([&] {
        try {
            body();
        } catch (const files::Error& error) {
            throw errorOf(error);
        }
    });
}

/// The folder up to and with its last separator.
std::string withSeparator(const std::string& folder) {
    return files::lastPartOf(folder).empty() ? folder : folder + "/";
}

Bytes bytesOf(const jet::Value& value) {
    const auto* const bytes = std::get_if<Bytes>(&value);
    if (bytes == nullptr) {
        throw base::Error(base::ErrorNumber::kTypeMismatch, "Náhled výplně není pole bajtů.");
    }
    return *bytes;
}

}  // namespace

std::string getTmpFile() {
    std::string name;
    Steps::run(placeOf("getTmpFile", "Chyba při vytváření dočasného souboru."), always,
               [&](Steps& step) {
                   const forms::Component& component = forms::Runtime::current().Component();
                   std::string& kept = component.temporaryFile();
                   if (kept.empty()) {
                       std::string folder;
                       step([&] { folder = withSeparator(component.temporaryFolder()); });
                       step([&] { kept = base::text(folder, "_~", component.name(), ".tmp"); });
                   }
                   name = kept;
               });
    return name;
}

base::Picture ReadPictureFromRS(const Field& field) {
    base::Picture picture;
    if (!field) return picture;
    Steps::run(placeOf("ReadPictureFromRS", "Chyba při načítání náhledu výplně z databáze."),
               always, [&](Steps& step) {
                   const std::string name = getTmpFile();
                   jet::Value value;
                   Bytes bytes;
                   Passage file;
                   step([&] { value = field(); });
                   if (jet::isNull(value)) return;
                   step([&] { bytes = bytesOf(value); });
                   onFile(step, [&] { file.open(name); });
                   onFile(step, [&] { file->write(bytes); });
                   onFile(step, [&] { picture = base::loadPicture(file->read()); });
                   onFile(step, [&] { file->remove(); });
               });
    return picture;
}

jet::Value WritePictureToRS(const base::Picture& picture) {
    jet::Value value;
    if (picture.empty()) return value;
    Steps::run(placeOf("WritePictureToRS", "Chyba při ukládání náhledu výplně do databáze."),
               always, [&](Steps& step) {
                   const std::string name = getTmpFile();
                   Bytes bytes;
                   Passage file;
                   onFile(step, [&] { file.open(name); });
                   onFile(step, [&] { file->write(base::savePicture(picture)); });
                   onFile(step, [&] { bytes = file->read(); });
                   // No bytes are no picture.
                   if (!bytes.empty()) value = std::move(bytes);
                   onFile(step, [&] { file->remove(); });
               });
    return value;
}

}  // namespace huebrush::preview
