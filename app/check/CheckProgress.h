// The progress bar of a check: one bar for all files and for each time that a file is read.
#pragma once

#include "app/base/Reporter.h"
#include "app/check/PairCheck.h"

#include <filesystem>
#include <span>

namespace app {

// The bar runs from the beginning of the object's life to its end.
class CheckProgress {
public:
    // Every file will be read `passes` times. `reporter` must outlive the object.
    CheckProgress(std::span<const std::filesystem::path> files, int passes, Reporter& reporter);
    ~CheckProgress();
    CheckProgress(const CheckProgress&) = delete;
    CheckProgress& operator=(const CheckProgress&) = delete;

    // Called before a file is read; the result hears how much of it has been read, from 0 to 1, and
    // must not outlive the object.
    ProgressSink NextPass(const std::filesystem::path& file);

    // Clears the bar until there is progress again: call it before a text goes to the terminal.
    void Hide();

private:
    Reporter& reporter_;
    double all_ = 0.0;      // bytes to read, those of each pass
    double done_ = 0.0;     // of passes that are over
    double current_ = 0.0;  // of the pass under way
};

}  // namespace app
