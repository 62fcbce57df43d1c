// The errors of the command itself. main() turns each into lines on stderr and an exit code.
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

// The program that read our standard output has ended: no message, exit code 0.
class ClosedPipe : public std::runtime_error {
public:
    ClosedPipe() : std::runtime_error("the reader of standard output has gone") {}
};

}  // namespace app
