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

// The exit code: 1 when the import ended with an error, whose line is the last but those of the
// filter's destruction.
int RunTrace(const TraceOptions& options, Reporter& reporter);

}  // namespace app
