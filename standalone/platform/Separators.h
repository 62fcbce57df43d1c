// The characters that separate the folders of a path. Internal to the host library.
#pragma once

namespace standalone {

extern const wchar_t* const kPathSeparators;

}  // namespace standalone
