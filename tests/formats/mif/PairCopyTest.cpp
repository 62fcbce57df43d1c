#include "app/formats/mif/PairCopy.h"

#include "tests/support/KeptMessages.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {

constexpr const char* kHeader = "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\n"
                                "CoordSys Earth Projection 1, 104\n\n"
                                "Columns 1\n  id Integer\nData\n\n";

class ACopyOfAPair : public testing::Test {
protected:
    ACopyOfAPair() {
        sourceOptions_.asIs = true;
        sourceOptions_.noStore = true;
        sourceOptions_.modulePath = QOLF_MODULE;
        targetOptions_.noStore = true;
        targetOptions_.modulePath = QOLF_MODULE;
    }

    bool Copy(const std::string& objects) {
        folder_.Write("in.mif", kHeader + objects);
        folder_.Write("in.mid", "1\n2\n");
        return app::CopyPair(folder_.path() / "in.mif", sourceOptions_, folder_.path() / "out.mif",
                             targetOptions_, messages_.Reporter());
    }

    bool HasLine(const std::string& words) const {
        return folder_.Read("out.mif").find(words) != std::string::npos;
    }

    support::TemporaryFolder folder_;
    support::KeptMessages messages_;
    app::SourceOptions sourceOptions_;
    app::TargetOptions targetOptions_;
};

TEST_F(ACopyOfAPair, HasObjectsStylesSystemAndRows) {
    EXPECT_TRUE(Copy("Line 1 2 3 4\n    Pen (3,2,255)\nPoint 5 6\n"));

    EXPECT_TRUE(HasLine("PLINE 2\n1 2\n3 4\n"));
    EXPECT_TRUE(HasLine(",2,255)") || HasLine(", 2, 255)")) << folder_.Read("out.mif");
    EXPECT_TRUE(HasLine("POINT 5 6"));
    EXPECT_TRUE(HasLine("Projection 1, 104\n")) << folder_.Read("out.mif");
    EXPECT_EQ(folder_.Read("out.mid"), "\"1\"\n\"2\"\n");
    EXPECT_EQ(messages_.Text(), "");
}

TEST_F(ACopyOfAPair, LeavesOutWhatTheExportDoesNotRender) {
    targetOptions_.optionString = "RenderMarkers=0;ForgetOptions=1";

    EXPECT_TRUE(Copy("Line 1 2 3 4\nPoint 5 6\n"));

    EXPECT_TRUE(HasLine("PLINE"));
    EXPECT_FALSE(HasLine("POINT"));
}

TEST_F(ACopyOfAPair, IsNotMadeOfNothing) {
    EXPECT_FALSE(Copy(""));

    EXPECT_FALSE(folder_.Has("out.mif"));
    EXPECT_FALSE(folder_.Has("out.mid"));
}

}  // namespace
