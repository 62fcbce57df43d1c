// The two dialog templates as data, for hosts without Windows resources.
#pragma once

#include "host/platform/WindowSystem.h"

namespace resources {

extern const platform::DialogTemplate kImportDialog;
extern const platform::DialogTemplate kExportDialog;

}  // namespace resources
