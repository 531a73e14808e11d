// SPDX-License-Identifier: MPL-2.0

#include "base/Error.h"

namespace huebrush::base {

Error currentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::exception& error) {
        return {ErrorNumber::kInternal, error.what()};
    } catch (...) {
        return {ErrorNumber::kInternal, "Neznámá vnitřní chyba."};
    }
}

void throwOverflow() {
    throw Error(ErrorNumber::kOverflow, "Přetečení.");
}

void throwCountOverflow() {
    throw Error(ErrorNumber::kOverflow, "Přetečení: počet přesáhl 32767.");
}

void throwObjectNotSet() {
    throw Error(ErrorNumber::kObjectNotSet, "Proměnná objektu není nastavena.");
}

void throwInvalidPicture() {
    throw Error(ErrorNumber::kInvalidPicture, "Obrázek je neplatný.");
}

void throwCancelled() {
    throw Error(ErrorNumber::kCancelled, "Výběr byl zrušen.");
}

}  // namespace huebrush::base
