#include "module/Module.h"

#include "export/MifExportFilter.h"
#include "import/MifImportFilter.h"

#include <new>

extern "C" {

zeio::IoImportFilter* ImportMIF(zeio::IoManager& manager) {
    return new (std::nothrow) mif::MifImportFilter(manager);
}

zeio::IoExportFilter* ExportMIF(zeio::IoManager& manager) {
    return new (std::nothrow) mif::MifExportFilter(manager);
}

}  // extern "C"
