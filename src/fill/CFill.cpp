// SPDX-License-Identifier: MPL-2.0

#include "fill/CFill.h"

#include "error/mError.h"
#include "fill/ApplyFillType.h"

namespace huebrush::fill {

namespace {

constexpr const char* kSetFormatFailed = "Chyba při aplikaci nové výplně...";

/// Reads the texture's name, which a host may refuse.
void captureTextureName(host::FillFormat& fill, FillProperties& copy) {
    const bool named = error::ignoring([&] { copy.TextureName = fill.TextureName(); });
    if (named) return;
    copy.UnknownTexture = true;
    copy.TextureName.clear();
}

void capture(host::FillFormat& fill, FillProperties& copy) {
    using namespace property;
    const auto read = [&](const auto& property) {
        copy.*property.member = (fill.*property.read)();
    };
    forEachProperty(read, kVisible, kForeColorRGB, kBackColorRGB, kType, kGradientStyle,
                    kGradientColorType, kGradientVariant);
    if (hasDegree(copy.GradientColorType)) read(kGradientDegree);
    forEachProperty(read, kPresetGradientType, kTransparency, kTextureType, kPresetTexture);
    const auto type = fill.Type();
    if (hasTextureName(type, fill.TextureType())) captureTextureName(fill, copy);
    read(kPattern);
}

/// Copies what both directions copy: a degree or a texture name only where `from` uses it.
void copyShared(const FillProperties& from, FillProperties& to) {
    using namespace property;
    const auto copy = [&](const auto& property) { to.*property.member = from.*property.member; };
    forEachProperty(copy, kVisible, kForeColorRGB, kBackColorRGB, kType, kGradientStyle,
                    kGradientColorType, kGradientVariant);
    if (hasDegree(from.GradientColorType)) copy(kGradientDegree);
    forEachProperty(copy, kPresetGradientType, kTransparency, kTextureType, kPresetTexture);
    if (hasTextureName(from.Type, from.TextureType)) copy(kTextureName);
    copy(kPattern);
}

}  // namespace

void CFill::setDesVisible(host::MsoTriState visible) {
    destination_.Visible = visible;
    change_ = true;
}

void CFill::setDesTransparency(float transparency) {
    destination_.Transparency = transparency;
    change_ = true;
}

void CFill::setDestination(const FillProperties& properties) {
    destination_ = properties;
    change_ = true;
}

error::Place CFill::place(const char* procedure, const char* message) {
    return {"Huebrush.CFill.", procedure, message};
}

std::string CFill::SaveOriginalFormat(host::FillFormat& Fill) {
    return error::trap(
        place("SaveOriginalFormat", "Při pokusu získat aktuální výplň vzikla chyba..."), [&] {
            capture(Fill, original_);
            Restore();
        });
}

std::string CFill::SaveNewFormat(host::FillFormat& Fill) {
    return error::trap(place("SaveNewFormat", "Chyba při dočasném uchovávání nových vlastností..."),
                       [&] {
                           capture(Fill, destination_);
                           change_ = true;
                       });
}

std::string CFill::Restore() {
    // It reports under the name of its main caller.
    return error::trap(
        place("SaveOriginalFormat", "Při pokusu obnovit původní výplň vzikla chyba..."), [&] {
            copyShared(original_, destination_);
            destination_.UnknownTexture = original_.UnknownTexture;
            change_ = false;
        });
}

std::string CFill::ApplyChange() {
    return error::trap(
        place("ApplyChange", "Při pokusu interně potvrdit změny výpně vznikla chyba..."), [&] {
            copyShared(destination_, original_);
            change_ = false;
        });
}

std::string CFill::SetFormat(host::FillFormat& Fill) {
    return error::trap(place("SetFormat", kSetFormatFailed), [&] {
        Fill.setForeColorRGB(destination_.ForeColorRGB);
        Fill.setBackColorRGB(destination_.BackColorRGB);
        const auto get = [&](const auto& property) { return destination_.*property.member; };
        applyFillType(Fill, get, [&] {
            if (!destination_.UnknownTexture) Fill.UserTextured(destination_.TextureName);
        });
        Fill.setTransparency(destination_.Transparency);
        Fill.setVisible(destination_.Visible);
    });
}

std::string CFill::reportFailedFormat(const base::Error& error) {
    return error::report(place("SetFormat", kSetFormatFailed), error);
}

}  // namespace huebrush::fill
