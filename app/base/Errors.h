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

// The command line is wrong in a way that only shows after parsing: exit code 2. Thrown in place of
// a Failure when another argument would have helped, such as the name of a column that there is.
class UsageError : public Failure {
public:
    using Failure::Failure;
};

// The program that read our standard output has ended: no message, exit code 0.
class ClosedPipe : public std::runtime_error {
public:
    ClosedPipe() : std::runtime_error("the reader of standard output has gone") {}
};

}  // namespace app
