#include "app/CommandLibrary.h"
#include "app/Commands.h"
#include "app/base/Paths.h"

#include <algorithm>
#include <span>

namespace app {
namespace {

bool IsOwn(const std::string& name) {
    return std::ranges::any_of(Commands(),
                               [&name](const CommandEntry& entry) { return entry.name == name; });
}

// Whether the argument is a folder, an archive, a file in one, or a file of another format.
bool NeedsLibrary(const std::string& argument) {
    if (argument.empty() || argument == "-") {
        return argument == "-";
    }
    const std::filesystem::path path = PathFromArgument(argument);
    std::error_code error;
    for (std::filesystem::path outer = path; !outer.empty() && outer != outer.root_path();
         outer = outer.parent_path()) {
        if (std::filesystem::exists(outer, error)) {
            const bool isFile = !std::filesystem::is_directory(outer, error);
            const std::string extension = LowerExtension(outer);
            return outer == path ? !isFile || (extension != ".mif" && extension != ".mid") : isFile;
        }
    }
    return false;
}

// What replay reads is no map.
bool IsForLibrary(const std::string& wanted, const std::vector<std::string>& arguments) {
    return !IsOwn(wanted) || (wanted != "replay" && std::ranges::any_of(arguments, NeedsLibrary));
}

}  // namespace

void AddCommands(CLI::App& program, CommandContext& context, const std::string& wanted,
                 const std::vector<std::string>& arguments) {
    context.identify = [](const CoordinateSystem& system) {
        return LoadCommandLibrary().identify(system);
    };
    context.systemOfOption = [](const std::string& option, const std::string& definition,
                                Reporter& reporter) {
        return LoadCommandLibrary().systemOfOption(option, definition, reporter);
    };
    context.runStats = [](const StatsOptions& options, Reporter& reporter) {
        return LoadCommandLibrary().runStats(options, reporter);
    };
    std::span<const CommandEntry> commands = Commands();
    if (IsForLibrary(wanted, arguments)) {
        const CommandLibrary& library = LoadCommandLibrary();
        context.resolveInputs = library.resolveInputs;
        context.openUnlessPair = library.openUnlessPair;
        commands = library.commands;
    }
    for (const CommandEntry& entry : commands) {
        entry.add(program, context);
    }
}

}  // namespace app
