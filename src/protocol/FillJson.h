// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "batch/Session.h"
#include "fill/FillProperties.h"

namespace huebrush::protocol {

/// A text or JSON value that cannot be read as what it should be. One line, fit for the user.
class ParseError : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// A fill as a JSON object: its keys are the names of the sixteen properties, colours are whole
/// numbers with red in the low byte.
nlohmann::ordered_json toJson(const fill::FillProperties& fill);
/// The same, read back. Every property must be there, in its own type.
fill::FillProperties fillFromJson(const nlohmann::json& value);

/// What a fill is to become: "none", a colour ("#0070C0"), a colour with transparency
/// ("#0070C0@50%" or "#0070C0@0.5"), or an object of properties, of which those that are missing
/// stay as they are.
batch::FillEdit editFromJson(const nlohmann::json& value);
/// The same from the command line, where an object is written as JSON.
batch::FillEdit editFromText(const std::string& value);

/// "#C00000=#0070C0".
batch::ColorMapping mappingFromText(const std::string& value);
/// "3=FILL", FILL as in editFromText.
batch::RowEdit rowEditFromText(const std::string& value);

}  // namespace huebrush::protocol
