#include "standalone/platform/Separators.h"

namespace standalone {

// With the colon of "C:roads.mif".
const wchar_t* const kPathSeparators = L"\\/:";

}  // namespace standalone
