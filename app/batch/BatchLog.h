// What the parts of a batch have done: a file of JSON lines for each part, in a folder of their own
// in the output folder.
#pragma once

#include "app/batch/Shard.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace app {

// The folder for logs and plans, below the output folder.
inline constexpr const char* kBatchFolder = ".qolf";

// How one conversion has ended.
struct BatchLogLine {
    std::string input;                      // as the user gave it
    std::string output;                     // below the output folder, with "/" on every system
    std::optional<std::uint64_t> features;  // that were written; absent when that is not known
    double seconds = 0.0;                   // that it took
    std::string error;                      // why it failed; empty: it is done
};

// `folder`/.qolf/3-of-8.jsonl
std::filesystem::path LogPathOf(const std::filesystem::path& folder, const Shard& shard);

// Returns the paths of all logs of the output folder, sorted.
std::vector<std::filesystem::path> LogsIn(const std::filesystem::path& folder);

// Returns the lines in their order. What is no whole line is passed over: a killed run may have
// left half of one. Returns nothing for a file that is not there.
std::vector<BatchLogLine> ReadBatchLog(const std::filesystem::path& file);

// A log that lines are appended to. Each is written at once and as a whole.
class BatchLog {
public:
    enum class Begin { Anew, BehindWhatIsThere };

    // Makes the folder, too. Throws Failure.
    BatchLog(const std::filesystem::path& file, Begin begin);

    // Throws Failure.
    void Add(const BatchLogLine& line);

private:
    struct Closer {
        void operator()(std::FILE* stream) const { static_cast<void>(std::fclose(stream)); }
    };

    void Write(const std::string& text);

    std::filesystem::path file_;
    std::unique_ptr<std::FILE, Closer> stream_;
};

}  // namespace app
