// The import options dialog: two check boxes, Defaults, OK and Cancel.
//
// One dialog can be open at a time, on the host's user-interface thread.
#pragma once

#include "host/platform/WindowSystem.h"

namespace mif {

// The dialog's procedure; MifImportFilter::ShowOptionsDialog opens the dialog with it. 1 for a
// message that was handled, else 0: also for every message while no such dialog is open. The host's
// own exceptions are logged and end here; others pass.
INT_PTR ImportDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace mif
