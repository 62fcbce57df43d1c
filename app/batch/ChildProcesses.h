// Does work in processes beside one another and collects what they say on standard error.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace app {

struct ChildResult {
    int exitCode = 0;
    int signal = 0;        // that ended the process; 0 when it ended by itself
    std::string messages;  // its standard error, cut off when it is very long
};

// Runs count processes, at most parallel at a time. Each is a copy of this one, which must have no
// other threads: that saves the loading of a program, which takes longer than a small file does.
// work gets a number from 0 on, runs in the copy with nothing on standard input, and gives its exit
// code; an exception ends the copy like a crash. onEnd gets the result in this process.
//
// An interrupt, a hang-up or a request to terminate is passed on to the processes that run; once
// they have ended, the number of that signal is the result. 0 when all have run. Throws Failure
// when a process can't be started; what has been started is ended first.
int RunChildren(std::size_t count, std::size_t parallel,
                const std::function<int(std::size_t)>& work,
                const std::function<void(std::size_t, const ChildResult&)>& onEnd);

// Ends this process as the signal would have.
void EndBySignal(int signalNumber);

}  // namespace app
