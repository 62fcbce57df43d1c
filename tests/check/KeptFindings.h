// Keeps the findings of a check, for the tests.
#pragma once

#include "app/check/PairCheck.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

struct KeptFindings {
    std::vector<std::string> names;     // name@line, mid: before those of the .mid file
    std::vector<std::string> messages;  // in the same order
    std::vector<std::string> advice;
    std::vector<std::uint64_t> objects;
    std::uint64_t errorCount = 0;
    std::uint64_t editCount = 0;
};

// Everything but what the module's own run finds.
KeptFindings FindingsOf(const std::filesystem::path& mif);

// What the module's own run finds.
KeptFindings ImportFindingsOf(const std::filesystem::path& mif);

std::string BytesOf(const std::filesystem::path& file);
