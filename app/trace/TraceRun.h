// qolf trace: every call that the import filter makes on its host, in order, as JSON Lines.
#pragma once

#include "app/base/Reporter.h"

#include <optional>
#include <string>

namespace app {

struct TraceOptions {
    std::string file;
    bool noStore = false;
    std::optional<std::string> optionString;
    std::string encoding;  // "": Windows-1252, whatever the header says
    std::string modulePath;
};

// Imports the file and prints every call to standard output. Returns the exit code: 1 when the
// import ended with an error. The error has a line of its own in the output; only the calls of the
// filter's destructor follow it. Throws Failure and UsageError.
int RunTrace(const TraceOptions& options, Reporter& reporter);

}  // namespace app
