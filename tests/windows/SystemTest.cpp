// What app/base needs of Windows, where Windows differs: its errors and its names.
#include "app/base/platform/System.h"

#include "app/base/Paths.h"
#include "app/base/TempFolder.h"
#include "host/platform/Stdio.h"
#include "host/platform/WindowSystem.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>

#include <fcntl.h>
#include <io.h>

namespace {

using testing::HasSubstr;

struct Closer {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, Closer>;

TEST(AClosedPipe, IsNotAFileThatFailsToBeWritten) {
    const support::TemporaryFolder folder;
    const Stream file(
        platform::OpenFile((folder.path() / "file").wstring(), platform::OpenMode::WriteBinary));

    EXPECT_FALSE(app::IsClosedPipe(file.get(), EINVAL));
    EXPECT_FALSE(app::IsClosedPipe(file.get(), EPIPE));
}

TEST(AClosedPipe, IsAPipeThatFailsToBeWritten) {
    int ends[2] = {};
    ASSERT_EQ(_pipe(ends, 4096, _O_BINARY), 0);
    const Stream reading(_fdopen(ends[0], "rb"));
    const Stream writing(_fdopen(ends[1], "wb"));

    EXPECT_TRUE(app::IsClosedPipe(writing.get(), EINVAL));
    EXPECT_TRUE(app::IsClosedPipe(writing.get(), EPIPE));
    EXPECT_FALSE(app::IsClosedPipe(writing.get(), ENOSPC));
}

// The name of this machine as the registry has it, brought back at the end of the object's life.
class ComputerName {
public:
    explicit ComputerName(const std::wstring& name) {
        DWORD size = sizeof before_;
        isSet_ = RegGetValueW(HKEY_LOCAL_MACHINE, kKey, kValue, RRF_RT_REG_SZ, nullptr, before_,
                              &size) == ERROR_SUCCESS &&
                 Set(name);
    }
    ~ComputerName() {
        if (isSet_) {
            Set(before_);
        }
    }
    ComputerName(const ComputerName&) = delete;
    ComputerName& operator=(const ComputerName&) = delete;

    bool IsSet() const { return isSet_; }

private:
    static constexpr const wchar_t* kKey =
        L"System\\CurrentControlSet\\Control\\ComputerName\\ActiveComputerName";
    static constexpr const wchar_t* kValue = L"ComputerName";

    static bool Set(const std::wstring& name) {
        return RegSetKeyValueW(HKEY_LOCAL_MACHINE, kKey, kValue, REG_SZ, name.c_str(),
                               static_cast<DWORD>((name.size() + 1) * sizeof(wchar_t))) ==
               ERROR_SUCCESS;
    }

    wchar_t before_[256] = {};
    bool isSet_ = false;
};

TEST(APrivateFolder, HasTheNameOfAMachineWithAnyLetters) {
    const ComputerName name(L"K\u00C4RTE-1");
    ASSERT_TRUE(name.IsSet());
    const support::TemporaryFolder parent;
    const app::TempFolder folder(parent.path());

    EXPECT_EQ(app::HostName(), "K\u00C4RTE_1");
    EXPECT_THAT(app::ArgumentFromPath(folder.Path().filename()), HasSubstr("-K\u00C4RTE_1-"));
}

}  // namespace
