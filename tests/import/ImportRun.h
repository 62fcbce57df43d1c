// One import filter with a recording host, and verbs to feed and question it.
#pragma once

#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace import_test {

using Lines = std::vector<std::string>;

class ImportRun {
public:
    // Imports a file whose DATA section is the given text, behind the header chosen below.
    void Import(std::string_view objects);

    // Imports a file with these bytes.
    void ImportBytes(std::string_view bytes);

    // Writes the file with the given bytes, and the .mid when rows are set.
    void WriteFiles(std::string_view bytes);

    // What the filter does with the file as it is on disk.
    void ImportFile();

    // Replaces the header's lines before DATA; each ends with a line feed.
    void UseHeader(std::string lines) { header_ = std::move(lines); }
    void AddToHeader(std::string_view lines) { header_ += lines; }

    // Writes a .mid file beside the .mif.
    void UseRows(std::string rows);

    // Stores an option, as a host would remember it.
    void Remember(const wchar_t* option, bool value);

    // The objects that the host received, without the one that starts an import.
    Lines HostReceived() const { return host_.ImportedObjects(); }

    // "source(line): message" with PATH for the file's path; empty without an error.
    std::string FirstError() const { return error_; }

    std::wstring Path() const { return folder_.PathOf("map.mif"); }
    support::TemporaryFolder& Folder() { return folder_; }
    support::RecordingHost& Host() { return host_; }
    const support::RecordingHost& Host() const { return host_; }
    mif::MifImportFilter& Filter() { return filter_; }
    zeio::IoManager& Manager() { return manager_; }

private:
    support::TemporaryFolder folder_;
    support::RecordingHost host_;
    zeio::IoManager manager_{host_};
    mif::MifImportFilter filter_{manager_};
    std::string header_ = "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\n";
    std::string rows_;
    bool hasRows_ = false;
    std::string error_;
};

// A header's BOUNDS line whose diagonal is 3200.
inline constexpr std::string_view kBounds3200 = "Bounds (0, 0) (1920, 2560)\n";

// What the host receives for a DATA section behind the plain header.
Lines ObjectsOf(std::string_view objects);

// For a test of one feature: an ImportRun as the fixture.
class Importing : public testing::Test, protected ImportRun {};

}  // namespace import_test
