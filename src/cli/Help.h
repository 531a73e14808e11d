// SPDX-License-Identifier: MPL-2.0

#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace huebrush::cli {

/// Help in lines that fit into a terminal: of each option its names, what value it takes, and what
/// it does.
class HelpFormatter final : public CLI::Formatter {
 public:
    HelpFormatter();

    std::string make_option_opts(const CLI::Option* option) const override;
    std::string make_option_desc(const CLI::Option* option) const override;
    std::string make_subcommand(const CLI::App* command) const override;
};

/// What follows the options.
std::string programFooter();
std::string fillsFooter();
std::string recolorFooter();

}  // namespace huebrush::cli
