// Filters' options pages in the window system's own property sheet. Windows only; elsewhere
// standalone/PropertySheet.h shows the same pages.
#pragma once

#include "host/platform/Export.h"
#include "host/platform/WindowSystem.h"

#include <string>
#include <vector>

namespace zeio {
class IoPropertyPage;
}

namespace standalone {

// Shows the pages until the sheet is closed; parent may be null. True when OK was pressed. Without
// pages, or when the sheet can't be shown, the result is false.
QOLF_HOST_API bool RunPropertySheet(const std::vector<zeio::IoPropertyPage*>& pages,
                                    const std::wstring& caption, HWND parent);

}  // namespace standalone
