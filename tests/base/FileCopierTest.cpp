// Copies of parts of files: what they hold, and which file a failure names.
#include "app/base/platform/FileCopier.h"

#include "app/base/Errors.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <limits>
#include <string>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ACopyOfAFile : public testing::Test {
protected:
    std::filesystem::path Path(const char* name) const { return folder_.path() / name; }

    // Copies the whole of a file. Returns the message of the failure.
    std::string FailureOf(const std::filesystem::path& source,
                          const std::filesystem::path& target) {
        try {
            app::FileCopier copier(source, target);
            copier.Copy(0, std::numeric_limits<std::int64_t>::max());
            copier.Finish();
        } catch (const app::Failure& failure) {
            return failure.what();
        }
        return "";
    }

    support::TemporaryFolder folder_;
};

TEST_F(ACopyOfAFile, HasItsRangesAndTheTextBetweenThem) {
    const std::string large(300000, 'x');
    folder_.Write("source", "begin" + large + "end");
    app::FileCopier copier(Path("source"), Path("target"));

    copier.Copy(2, 5 + large.size());
    copier.Write("; ");
    copier.Copy(5 + large.size(), std::numeric_limits<std::int64_t>::max());
    copier.Finish();

    EXPECT_EQ(folder_.Read("target"), "gin" + large + "; end");
}

TEST_F(ACopyOfAFile, ThatIsNotThereNamesIt) {
    EXPECT_THAT(FailureOf(Path("missing"), Path("target")), HasSubstr("missing: can't open: "));
    EXPECT_FALSE(folder_.Has("target"));
}

TEST_F(ACopyOfAFile, IntoAFolderThatIsNotThereNamesTheTarget) {
    folder_.Write("source", "x");

    EXPECT_THAT(FailureOf(Path("source"), Path("missing") / "target"), HasSubstr("target: can't "));
}

TEST_F(ACopyOfAFile, ThatFailsToBeReadNamesIt) {
    // Its first bytes are no memory, which is an error of reading and not the end.
    EXPECT_THAT(FailureOf("/proc/self/mem", Path("target")),
                StartsWith("/proc/self/mem: can't read: "));
}

}  // namespace
