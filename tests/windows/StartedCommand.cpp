#include "tests/windows/StartedCommand.h"

#include "host/platform/WindowSystem.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace windows_test {

namespace {

std::wstring CommandLine(const std::vector<std::wstring>& arguments) {
    std::wstring line = L"\"" QOLF_COMMAND L"\"";
    for (const std::wstring& argument : arguments) {
        line += L" \"" + argument + L"\"";
    }
    return line;
}

// A file that a started program can write to.
HANDLE MakeOutput(const std::filesystem::path& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0,
                       nullptr);
}

PROCESS_INFORMATION Start(const std::filesystem::path& folder, std::wstring line,
                          STARTUPINFOW& startup, DWORD flags) {
    PROCESS_INFORMATION process{};
    startup.cb = sizeof startup;
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, flags, nullptr, folder.c_str(),
                       &startup, &process) == 0) {
        throw std::runtime_error("the command can't be started");
    }
    CloseHandle(process.hThread);
    return process;
}

unsigned long ExitCodeOf(HANDLE process) {
    WaitForSingleObject(process, INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(process, &exitCode);
    return exitCode;
}

}  // namespace

Result RunQolf(const std::filesystem::path& folder, const std::vector<std::wstring>& arguments) {
    const support::TemporaryFolder kept;
    const std::filesystem::path out = kept.path() / "out";
    const std::filesystem::path err = kept.path() / "err";
    STARTUPINFOW startup{};
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = MakeOutput(out);
    startup.hStdError = MakeOutput(err);
    const PROCESS_INFORMATION process = Start(folder, CommandLine(arguments), startup, 0);
    Result result;
    result.exitCode = ExitCodeOf(process.hProcess);
    CloseHandle(process.hProcess);
    CloseHandle(startup.hStdOutput);
    CloseHandle(startup.hStdError);
    result.out = BytesOf(out);
    result.err = BytesOf(err);
    return result;
}

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void CopySample(const char* sample, const std::filesystem::path& mif) {
    std::filesystem::path from = std::filesystem::path(QOLF_SAMPLES) / sample;
    for (const char* extension : {".mif", ".mid"}) {
        std::filesystem::path to = mif;
        std::filesystem::copy_file(from.replace_extension(extension),
                                   to.replace_extension(extension));
    }
}

}  // namespace windows_test
