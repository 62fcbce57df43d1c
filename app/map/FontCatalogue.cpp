#include "app/map/FontCatalogue.h"

#include "app/feature/LabelText.h"

#include <fontconfig/fontconfig.h>

#include <memory>

namespace app {

namespace {

constexpr int kLargestCode = 0xFFFF;
constexpr int kSymbolFontOffset = 0xF000;

// Hostile files name a font of their own for each point.
constexpr std::size_t kMostKnown = 10000;

const FcChar8* FontconfigText(const std::string& text) {
    return reinterpret_cast<const FcChar8*>(text.c_str());
}

struct DestroyPattern {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using PatternOwner = std::unique_ptr<FcPattern, DestroyPattern>;

// Null when the system has no family of this name.
PatternOwner FindFamily(const std::string& family) {
    const PatternOwner wanted(FcPatternCreate());
    if (!wanted || !FcPatternAddString(wanted.get(), FC_FAMILY, FontconfigText(family))) {
        return nullptr;
    }
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    PatternOwner found(FcFontMatch(nullptr, wanted.get(), &result));
    FcChar8* name = nullptr;
    for (int i = 0; found && FcPatternGetString(found.get(), FC_FAMILY, i, &name) == FcResultMatch;
         ++i) {
        if (FcStrCmpIgnoreCase(name, FontconfigText(family)) == 0) {
            return found;
        }
    }
    return nullptr;
}

std::string Lookup(const std::string& family, int code) {
    const PatternOwner font = FindFamily(family);
    FcCharSet* characters = nullptr;
    if (!font || FcPatternGetCharSet(font.get(), FC_CHARSET, 0, &characters) != FcResultMatch) {
        return "";
    }
    for (const int character : {code, code + kSymbolFontOffset}) {
        if (FcCharSetHasChar(characters, static_cast<FcChar32>(character))) {
            return CleanCharacter(character);
        }
    }
    return "";
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
