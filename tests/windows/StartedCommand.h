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

std::string BytesOf(const std::filesystem::path& path);

// A copy of a sample pair under another name, which ends in ".mif".
void CopySample(const char* sample, const std::filesystem::path& mif);

}  // namespace windows_test
