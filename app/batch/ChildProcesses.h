// Runs programs beside one another and collects what they say on standard error.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace app {

struct ChildResult {
    int exitCode = 0;
    int signal = 0;        // that ended the program; 0 when it ended by itself
    std::string messages;  // its standard error, cut off when it is very long
};

// The program's path, then its arguments.
using ChildCommand = std::vector<std::string>;

// The path by which a process starts the program that it is itself.
inline constexpr const char* kThisProgram = "/proc/self/exe";

// Runs count programs, at most parallel at a time. commandOf gives the command of a number from 0
// on when its turn has come; onEnd gets its result. Programs read nothing on standard input.
//
// An interrupt, a hang-up or a request to terminate is passed on to the programs that run; once
// they have ended, the number of that signal is the result. 0 when all programs have run. Throws
// Failure when a program can't be started; what has been started is ended first.
int RunChildren(std::size_t count, std::size_t parallel,
                const std::function<ChildCommand(std::size_t)>& commandOf,
                const std::function<void(std::size_t, const ChildResult&)>& onEnd);

// Ends this process as the signal would have.
void EndBySignal(int signalNumber);

}  // namespace app
