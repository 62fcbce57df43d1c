#include "bench/ChildProcess.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <stdexcept>

extern char** environ;

namespace bench {

namespace {

// Runs the program to its end and gives what it used.
rusage Run(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& word : command) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int error =
        posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::runtime_error("can't start " + command.front());
    }
    int status = 0;
    rusage usage{};
    if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) ||
        WEXITSTATUS(status) != 0) {
        throw std::runtime_error(command.front() + " " + command.at(command.size() > 1) +
                                 " failed");
    }
    return usage;
}

}  // namespace

void RunOrThrow(const std::vector<std::string>& command) {
    static_cast<void>(Run(command));
}

double PeakMebibytes(const std::vector<std::string>& command) {
    return static_cast<double>(Run(command).ru_maxrss) / 1024.0;
}

double StartUpMilliseconds(const std::vector<std::string>& command) {
    double smallest = std::numeric_limits<double>::infinity();
    for (int run = 0; run < 101; ++run) {
        const auto start = std::chrono::steady_clock::now();
        Run(command);
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - start;
        smallest = std::min(smallest, time.count());
    }
    return smallest;
}

}  // namespace bench
