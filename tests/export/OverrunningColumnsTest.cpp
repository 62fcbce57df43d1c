// Column blocks that outgrow the place that was left for them. What they run into depends on the
// length of a line end, so the bytes here are those of systems with one-byte line ends.
#include "tests/export/ExportRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace mif::test {

TEST(LateColumns, KeptReplaceTheFirstOnesAndTheBlockRunsIntoTheObjects) {
    ExportRun run;
    static_cast<void>(run.Begin());
    static_cast<void>(run.Send(Markers({{1.0, 2.0, 0.0}})));
    run.SendColumns({L"A", L"B"});
    static_cast<void>(run.Send(With(Markers({{3.0, 4.0, 0.0}}), {{L"A", L"a"}, {L"B", L"b"}})));
    static_cast<void>(run.End());

    EXPECT_EQ(run.Mid(), "\"\"\n\"a\" ,\"b\"\n");
    EXPECT_THAT(run.Mif(), testing::EndsWith("COLUMNS 2\n"
                                             "  A char (1)    \n"
                                             "  B char (1)    \n"
                                             "\n"
                                             "POINT 3 4\n"));
}

TEST(AColumnWidthOf100000, KeptRunsIntoTheEmptyLineAndData) {
    ExportRun run;
    static_cast<void>(run.Begin());
    run.SendColumns({L"A"});
    const std::wstring value(100000, L'x');
    static_cast<void>(run.Send(With(Markers({{1.0, 2.0, 0.0}}), {{L"A", value.c_str()}})));
    static_cast<void>(run.End());

    EXPECT_THAT(run.Mif(), testing::EndsWith("  A char (100000)\nDATA\nPOINT 1 2\n"));
}

}  // namespace mif::test
