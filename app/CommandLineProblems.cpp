#include "app/CommandLineProblems.h"

#include "app/base/Suggestion.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace app {
namespace {

std::string InHelpOf(const std::string& command) {
    return command.empty() ? "; see qolf --help" : "; see qolf help " + command;
}

std::string WithoutDashes(const std::string& option) {
    return option.substr(std::min(option.find_first_not_of('-'), option.size()));
}

// The word that was meant, or begun; absent when none is near.
std::optional<std::string> MeantBy(const std::string& typed,
                                   const std::vector<std::string>& words) {
    constexpr std::size_t kShortestBeginning = 3;
    const std::string wanted = WithoutDashes(typed);
    std::vector<std::string> names;
    for (const std::string& word : words) {
        names.push_back(WithoutDashes(word));
        if (wanted.size() >= kShortestBeginning && names.back().starts_with(wanted)) {
            return word;
        }
    }
    const std::optional<std::string> name = NearestName(wanted, names);
    const auto at = name ? std::ranges::find(names, *name) : names.end();
    return at == names.end() ? std::nullopt
                             : std::optional(words[static_cast<std::size_t>(at - names.begin())]);
}

// "; did you mean ..?" when one of the words is near, else `otherwise`.
std::string Meant(const std::string& typed, const std::vector<std::string>& words,
                  const std::string& otherwise) {
    const std::optional<std::string> meant = MeantBy(typed, words);
    return meant ? "; did you mean " + *meant + "?" : otherwise;
}

std::vector<std::string> CommandsOf(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::App* below : command.get_subcommands(nullptr)) {
        if (!below->get_group().empty()) {
            names.push_back(below->get_name());
        }
    }
    return names;
}

std::vector<std::string> OptionsOf(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options(nullptr)) {
        for (const std::string& name : option->get_lnames()) {
            if (!option->get_group().empty()) {
                names.push_back("--" + name);
            }
        }
    }
    return names;
}

// Of an argument that no option and no command has taken.
std::string UnexpectedArgument(const CLI::App& command, const std::string& argument,
                               const std::string& help) {
    if (argument.size() > 1 && argument.front() == '-') {
        const std::string name = argument.substr(0, argument.find('='));
        return "there is no option " + name + Meant(name, OptionsOf(command), help);
    }
    const std::vector<std::string> commands = CommandsOf(command);
    if (!commands.empty()) {
        return "there is no command '" + argument + "'" + Meant(argument, commands, help);
    }
    return "'" + argument + "' is one argument too many" + help;
}

// Puts `after` in the place of `before`, which the text must have, and of all that follows it.
bool ReplaceFrom(std::string& text, std::string_view before, const std::string& after) {
    const std::size_t at = text.find(before);
    if (at == std::string::npos) {
        return false;
    }
    text.replace(at, std::string::npos, after);
    return true;
}

// The parser's objection to an option or its value.
std::string Objection(const std::string& parsers) {
    std::string text = parsers;
    if (ReplaceFrom(text, " is required", "")) {
        if (text == "A subcommand") {
            return "no command is named";
        }
        return text == "files" ? "no file is named" : text + " is missing";
    }
    constexpr std::string_view kOneValue = ": 1 required ";
    if (const std::size_t at = text.find(kOneValue); at != std::string::npos) {
        const std::size_t kind = at + kOneValue.size();
        return text.substr(0, at) +
               " needs a value: " + text.substr(kind, text.find(" missing", kind) - kind);
    }
    constexpr std::string_view kUnread = "Could not convert: ";
    if (const std::size_t at = text.find(" = "); text.starts_with(kUnread) && at < text.size()) {
        return text.substr(kUnread.size(), at - kUnread.size()) + " takes a number, not \"" +
               text.substr(at + 3) + "\"";
    }
    constexpr std::string_view kNeeds = " requires ";
    if (const std::size_t at = text.find(kNeeds); at != std::string::npos) {
        text.replace(at, kNeeds.size(), " needs ");
    }
    return text;
}

}  // namespace

std::string UnknownCommand(const CLI::App& program, const std::string& name) {
    return "there is no command '" + name + "'" +
           Meant(name, CommandsOf(program), "; qolf --help lists them");
}

std::string UsageProblem(const CLI::App& program, const CLI::ParseError& error) {
    const CLI::App* command = &program;
    std::string words;  // "options set"
    std::string topic;  // "options"
    for (auto named = program.get_subcommands(); !named.empty();
         named = command->get_subcommands()) {
        command = named.front();
        words += (words.empty() ? "" : " ") + command->get_name();
        topic = topic.empty() ? words : topic;
    }
    const std::string prefix = words.empty() ? "" : words + ": ";
    const std::string help = InHelpOf(topic);
    for (const std::string& argument : program.remaining(true)) {
        if (argument != "--") {
            return prefix + UnexpectedArgument(*command, argument, help);
        }
    }
    return prefix + Objection(error.what()) + help;
}

}  // namespace app
