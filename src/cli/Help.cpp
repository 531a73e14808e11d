// SPDX-License-Identifier: MPL-2.0

#include "cli/Help.h"

#include <algorithm>
#include <sstream>
#include <string_view>

#include "base/Text.h"

namespace huebrush::cli {

namespace {

using base::text;

constexpr std::size_t kLineWidth = 80;
constexpr std::size_t kNamesWidth = 28;

constexpr const char* kExitCodes =
    "Exit codes:\n"
    "  0    everything was done\n"
    "  1    a failure; of many documents, one or more failed\n"
    "  2    the command line is invalid\n"
    "  3    written, but the format does not keep some fills as requested\n"
    "  130  interrupted\n";

constexpr const char* kEnvironment =
    "Environment:\n"
    "  HUEBRUSH_OFFICE      the command that starts LibreOffice\n"
    "  HUEBRUSH_EXTENSIONS  the folder that contains the unpacked extension\n"
    "  TMPDIR               where temporary folders are created\n";

constexpr const char* kFillsExamples =
    "Examples:\n"
    "  huebrush fills town.odt\n"
    "  huebrush fills town.odt --json > plan.json\n"
    "  huebrush fills --recursive documents/\n";

constexpr const char* kRecolorExamples =
    "Examples:\n"
    "  huebrush recolor town.odt -o blue.odt --map '#C00000=#0070C0'\n"
    "  huebrush recolor town.docx --in-place --map red=steelblue --tolerance 3\n"
    "  huebrush recolor town.odt -o plain.odt --row 3=none --row '5=#FFFFFF@50%'\n"
    "  huebrush recolor -r documents/ --output-dir new/ --map red=navy --ignore-missing\n";

/// The text in lines of no more characters than that, broken at spaces.
std::string wrapped(std::string_view words, std::size_t width) {
    std::string lines;
    std::size_t filled = 0;
    while (!words.empty()) {
        const std::size_t end = std::min(words.find(' '), words.size());
        const std::string_view word = words.substr(0, end);
        words.remove_prefix(std::min(end + 1, words.size()));
        const std::size_t size = base::lengthInCharacters(std::string(word));
        if (filled > 0 && filled + 1 + size > width) {
            lines += '\n';
            filled = 0;
        } else if (filled > 0) {
            lines += ' ';
            ++filled;
        }
        lines += word;
        filled += size;
    }
    return lines;
}

}  // namespace

HelpFormatter::HelpFormatter() {
    column_width(kNamesWidth);
}

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
    if (option->get_positional()) return option->get_expected_max() > 1 ? " ..." : "";
    return option->get_type_size() == 0 ? "" : " " + option->get_type_name();
}

std::string HelpFormatter::make_option_desc(const CLI::Option* option) const {
    return wrapped(option->get_description(), kLineWidth - kNamesWidth);
}

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
    std::ostringstream out;
    CLI::detail::format_help(out, command->get_display_name(),
                             wrapped(command->get_description(), kLineWidth - kNamesWidth),
                             kNamesWidth);
    return out.str();
}

std::string programFooter() {
    return text(kExitCodes, "\n", kEnvironment);
}

std::string fillsFooter() {
    return text(kFillsExamples, "\n", kExitCodes);
}

std::string recolorFooter() {
    return text(kRecolorExamples, "\n", kExitCodes);
}

}  // namespace huebrush::cli
