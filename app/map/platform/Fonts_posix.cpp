#include "app/map/platform/Fonts.h"

#include <fontconfig/fontconfig.h>

#include <memory>

namespace app {
namespace {

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

}  // namespace

const char* UsualFontFamily() {
    return "sans-serif";
}

int FirstCharacterOfFamily(const std::string& family, std::span<const int> characters) {
    const PatternOwner font = FindFamily(family);
    FcCharSet* known = nullptr;
    if (!font || FcPatternGetCharSet(font.get(), FC_CHARSET, 0, &known) != FcResultMatch) {
        return 0;
    }
    for (const int character : characters) {
        if (FcCharSetHasChar(known, static_cast<FcChar32>(character))) {
            return character;
        }
    }
    return 0;
}

}  // namespace app
