// Other programs, run and measured.
#pragma once

#include <string>
#include <vector>

namespace bench {

// Runs a program with its output dropped; throws unless it ends with 0.
void RunOrThrow(const std::vector<std::string>& command);

// The largest resident size of a run, in MiB.
double PeakMebibytes(const std::vector<std::string>& command);

// The smallest time from start to end of several runs, in milliseconds.
double StartUpMilliseconds(const std::vector<std::string>& command);

}  // namespace bench
