// Does work in parallel processes and collects their messages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace app {

struct ChildResult {
    int exitCode = 0;
    int signal = 0;        // that ended the process, on Windows the exception's code; 0 when it
                           // ended by itself
    std::string messages;  // its standard error, cut off when it is very long
};

// Runs `count` processes, at most `parallel` at a time. Each is a copy of this one (a fork), which
// must have no other threads: loading a program anew takes longer than converting a small file.
// Each copy calls `work` with its number, from 0, with nothing on standard input; the result is its
// exit code, and an exception ends it as a crash does. This process calls `onEnd` when a copy has
// ended.
//
// Windows has no copies of processes. There each runs this program's command line anew, and finds
// in TaskOfThisProcess what `taskOf` said of its number; `work` is not called.
//
// An interrupt, a hang-up or a request to terminate is passed on to the running copies. Returns the
// number of that signal once they have ended, and 0 when all have run. Throws Failure when a
// process can't be started; those that run are ended first.
int RunChildren(std::size_t count, std::size_t parallel,
                const std::function<int(std::size_t)>& work,
                const std::function<std::string(std::size_t)>& taskOf,
                const std::function<void(std::size_t, const ChildResult&)>& onEnd);

// Returns what a process that was started by RunChildren has to do; absent in any other process,
// and in copies.
std::optional<std::string> TaskOfThisProcess();

// Whether the signal of a ChildResult is one by which a person or the system ends the whole run,
// and not a failure of the work.
bool IsInterruption(int signalNumber);

// Returns how messages name what ended a process: "signal 9", "exception 0xC0000005".
std::string SignalText(int signalNumber);

// Returns false also when it is not known whether the process still runs.
bool IsProcessGone(std::uint64_t process);

}  // namespace app
