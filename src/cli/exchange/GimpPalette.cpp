// SPDX-License-Identifier: MPL-2.0

#include "cli/exchange/GimpPalette.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "base/Text.h"
#include "cli/Failure.h"
#include "cli/FillText.h"

namespace huebrush::cli {

namespace {

using base::text;
using std::string_view;

constexpr string_view kFirstLine = "GIMP Palette";
constexpr string_view kName = "Name:";
/// What GIMP calls a colour without a name.
constexpr string_view kUntitled = "Untitled";
constexpr string_view kBlanks = " \t\f\v";
constexpr std::uint8_t kOpaque = 255;

string_view trimmed(string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    return line.substr(0, line.find_last_not_of(kBlanks) + 1);
}

/// The lines of a text, counted from 1, without what ends them.
class Lines {
 public:
    explicit Lines(string_view text) : rest_(text) {}

    std::optional<string_view> next() {
        if (rest_.empty()) return std::nullopt;
        ++number_;
        const std::size_t end = std::min(rest_.find_first_of("\r\n"), rest_.size());
        const string_view line = rest_.substr(0, end);
        rest_.remove_prefix(end);
        if (rest_.starts_with("\r\n")) rest_.remove_prefix(1);
        if (!rest_.empty()) rest_.remove_prefix(1);
        return line;
    }
    [[noreturn]] void fail(const char* problem) const {
        throw Failure(text("line ", std::max<std::size_t>(number_, 1), ": ", problem));
    }

 private:
    string_view rest_;
    std::size_t number_ = 0;
};

/// Takes a number from 0 to 255 from the beginning of a line.
std::optional<std::uint8_t> takeNumber(string_view& line) {
    line = trimmed(line);
    std::uint8_t number = 0;
    const auto result = std::from_chars(line.data(), line.data() + line.size(), number);
    const auto length = static_cast<std::size_t>(result.ptr - line.data());
    if (result.ec != std::errc{}) return std::nullopt;
    line.remove_prefix(length);
    if (!line.empty() && kBlanks.find(line.front()) == string_view::npos) return std::nullopt;
    return number;
}

std::uint8_t requireNumber(string_view& line, const Lines& lines) {
    const auto number = takeNumber(line);
    if (!number) lines.fail("a colour must begin with three numbers from 0 to 255");
    return *number;
}

class GimpReader {
 public:
    explicit GimpReader(string_view bytes) : lines_(bytes) {}

    ReadColors read() {
        const auto first = lines_.next();
        if (!first || trimmed(*first) != kFirstLine)
            lines_.fail("\"GIMP Palette\" is expected here");
        while (const auto line = lines_.next()) takeLine(trimmed(*line));
        return std::move(result_);
    }

 private:
    ColorPalette& palette() { return result_.palettes.front(); }

    void takeLine(string_view line) {
        if (line.empty() || line.front() == '#') return;
        const bool isHeader = palette().colors.empty() && takeHeader(line);
        if (!isHeader) takeColor(line);
    }

    bool takeHeader(string_view line) {
        if (line.starts_with(kName)) {
            palette().name = asUtf8(trimmed(line.substr(kName.size())));
        } else if (line.starts_with("Channels:")) {
            // Aseprite writes this where its colours have a fourth number.
            hasAlpha_ = trimmed(line.substr(line.find(':') + 1)) == "RGBA";
        } else if (!line.starts_with("Columns:")) {
            return false;
        }
        return true;
    }

    void takeColor(string_view line) {
        const std::uint8_t red = requireNumber(line, lines_);
        const std::uint8_t green = requireNumber(line, lines_);
        const std::uint8_t blue = requireNumber(line, lines_);
        if (hasAlpha_ && takeNumber(line).value_or(kOpaque) != kOpaque) ++result_.translucent;
        addColor(palette(), base::rgb(red, green, blue));
        const string_view name = trimmed(line);
        if (!name.empty() && name != kUntitled) ++result_.named;
    }

    static std::string asUtf8(string_view bytes) {
        std::string utf8 = base::toUtf8(base::toUtf16(bytes));
        if (utf8 == bytes) return utf8;
        std::u16string latin1;
        for (const char byte : bytes) latin1 += static_cast<unsigned char>(byte);
        return base::toUtf8(latin1);
    }

    Lines lines_;
    ReadColors result_{{{}}};
    bool hasAlpha_ = false;
};

}  // namespace

ReadColors readGimpPalette(string_view bytes) {
    constexpr string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    return GimpReader(bytes).read();
}

std::string writeGimpPalette(const ColorPalette& palette) {
    constexpr std::size_t kColumns = 16;
    std::string out = text(kFirstLine, "\nName: ", oneLine(palette.name),
                           "\nColumns: ", std::min(kColumns, palette.colors.size()), "\n#\n");
    const auto padded = [](std::uint8_t number) {
        const std::string digits = text(number);
        return std::string(3 - digits.size(), ' ') + digits;
    };
    for (const base::Rgb color : palette.colors) {
        out += text(padded(base::red(color)), " ", padded(base::green(color)), " ",
                    padded(base::blue(color)), "\t", base::toHex(color), "\n");
    }
    return out;
}

}  // namespace huebrush::cli
