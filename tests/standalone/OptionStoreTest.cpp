#include "standalone/OptionStore.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;
using standalone::OptionStore;
using Values = std::map<std::wstring, bool>;

constexpr bool kPersistent = true;
constexpr bool kThisRunOnly = false;

class AnOptionFile : public testing::Test {
protected:
    fs::path File() const { return folder_.path() / "options.txt"; }
    std::string Contents() const { return folder_.Read("options.txt"); }
    void Write(const std::string& text) const { folder_.Write("options.txt", text); }

    std::ptrdiff_t FilesInTheFolder() const {
        return std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator());
    }

    support::TemporaryFolder folder_;
};

TEST(AnOptionStoreInMemory, RemembersValues) {
    OptionStore store;

    EXPECT_TRUE(store.Set(L"a", true, kPersistent));
    EXPECT_TRUE(store.Set(L"b", false, kThisRunOnly));

    EXPECT_EQ(store.All(), (Values{{L"a", true}, {L"b", false}}));
    EXPECT_EQ(store.Get(L"c"), std::nullopt);
}

TEST(AnOptionStoreInMemory, ForgetsEverything) {
    OptionStore store;
    store.Set(L"a", true, kPersistent);

    EXPECT_TRUE(store.Clear());

    EXPECT_EQ(store.Get(L"a"), std::nullopt);
}

TEST_F(AnOptionFile, LivesOnInTheNextStore) {
    {
        OptionStore store(File());
        EXPECT_TRUE(store.Set(L"IgnoreStyles", true, kPersistent));
        EXPECT_TRUE(store.Set(L"AreasToCurves", false, kPersistent));
    }

    EXPECT_EQ(OptionStore(File()).All(),
              (Values{{L"IgnoreStyles", true}, {L"AreasToCurves", false}}));
    EXPECT_EQ(Contents(), "AreasToCurves=false\nIgnoreStyles=true\n");
}

TEST_F(AnOptionFile, IsNotMadeByLooking) {
    const OptionStore store(File());

    EXPECT_EQ(store.All(), Values());
    EXPECT_FALSE(fs::exists(File()));
}

TEST_F(AnOptionFile, TakesNoValueOfThisRunOnly) {
    OptionStore store(File());

    store.Set(L"a", true, kThisRunOnly);
    store.Set(L"b", true, kPersistent);

    EXPECT_EQ(store.Get(L"a"), true);
    EXPECT_EQ(Contents(), "b=true\n");
}

TEST_F(AnOptionFile, KeepsItsOldValueWhenThisRunHasAnother) {
    Write("a=true\n");
    OptionStore store(File());

    store.Set(L"a", false, kThisRunOnly);
    store.Set(L"b", true, kPersistent);

    EXPECT_EQ(store.Get(L"a"), false);
    EXPECT_EQ(Contents(), "a=true\nb=true\n");
}

TEST_F(AnOptionFile, TakesNoForgottenValueThatIsSavedAllTheSame) {
    OptionStore store(File());

    store.Set(L"a", true, kThisRunOnly);
    store.Set(L"a", true, kPersistent);

    EXPECT_EQ(Contents(), "");
}

TEST_F(AnOptionFile, TakesAnotherValueThanTheForgottenOne) {
    OptionStore store(File());

    store.Set(L"a", true, kThisRunOnly);
    store.Set(L"a", false, kPersistent);

    EXPECT_EQ(Contents(), "a=false\n");
}

TEST_F(AnOptionFile, IsNotWrittenWithoutAChange) {
    Write("# mine\na=true\n");
    OptionStore store(File());

    EXPECT_TRUE(store.Set(L"a", true, kPersistent));

    EXPECT_EQ(Contents(), "# mine\na=true\n");
}

TEST_F(AnOptionFile, LosesLinesThatAreNoPairAtTheNextWriting) {
    Write("# mine\n\na=true\r\nb=maybe\n=true\nc\nd=false");
    OptionStore store(File());

    store.Set(L"e", true, kPersistent);

    EXPECT_EQ(Contents(), "a=true\nd=false\ne=true\n");
}

TEST_F(AnOptionFile, TakesNamesBeyondAsciiAndWithEqualSigns) {
    {
        OptionStore store(File());
        store.Set(L"\u00E9=\u20AC", true, kPersistent);
    }

    EXPECT_EQ(OptionStore(File()).Get(L"\u00E9=\u20AC"), true);
}

TEST_F(AnOptionFile, TakesNoNameWithALineBreak) {
    OptionStore store(File());

    EXPECT_FALSE(store.Set(L"a\nb", true, kPersistent));

    EXPECT_EQ(store.Get(L"a\nb"), true);
    EXPECT_FALSE(fs::exists(File()));
}

TEST_F(AnOptionFile, IsEmptiedByClear) {
    Write("a=true\n");
    OptionStore store(File());

    EXPECT_TRUE(store.Clear());

    EXPECT_EQ(Contents(), "");
    EXPECT_EQ(OptionStore(File()).All(), Values());
}

TEST_F(AnOptionFile, IsReplacedWithoutLeavingAnotherFile) {
    OptionStore store(File());

    store.Set(L"a", true, kPersistent);
    store.Set(L"a", false, kPersistent);

    EXPECT_EQ(FilesInTheFolder(), 1);
}

TEST_F(AnOptionFile, GetsItsFoldersWhenItIsFirstWritten) {
    OptionStore store(folder_.path() / "new" / "deep" / "options.txt");

    EXPECT_TRUE(store.Set(L"a", true, kPersistent));

    EXPECT_TRUE(folder_.Has("new/deep/options.txt"));
}

TEST_F(AnOptionFile, ThatCannotBeWrittenIsReportedAndTriedAgain) {
    folder_.Write("blocker", "a file where a folder should be");
    OptionStore store(folder_.path() / "blocker" / "options.txt");

    EXPECT_FALSE(store.Set(L"a", true, kPersistent));
    EXPECT_FALSE(store.Set(L"a", true, kPersistent));

    EXPECT_EQ(store.Get(L"a"), true);
}

TEST_F(AnOptionFile, SurvivesAFailureToReplaceIt) {
    fs::create_directories(File() / "occupied");  // a folder can't be replaced by a file
    OptionStore store(File());

    EXPECT_FALSE(store.Set(L"a", true, kPersistent));

    EXPECT_TRUE(fs::exists(File() / "occupied"));
    EXPECT_EQ(FilesInTheFolder(), 1);  // no temporary file is left
}

#if !defined(_WIN32)

TEST_F(AnOptionFile, KeepsItsPermissions) {
    Write("a=true\n");
    fs::permissions(File(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    OptionStore store(File());

    store.Set(L"a", false, kPersistent);

    EXPECT_EQ(fs::status(File()).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(AnOptionFile, IsTheUsersOwnWhenItIsNew) {
    OptionStore store(File());

    store.Set(L"a", true, kPersistent);

    EXPECT_EQ(fs::status(File()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(AnOptionFile, StaysALink) {
    folder_.Write("real.txt", "a=true\n");
    fs::create_symlink("real.txt", File());
    OptionStore store(File());

    store.Set(L"a", false, kPersistent);

    EXPECT_TRUE(fs::is_symlink(File()));
    EXPECT_EQ(folder_.Read("real.txt"), "a=false\n");
}

// Puts an environment variable back when the test ends.
class Environment {
public:
    explicit Environment(const char* name) : name_(name) {
        const char* value = std::getenv(name);
        wasSet_ = value != nullptr;
        value_ = wasSet_ ? value : "";
    }
    ~Environment() {
        if (wasSet_) {
            setenv(name_, value_.c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    void Set(const char* value) const { setenv(name_, value, 1); }
    void Unset() const { unsetenv(name_); }

private:
    const char* name_;
    bool wasSet_;
    std::string value_;
};

class UserFile : public testing::Test {
protected:
    Environment config_{"XDG_CONFIG_HOME"};
    Environment home_{"HOME"};
};

TEST_F(UserFile, IsBelowTheConfigurationFolder) {
    config_.Set("/cfg");

    EXPECT_EQ(OptionStore::UserFile(), "/cfg/qolf/options.txt");
}

TEST_F(UserFile, IsBelowTheHomeFolderOtherwise) {
    config_.Set("relative");  // does not count
    home_.Set("/home/user");

    EXPECT_EQ(OptionStore::UserFile(), "/home/user/.config/qolf/options.txt");
}

TEST_F(UserFile, IsEmptyWithoutEither) {
    config_.Unset();
    home_.Unset();

    EXPECT_TRUE(OptionStore::UserFile().empty());
}

#endif

}  // namespace
