#include "app/map/platform/Fonts.h"

#include "host/platform/Stdio.h"

#include <cwchar>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace app {
namespace {

constexpr WORD kNoGlyph = 0xFFFF;

// A drawing context of no window, with a font of the family.
class FontInMemory {
public:
    explicit FontInMemory(const LOGFONTW& font)
        : context_(CreateCompatibleDC(nullptr)), font_(CreateFontIndirectW(&font)),
          before_(SelectObject(context_, font_)) {}
    ~FontInMemory() {
        SelectObject(context_, before_);
        DeleteObject(font_);
        DeleteDC(context_);
    }
    FontInMemory(const FontInMemory&) = delete;
    FontInMemory& operator=(const FontInMemory&) = delete;

    bool Has(wchar_t character) const {
        WORD glyph = kNoGlyph;
        return GetGlyphIndicesW(context_, &character, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS) !=
                   GDI_ERROR &&
               glyph != kNoGlyph;
    }

private:
    HDC context_;
    HFONT font_;
    HGDIOBJ before_;
};

int CALLBACK NoteFamily(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM isFound) {
    *reinterpret_cast<bool*>(isFound) = true;
    return 0;  // ends the search
}

bool HasFamily(LOGFONTW font) {
    bool isFound = false;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &font, NoteFamily, reinterpret_cast<LPARAM>(&isFound), 0);
    ReleaseDC(nullptr, screen);
    return isFound;
}

}  // namespace

const char* UsualFontFamily() {
    return "Arial";
}

int FirstCharacterOfFamily(const std::string& family, std::span<const int> characters) {
    const std::wstring name = platform::PathFromBytes(family);
    LOGFONTW font{};
    if (name.size() >= LF_FACESIZE) {
        return 0;
    }
    name.copy(font.lfFaceName, name.size());
    font.lfCharSet = DEFAULT_CHARSET;
    if (!HasFamily(font)) {
        return 0;
    }
    const FontInMemory loaded(font);
    for (const int character : characters) {
        if (loaded.Has(static_cast<wchar_t>(character))) {
            return character;
        }
    }
    return 0;
}

}  // namespace app
