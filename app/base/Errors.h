// The errors of the command itself. main() turns each into one line on stderr and an exit code.
#pragma once

#include <stdexcept>
#include <string>

namespace app {

// The data could not be processed: exit code 1. The text names the file and what to try.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The command line is wrong in a way that only shows after parsing: exit code 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Whoever read our standard output went away: a quiet end.
class ClosedPipe : public std::runtime_error {
public:
    ClosedPipe() : std::runtime_error("the reader of standard output has gone") {}
};

}  // namespace app
