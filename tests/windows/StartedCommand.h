// qolf.exe in a folder of its own, started without a shell in between.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace windows_test {

struct Result {
    unsigned long exitCode = 0;
    std::string out;
    std::string err;
};

// Runs the command in `folder`. The arguments must not contain quotation marks.
Result RunQolf(const std::filesystem::path& folder, const std::vector<std::wstring>& arguments);

// The command while it works, with a console of its own.
class RunningCommand {
public:
    RunningCommand(const std::filesystem::path& folder, const std::vector<std::wstring>& arguments);
    ~RunningCommand();
    RunningCommand(const RunningCommand&) = delete;
    RunningCommand& operator=(const RunningCommand&) = delete;

    bool IsRunning() const;

    // What the keys Ctrl and Break do; unlike Ctrl and C they can be sent to one program alone,
    // which takes both in the same way. Returns false when the system refuses.
    bool Interrupt() const;

    // Waits for the end, and returns the exit code.
    unsigned long Wait() const;

private:
    void* process_;
    unsigned long id_ = 0;
};

std::string BytesOf(const std::filesystem::path& path);

// A copy of a sample pair under another name, which ends in ".mif".
void CopySample(const char* sample, const std::filesystem::path& mif);

}  // namespace windows_test
