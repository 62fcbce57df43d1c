#include "standalone/platform/Separators.h"

namespace standalone {

const wchar_t* const kPathSeparators = L"/";

}  // namespace standalone
