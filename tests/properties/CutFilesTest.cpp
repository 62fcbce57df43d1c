// A file that is cut anywhere is imported without a crash, and gives no more objects than the
// whole.
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"
#include "standalone/IoHost.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace property_test {

namespace {

constexpr std::string_view kMap =
    "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\nCoordSys Earth Projection 1, 104\n\n"
    "Columns 2\n  A Integer\n  B Char(9)\nData\n\nNone\nPoint 10 20\n    Symbol (35,255,12)\n"
    "Line 1 2 33 44\n    Pen (1,2,65280)\nPline 3\n1 2\n33 44\n5 6\nPline Multiple 2\n2\n1 2\n3 4\n"
    "12\n1 2\n3 4\n5 6\n7 8\n9 10\n1 2\n3 4\n5 6\n7 8\n9 10\n1 2\n3 4\n    Pen (11,59,255)\n"
    "Region 2\n4\n0 0\n10 0\n10 10\n0 0\n3\n1 1\n2 1\n2 2\n    Pen (1,2,0)\n    Brush (2,255)\n"
    "Arc 0 0 10 10\n10 100\nText \"a text\"\n0 0 10 2\n    Font (\"Arial\",1,0,255)\n    Angle 45\n"
    "Rect 0 0 10 20\nRoundRect 0 0 10 20 3\nEllipse 0 0 10 20\nMultipoint 12\n1 2\n3 4\n5 6\n1 2\n"
    "3 4\n5 6\n1 2\n3 4\n5 6\n1 2\n3 4\n5 6\nCollection 2\nPline 2\n1 2\n3 4\nMultipoint 2\n1 2\n"
    "3 4\nPoint 1 2\n";

struct StoreOwner {
    standalone::OptionStore store;
};

class CountingHost : private StoreOwner, public zeio::IoHost {
public:
    CountingHost() : IoHost(store) {}
    void ImportObject(zeio::TrBase& object) override {
        const shr::CTypeInfo* type = object.GetTypeId();
        for (const shr::CTypeInfo* style :
             {zeio::TrPen::GetClassTypeId(), zeio::TrBrush::GetClassTypeId(),
              zeio::TrFont::GetClassTypeId(), zeio::TrCRS::GetClassTypeId(),
              zeio::TrNamedIds::GetClassTypeId(), zeio::TrInitGraphicsImp::GetClassTypeId()}) {
            if (type == style) {
                return;
            }
        }
        ++count_;
    }
    std::size_t count() const { return count_; }

private:
    std::size_t count_ = 0;
};

class ACutFile : public testing::Test {
protected:
    ACutFile() { static_cast<void>(folder_.Write("map.mid", "1,a\n2,b\n3,\"c\n")); }

    // How many graphic objects came; an error ends an import as it may.
    std::size_t ObjectsOf(std::string_view mif) const {
        CountingHost host;
        zeio::IoManager manager(host);
        mif::MifImportFilter filter(manager);
        try {
            filter.Import(folder_.Write("map.mif", mif));
        } catch (const shr::IError&) {  // NOLINT(bugprone-empty-catch): what came counts
        }
        return host.count();
    }

    support::TemporaryFolder folder_;
};

}  // namespace

TEST_F(ACutFile, AtAnyByteGivesNoMoreObjectsThanTheWhole) {
    std::vector<std::size_t> wrong;
    const std::size_t most = ObjectsOf(kMap);
    ASSERT_EQ(most, 15U);

    for (std::size_t length = kMap.size(); length-- > 0;) {
        if (ObjectsOf(kMap.substr(0, length)) > most) {
            wrong.push_back(length);
        }
    }

    EXPECT_THAT(wrong, testing::IsEmpty());
}

}  // namespace property_test
