// The type record of the export options page, which the host knows from the moment the module is
// loaded. Making it is all that loading the module does.
#include "export/MifExportDlg.h"
#include "host/shr/CTypeInfo.h"

namespace mif {

namespace {

const shr::CTypeInfo g_pageType(L"MifExportDlg", nullptr, zeio::IoPropertyPage::GetClassTypeId());

}  // namespace

const shr::CTypeInfo* MifExportDlg::GetClassTypeId() {
    return &g_pageType;
}

}  // namespace mif
