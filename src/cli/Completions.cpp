// SPDX-License-Identifier: MPL-2.0

#include "cli/Completions.h"

#include <algorithm>
#include <string_view>

#include "base/Text.h"

namespace huebrush::cli {

namespace {

using base::text;

enum class Values { none, files, folders, words, other };

/// What a shell needs to know of an option.
struct Option {
    std::vector<std::string> names;  ///< with their dashes
    std::string effect;
    Values values = Values::none;
    std::string words;  ///< separated by spaces
};

/// A command by its words, without the program's own name.
struct Command {
    std::string path;
    std::string effect;
    std::vector<Option> options;
    std::vector<std::string> subcommands;
    bool takesFiles = false;
    std::string words;  ///< that it takes otherwise, separated by spaces
};

Values valuesOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    if (option.get_expected_max() == 0) return Values::none;
    if (type == "FILE") return Values::files;
    if (type == "DIR") return Values::folders;
    return type.find('|') == std::string::npos ? Values::other : Values::words;
}

Option optionOf(const CLI::Option& option) {
    Option known;
    for (const std::string& each : option.get_snames()) known.names.push_back("-" + each);
    for (const std::string& each : option.get_lnames()) known.names.push_back("--" + each);
    known.effect = option.get_description();
    known.values = valuesOf(option);
    if (known.values == Values::words) {
        known.words = option.get_type_name();
        std::replace(known.words.begin(), known.words.end(), '|', ' ');
    }
    return known;
}

void collect(const CLI::App& app, const std::string& path, std::vector<Command>& commands) {
    Command command{path, app.get_description(), {}, {}, false, {}};
    for (const CLI::Option* const each : app.get_options()) {
        Option option = optionOf(*each);
        if (!each->get_positional()) {
            command.options.push_back(std::move(option));
        } else if (option.values == Values::words) {
            command.words = option.words;
        } else {
            command.takesFiles |= option.values == Values::files;
        }
    }
    const auto subcommands = app.get_subcommands([](const CLI::App*) { return true; });
    for (const CLI::App* const each : subcommands) command.subcommands.push_back(each->get_name());
    commands.push_back(std::move(command));
    for (const CLI::App* const each : subcommands) {
        collect(*each, text(path, path.empty() ? "" : " ", each->get_name()), commands);
    }
}

std::string joined(const std::vector<std::string>& words) {
    std::string all;
    for (const std::string& each : words) all.append(all.empty() ? "" : " ").append(each);
    return all;
}

/// The first sentence, as a shell shows it beside a name; in quotes for the shell.
std::string briefly(const std::string& effect) {
    constexpr std::string_view kEnds = ";.";
    std::string brief = effect.substr(0, effect.find_first_of(kEnds));
    std::erase_if(brief, [](char each) {
        return std::string_view("'\\[]`$").find(each) != std::string_view::npos;
    });
    std::replace(brief.begin(), brief.end(), ':', ',');
    return brief;
}

/// The cases of a shell's "case" that lead to the path of the command that is being completed.
std::string bashPaths(const std::vector<Command>& commands) {
    std::string cases;
    for (const Command& each : commands) {
        for (const std::string& name : each.subcommands) {
            cases += text(cases.empty() ? "" : " | ", "\"", each.path, each.path.empty() ? "" : " ",
                          name, "\"");
        }
    }
    return cases;
}

std::string bashValues(const Command& command) {
    std::string cases;
    for (const Option& option : command.options) {
        if (option.values == Values::none) continue;
        std::string names;
        for (const std::string& each : option.names) {
            names += text(names.empty() ? "" : " | ", "\"", command.path, " ", each, "\"");
        }
        const char* const action = option.values == Values::files     ? "_huebrush_files; return"
                                   : option.values == Values::folders ? "_huebrush_files -d; return"
                                                                      : "return";
        cases += option.values == Values::words
                     ? text("    ", names, ") words=\"", option.words, "\" ;;\n")
                     : text("    ", names, ") ", action, " ;;\n");
    }
    return cases;
}

std::string bashScript(const std::vector<Command>& commands) {
    std::string values;
    std::string words;
    for (const Command& each : commands) {
        values += bashValues(each);
        std::string options;
        for (const Option& option : each.options) {
            options += text(options.empty() ? "" : " ", joined(option.names));
        }
        words += text("    \"", each.path, "\") options=\"", options, "\" names=\"",
                      joined(each.subcommands), each.words, "\" ;;\n");
    }
    return text(
        "# Completions of huebrush for bash.\n"
        "_huebrush_files() {\n"
        "  compopt -o filenames\n"
        "  mapfile -t COMPREPLY < <(compgen \"${1:--f}\" -- \"$cur\")\n"
        "}\n"
        "_huebrush() {\n"
        "  local cur=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
        "  local command= words= options= names= i\n"
        "  COMPREPLY=()\n"
        "  for ((i = 1; i < COMP_CWORD; ++i)); do\n"
        "    case \"${command:+$command }${COMP_WORDS[i]}\" in\n"
        "      ",
        bashPaths(commands),
        ") command=\"${command:+$command }${COMP_WORDS[i]}\" ;;\n"
        "    esac\n"
        "  done\n"
        "  case \"$command $previous\" in\n",
        values,
        "  esac\n"
        "  case \"$command\" in\n",
        words,
        "  esac\n"
        "  if [[ -z $words ]]; then\n"
        "    if [[ $cur == -* ]]; then words=$options; else words=$names; fi\n"
        "  fi\n"
        "  if [[ -n $words ]]; then\n"
        "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$cur\")\n"
        "  else\n"
        "    _huebrush_files\n"
        "  fi\n"
        "}\n"
        "complete -F _huebrush huebrush\n");
}

std::string zshFunctionOf(const std::string& path) {
    std::string name = text("_huebrush_", path);
    std::replace(name.begin(), name.end(), ' ', '_');
    return path.empty() ? "_huebrush" : name;
}

std::string zshValues(const Option& option) {
    switch (option.values) {
        case Values::none:
            return "";
        case Values::files:
            return ":file:_files";
        case Values::folders:
            return ":folder:_files -/";
        case Values::words:
            return text(":value:(", option.words, ")");
        default:
            return ":value:";
    }
}

std::string zshArguments(const Command& command) {
    std::string arguments;
    for (const Option& option : command.options) {
        for (const std::string& name : option.names) {
            arguments +=
                text(" \\\n    '*", name, "[", briefly(option.effect), "]", zshValues(option), "'");
        }
    }
    return arguments;
}

std::string zshFunction(const Command& command, const std::vector<Command>& commands) {
    const std::string begin = text(zshFunctionOf(command.path),
                                   "() {\n  local context state state_descr line\n"
                                   "  typeset -A opt_args\n  _arguments -C",
                                   zshArguments(command));
    if (command.subcommands.empty()) {
        const std::string words = text(" \\\n    '1:value:(", command.words, ")'");
        return text(begin, command.takesFiles ? " \\\n    '*:file:_files'" : "",
                    command.words.empty() ? "" : words, "\n}\n");
    }
    std::string names;
    std::string cases;
    for (const Command& each : commands) {
        const bool isBelow = std::any_of(
            command.subcommands.begin(), command.subcommands.end(), [&](const std::string& name) {
                return each.path == text(command.path, command.path.empty() ? "" : " ", name);
            });
        if (!isBelow) continue;
        const std::string name = each.path.substr(each.path.rfind(' ') + 1);
        names += text(" '", name, ":", briefly(each.effect), "'");
        cases += text("        ", name, ") ", zshFunctionOf(each.path), " ;;\n");
    }
    return text(begin, " \\\n    '1:command:->command' \\\n    '*::argument:->arguments'\n",
                "  case $state in\n    command)\n      local -a commands=(", names,
                ")\n      _describe command commands ;;\n    arguments)\n      case $words[1] in\n",
                cases, "      esac ;;\n  esac\n}\n");
}

std::string zshScript(const std::vector<Command>& commands) {
    std::string script = "#compdef huebrush\n# Completions of huebrush for zsh.\n";
    for (const Command& each : commands) script += zshFunction(each, commands);
    // Sourced, it defines the completion; loaded by its file's name, it is the completion.
    return script +
           "if [[ $funcstack[1] == _huebrush ]]; then _huebrush \"$@\"; "
           "else compdef _huebrush huebrush; fi\n";
}

/// The condition under which a command is the one that is being completed.
std::string fishCondition(const Command& command) {
    if (command.path.empty()) return "__fish_use_subcommand";
    std::string condition;
    std::string_view path = command.path;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find(' '), path.size());
        condition += text(condition.empty() ? "" : "; and ", "__fish_seen_subcommand_from ",
                          path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    if (command.subcommands.empty()) return condition;
    return text(condition, "; and not __fish_seen_subcommand_from ", joined(command.subcommands));
}

std::string fishOption(const Option& option) {
    std::string line;
    for (const std::string& name : option.names) {
        line +=
            name.starts_with("--") ? text(" -l ", name.substr(2)) : text(" -s ", name.substr(1));
    }
    switch (option.values) {
        case Values::none:
            break;
        case Values::files:
            line += " -r -F";
            break;
        case Values::folders:
            line += " -x -a '(__fish_complete_directories)'";
            break;
        case Values::words:
            line += text(" -x -a '", option.words, "'");
            break;
        default:
            line += " -x";
    }
    return text(line, " -d '", briefly(option.effect), "'");
}

std::string fishScript(const std::vector<Command>& commands) {
    std::string script = "# Completions of huebrush for fish.\n";
    for (const Command& each : commands) {
        const std::string begin = text("complete -c huebrush -n '", fishCondition(each), "'");
        if (!each.takesFiles) script += text(begin, " -f\n");
        if (!each.words.empty()) script += text(begin, " -a '", each.words, "'\n");
        for (const Option& option : each.options) script += text(begin, fishOption(option), "\n");
        for (const Command& below : commands) {
            const std::string name = below.path.substr(below.path.rfind(' ') + 1);
            const std::string path = text(each.path, each.path.empty() ? "" : " ", name);
            if (below.path.empty() || below.path != path) continue;
            script += text(begin, " -a ", name, " -d '", briefly(below.effect), "'\n");
        }
    }
    return script;
}

}  // namespace

const std::vector<std::string>& completedShells() {
    static const std::vector<std::string> kShells{"bash", "zsh", "fish"};
    return kShells;
}

std::string completionScript(const CLI::App& program, const std::string& shell) {
    std::vector<Command> commands;
    collect(program, "", commands);
    if (shell == "zsh") return zshScript(commands);
    return shell == "fish" ? fishScript(commands) : bashScript(commands);
}

}  // namespace huebrush::cli
