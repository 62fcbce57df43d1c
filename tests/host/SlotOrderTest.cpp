// The order of the virtual slots: a host that was built elsewhere calls them by their place.
#include "host/zeio/IoExportFilter.h"
#include "host/zeio/IoImportFilter.h"
#include "host/zeio/IoPropertyPage.h"
#include "host/zeio/TrObjects.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

namespace {

using zeio::IoExportFilter;
using zeio::IoFilter;
using zeio::IoImportFilter;
using zeio::IoPropertyPage;

// The place of a virtual operation behind the destructor, which is slot 0.
//
// A pointer to such an operation begins with its offset in the virtual table, whose first two
// entries are the destructor's.
template <typename Operation> std::uintptr_t SlotOf(Operation operation) {
    constexpr std::uintptr_t kFurtherDestructorEntries = 1;
    std::uintptr_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return offset / sizeof(void*) - kFurtherDestructorEntries;
}

struct SlotRow {
    std::string name;
    std::uintptr_t actual;
    std::uintptr_t slot;
};
void PrintTo(const SlotRow& row, std::ostream* out) {
    *out << row.name;
}

class VirtualSlot : public testing::TestWithParam<SlotRow> {};

TEST_P(VirtualSlot, StandsInItsPlace) {
    EXPECT_EQ(GetParam().actual, GetParam().slot);
}

std::string SlotRowName(const testing::TestParamInfo<SlotRow>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    OfAFilter, VirtualSlot,
    testing::Values(SlotRow{"GetFilterIdentity", SlotOf(&IoFilter::GetFilterIdentity), 1},
                    SlotRow{"GetPropertyPages", SlotOf(&IoFilter::GetPropertyPages), 2},
                    SlotRow{"SetOptionsFromString", SlotOf(&IoFilter::SetOptionsFromString), 3},
                    SlotRow{"GetOptionsInStringForm", SlotOf(&IoFilter::GetOptionsInStringForm), 4},
                    SlotRow{"GetOptionStringDelimiter", SlotOf(&IoFilter::GetOptionStringDelimiter),
                            5},
                    SlotRow{"SupportsObjectType", SlotOf(&IoFilter::SupportsObjectType), 6}),
    SlotRowName);

INSTANTIATE_TEST_SUITE_P(
    OfAnImportFilter, VirtualSlot,
    testing::Values(SlotRow{"CanImportFile", SlotOf(&IoImportFilter::CanImportFile), 7},
                    SlotRow{"GetFileInfo", SlotOf(&IoImportFilter::GetFileInfo), 8},
                    SlotRow{"HasDelayedImport", SlotOf(&IoImportFilter::HasDelayedImport), 9},
                    SlotRow{"Import", SlotOf(&IoImportFilter::Import), 10},
                    SlotRow{"ImportFromMemory", SlotOf(&IoImportFilter::ImportFromMemory), 11},
                    SlotRow{"ImportObject", SlotOf(&IoImportFilter::ImportObject), 12}),
    SlotRowName);

INSTANTIATE_TEST_SUITE_P(
    OfAnExportFilter, VirtualSlot,
    testing::Values(
        SlotRow{"BeginExport", SlotOf(&IoExportFilter::BeginExport), 7},
        SlotRow{"BeginExportToMemory", SlotOf(&IoExportFilter::BeginExportToMemory), 8},
        SlotRow{"BeginExportToGlobalMemory", SlotOf(&IoExportFilter::BeginExportToGlobalMemory), 9},
        SlotRow{"ExportObject", SlotOf(&IoExportFilter::ExportObject), 10},
        SlotRow{"EndExport", SlotOf(&IoExportFilter::EndExport), 11},
        SlotRow{"EndExportToMemory", SlotOf(&IoExportFilter::EndExportToMemory), 12},
        SlotRow{"EndExportToGlobalMemory", SlotOf(&IoExportFilter::EndExportToGlobalMemory), 13}),
    SlotRowName);

INSTANTIATE_TEST_SUITE_P(
    OfAPage, VirtualSlot,
    testing::Values(SlotRow{"GetTypeId", SlotOf(&IoPropertyPage::GetTypeId), 1},
                    SlotRow{"ForwardDlgProc", SlotOf(&IoPropertyPage::ForwardDlgProc), 2},
                    SlotRow{"DlgProc", SlotOf(&IoPropertyPage::DlgProc), 3}),
    SlotRowName);

INSTANTIATE_TEST_SUITE_P(OfATranslationObject, VirtualSlot,
                         testing::Values(SlotRow{"GetTypeId", SlotOf(&zeio::TrBase::GetTypeId), 1}),
                         SlotRowName);

}  // namespace
