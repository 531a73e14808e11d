// SPDX-License-Identifier: MPL-2.0

#include "cli/exchange/ColorTable.h"

#include <expat.h>

#include <exception>
#include <map>
#include <memory>
#include <optional>

#include "base/Text.h"
#include "cli/Failure.h"

namespace huebrush::cli {

namespace {

using base::text;
using std::string_view;

/// Between the namespace of a name and the name itself; no namespace has a blank.
constexpr char kSeparator = ' ';
/// What `draw` stands for in OpenDocument, and in the files of OpenOffice 1, which the office's own
/// tables still look like.
constexpr const char* kDrawing = "urn:oasis:names:tc:opendocument:xmlns:drawing:1.0";
constexpr const char* kOldDrawing = "http://openoffice.org/2000/drawing";

bool isOfDrawing(string_view name, string_view local) {
    const std::size_t at = name.find(kSeparator);
    if (at == string_view::npos || name.substr(at + 1) != local) return false;
    return name.substr(0, at) == kDrawing || name.substr(0, at) == kOldDrawing;
}

/// Takes what the parser finds. Exceptions must not pass through the parser: the first one is kept,
/// and ends it.
class TableReader {
 public:
    ReadColors read(string_view bytes) {
        XML_SetUserData(parser_.get(), this);
        XML_SetStartElementHandler(parser_.get(), &TableReader::onStart);
        const auto status =
            XML_Parse(parser_.get(), bytes.data(), static_cast<int>(bytes.size()), XML_TRUE);
        if (failure_) std::rethrow_exception(failure_);
        if (status != XML_STATUS_OK) fail(XML_ErrorString(XML_GetErrorCode(parser_.get())));
        return std::move(result_);
    }

 private:
    static void onStart(void* reader, const XML_Char* name, const XML_Char** attributes) {
        auto& self = *static_cast<TableReader*>(reader);
        try {
            if (!self.failure_) self.start(name, attributes);
        } catch (...) {
            self.failure_ = std::current_exception();
            XML_StopParser(self.parser_.get(), XML_FALSE);
        }
    }

    void start(string_view name, const XML_Char** attributes) {
        if (!isInTable_) {
            if (!name.ends_with(" color-table")) fail("this is not a colour table");
            isInTable_ = true;
        } else if (isOfDrawing(name, "color")) {
            takeColor(attributes);
        }
    }

    void takeColor(const XML_Char** attributes) {
        std::optional<base::Rgb> color;
        for (; *attributes != nullptr; attributes += 2) {
            const string_view value = attributes[1];
            if (isOfDrawing(attributes[0], "color") && value.starts_with('#')) {
                color = base::fromHex(value);
            } else if (isOfDrawing(attributes[0], "name") && !value.empty()) {
                ++result_.named;
            }
        }
        if (!color) fail("a colour must have the form #RRGGBB");
        addColor(result_.palettes.front(), *color);
    }

    [[noreturn]] void fail(const char* problem) const {
        throw Failure(text("line ", XML_GetCurrentLineNumber(parser_.get()), ": ", problem));
    }

    struct Free {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> parser_{
        XML_ParserCreateNS(nullptr, kSeparator)};
    bool isInTable_ = false;
    std::exception_ptr failure_;
    ReadColors result_{{{}}};
};

}  // namespace

ReadColors readColorTable(string_view bytes) {
    return TableReader().read(bytes);
}

std::string writeColorTable(const ColorPalette& palette) {
    std::string out = text(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<ooo:color-table xmlns:ooo=\"http://openoffice.org/2004/office\" xmlns:draw=\"",
        kDrawing, "\">\n");
    // Of colours with the same name the office keeps one.
    std::map<base::Rgb, std::size_t> seen;
    for (const base::Rgb color : palette.colors) {
        const std::size_t times = ++seen[color];
        const std::string hex = base::toHex(color);
        out += text("<draw:color draw:name=\"", hex, times == 1 ? "" : text(" (", times, ")"),
                    "\" draw:color=\"", hex, "\"/>\n");
    }
    return out + "</ooo:color-table>\n";
}

}  // namespace huebrush::cli
