#include "app/draw/FontCatalogue.h"

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

bool Lookup(const std::string& family) {
    const PatternOwner wanted(FcPatternCreate());
    if (!wanted || !FcPatternAddString(wanted.get(), FC_FAMILY, FontconfigText(family))) {
        return false;
    }
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const PatternOwner found(FcFontMatch(nullptr, wanted.get(), &result));
    FcChar8* name = nullptr;
    for (int i = 0; found && FcPatternGetString(found.get(), FC_FAMILY, i, &name) == FcResultMatch;
         ++i) {
        if (FcStrCmpIgnoreCase(name, FontconfigText(family)) == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool FontCatalogue::Has(const std::string& family) {
    if (family.empty()) {
        return false;
    }
    const auto [entry, isNew] = known_.try_emplace(family, false);
    if (isNew) {
        entry->second = Lookup(family);
    }
    return entry->second;
}

}  // namespace app
