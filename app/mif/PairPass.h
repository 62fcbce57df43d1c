// One pass over a MIF/MID pair: what it means, what is wrong with it, and what the module would
// make of it.
#pragma once

#include "app/mif/FindingCounter.h"
#include "app/mif/LineReader.h"
#include "app/mif/MifHeader.h"
#include "app/mif/ObjectPass.h"
#include "app/mif/PassSink.h"
#include "app/mif/Utf8Check.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace app {

struct PassedHeader {
    MifHeader header;  // without hasData when the file ends before it does
    FindingCounts findings{};

    // There are letters beyond ASCII in names, and of a pair in values and texts, too, and all of
    // them are valid UTF-8.
    bool areLettersUtf8 = false;
};

struct PassedPair : PassedHeader {
    MifCounts objects;
    std::filesystem::path mid;          // empty without one
    std::optional<std::uint64_t> rows;  // of the .mid file; absent without one
};

// Passes over the header alone. Throws Failure when the file can't be opened or is no MIF file.
PassedHeader PassHeaderOf(const std::filesystem::path& mif);

// Passes over both files; the sink gets what the .mif file holds. Throws Failure when one of them
// can't be opened, and when the .mif is no MIF file or ends within its header; what the sink throws
// passes unchanged.
PassedPair PassPair(const std::filesystem::path& mif, PassSink& sink);

// Counts the rows of a .mid file, and looks at its letters. Empty lines at the end are no rows.
std::uint64_t PassRows(LineReader& lines, char delimiter, std::size_t columns, Utf8Check& utf8);

// The .mif file beside a path that is that of a .mid file; any other path as it is.
std::filesystem::path MifBeside(const std::filesystem::path& path);

// "is not a MIF file: it looks like a zip archive" of a file in which nothing of a header is found;
// "" of others, of one in UTF-16, and of one that can't be opened.
std::string WhyNoMif(const std::filesystem::path& path);

// What a file is that is no MIF file, by its first bytes: "a zip archive". "" for text without
// anything that tells.
std::string KindOfFile(std::string_view begin);

}  // namespace app
