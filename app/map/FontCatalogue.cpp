#include "app/map/FontCatalogue.h"

#include "app/feature/LabelText.h"
#include "app/map/platform/Fonts.h"

#include <array>
#include <memory>

namespace app {

namespace {

constexpr int kLargestCode = 0xFFFF;
constexpr int kSymbolFontOffset = 0xF000;

// Hostile files name a font of their own for each point.
constexpr std::size_t kMostKnown = 10000;

std::string Lookup(const std::string& family, int code) {
    const std::array places{code, code + kSymbolFontOffset};
    const int character = FirstCharacterOfFamily(family, places);
    return character != 0 ? CleanCharacter(character) : "";
}

}  // namespace

std::string FontCatalogue::CharacterOf(const std::string& family, int code) {
    if (family.empty() || code <= ' ' || code > kLargestCode) {
        return "";
    }
    if (known_.size() > kMostKnown) {
        known_.clear();
    }
    const auto [entry, isNew] = known_.try_emplace({family, code});
    if (isNew) {
        entry->second = Lookup(family, code);
    }
    return entry->second;
}

StyleResolver ResolverWithFonts(StyleSource source) {
    return {source,
            [fonts = std::make_shared<FontCatalogue>()](const std::string& family, int code) {
                return fonts->CharacterOf(family, code);
            }};
}

}  // namespace app
