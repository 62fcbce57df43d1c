// What a shell may offer for a word of a command line. The command is hidden: completion calls it.
#include "app/base/Output.h"
#include "app/commands/Command.h"
#include "app/crs/Definitions.h"
#include "app/formats/Formats.h"
#include "app/mif/Charsets.h"
#include "app/options/OptionsRun.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace app {
namespace {

using Words = std::vector<std::string>;

Words FormatWords() {
    Words words;
    for (const Format& format : Formats()) {
        words.emplace_back(format.Name());
    }
    return words;
}

Words PictureWords() {
    return {"svg", "png", "pdf"};
}

Words EncodingWords() {
    std::set<std::string> words;
    for (const Charset& charset : AllCharsets()) {
        if (!charset.iconvName.empty()) {
            words.emplace(charset.iconvName);
        }
    }
    return {words.begin(), words.end()};
}

Words SystemWords() {
    Words words = RegisteredSystems();
    words.insert(words.begin(), {"wgs84"});
    return words;
}

Words OutputSystemWords() {
    Words words = SystemWords();
    words.insert(words.begin(), {"keep"});
    return words;
}

Words SettingWords() {
    Words words;
    for (const std::string& name : OptionNames()) {
        words.push_back(name + "=yes");
        words.push_back(name + "=no");
    }
    return words;
}

// The words that may follow another one.
struct Offer {
    const char* command;   // null: any
    const char* previous;  // an option, or a command below the command
    Words (*words)();
};

constexpr Offer kOffers[] = {
    {"draw", "--to", PictureWords},         {nullptr, "--to", FormatWords},
    {nullptr, "--crs", OutputSystemWords},  {nullptr, "--assume-crs", SystemWords},
    {nullptr, "--encoding", EncodingWords}, {nullptr, "--output-encoding", EncodingWords},
    {"options", "set", SettingWords},
};

int PrintOffers(const std::string& command, const std::string& previous) {
    OutputFile out("-", IfExists::Overwrite);
    for (const Offer& offer : kOffers) {
        if ((offer.command == nullptr || command == offer.command) && previous == offer.previous) {
            for (const std::string& word : offer.words()) {
                out.Write(word + "\n");
            }
            break;
        }
    }
    out.Finish();
    return 0;
}

}  // namespace

void AddCompleteCommand(CLI::App& program, CommandContext& context) {
    CLI::App* command = program.add_subcommand("complete", "Print what may follow a word");
    command->group("");
    const auto words = std::make_shared<Words>();
    command->add_option("words", *words, "After --: a command, and the word that was typed last")
        ->expected(2)
        ->required();
    command->callback([words, &context] {
        context.run = [words] { return PrintOffers(words->front(), words->back()); };
    });
}

}  // namespace app
