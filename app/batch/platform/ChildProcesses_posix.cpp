#include "app/batch/ChildProcesses.h"

#include "app/base/Errors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace app {
namespace {

constexpr std::array kEndingSignals{SIGINT, SIGTERM, SIGHUP};
constexpr std::size_t kMostMessageBytes = std::size_t{1} << 20;

volatile std::sig_atomic_t pendingSignal = 0;

extern "C" void NoteSignal(int signalNumber) {
    pendingSignal = signalNumber;
}

// Blocks the signals that end a program, as long as the object lives. They arrive only during Wait,
// and are only noted.
class SignalWatch {
public:
    SignalWatch() {
        pendingSignal = 0;
        sigset_t blocked;
        sigemptyset(&blocked);
        for (const int signalNumber : kEndingSignals) {
            sigaddset(&blocked, signalNumber);
        }
        sigprocmask(SIG_BLOCK, &blocked, &original_);
        for (std::size_t i = 0; i < kEndingSignals.size(); ++i) {
            sigaction(kEndingSignals[i], nullptr, &actions_[i]);
            if (actions_[i].sa_handler == SIG_IGN) {
                continue;  // as under nohup: the program is meant to live on
            }
            struct sigaction action {};
            action.sa_handler = NoteSignal;
            sigemptyset(&action.sa_mask);
            sigaction(kEndingSignals[i], &action, nullptr);
        }
    }
    ~SignalWatch() { Restore(); }
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    // Waits until a descriptor is ready or a signal has come.
    void Wait(std::vector<pollfd>& descriptors) const {
        static_cast<void>(ppoll(descriptors.data(), descriptors.size(), nullptr, &original_));
    }

    // Restores the signals as they were before.
    void Restore() const {
        for (std::size_t i = 0; i < kEndingSignals.size(); ++i) {
            sigaction(kEndingSignals[i], &actions_[i], nullptr);
        }
        sigprocmask(SIG_SETMASK, &original_, nullptr);
    }

private:
    sigset_t original_{};
    std::array<struct sigaction, kEndingSignals.size()> actions_{};
};

struct Child {
    std::size_t number;
    pid_t process;
    int messages;  // the reading end of its standard error
    ChildResult result;
};

class ChildTable {
public:
    explicit ChildTable(const SignalWatch& watch) : watch_(watch) {}

    // Ends the processes that still run, as after an exception, and waits for them.
    ~ChildTable() {
        PassOn(SIGTERM);
        for (Child& child : running_) {
            close(child.messages);
            waitpid(child.process, nullptr, 0);
        }
    }
    ChildTable(const ChildTable&) = delete;
    ChildTable& operator=(const ChildTable&) = delete;

    std::size_t Size() const { return running_.size(); }

    void Start(std::size_t number, const std::function<int(std::size_t)>& work) {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw Failure(std::string("can't start a process: ") + std::strerror(errno));
        }
        std::fflush(nullptr);  // what waits in a buffer would be written twice
        const pid_t process = fork();
        if (process == 0) {
            Become(number, ends[1], work);
        }
        const int error = errno;
        close(ends[1]);
        if (process < 0) {
            close(ends[0]);
            throw Failure(std::string("can't start a process: ") + std::strerror(error));
        }
        running_.push_back({number, process, ends[0], {}});
    }

    void PassOn(int signalNumber) const {
        for (const Child& child : running_) {
            kill(child.process, signalNumber);
        }
    }

    // Waits for messages, for ends or for a signal, and returns the processes that have ended.
    std::vector<Child> Wait() {
        std::vector<pollfd> descriptors;
        for (const Child& child : running_) {
            descriptors.push_back({child.messages, POLLIN, 0});
        }
        watch_.Wait(descriptors);
        std::vector<Child> ended;
        for (std::size_t i = descriptors.size(); i-- > 0;) {
            // After a signal `revents` is not filled in: 0.
            if (descriptors[i].revents != 0 && !ReadMessages(running_[i])) {
                ended.push_back(std::move(running_[i]));
                running_.erase(running_.begin() + static_cast<std::ptrdiff_t>(i));
            }
        }
        for (Child& child : ended) {
            Collect(child);
        }
        return ended;
    }

private:
    // Runs the work in the copy and ends it there, without destructors and exit handlers: these
    // belong to the original.
    [[noreturn]] void Become(std::size_t number, int errorPipe,
                             const std::function<int(std::size_t)>& work) const noexcept {
        const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
        if (nothing < 0 || dup2(nothing, STDIN_FILENO) < 0 || dup2(errorPipe, STDERR_FILENO) < 0) {
            _exit(1);
        }
        watch_.Restore();
        const int exitCode = work(number);
        std::fflush(nullptr);
        _exit(exitCode);
    }

    // Returns false at the end of the messages, when the process has ended.
    static bool ReadMessages(Child& child) {
        std::array<char, 4096> block{};
        const ssize_t got = read(child.messages, block.data(), block.size());
        if (got < 0) {
            return errno == EINTR;
        }
        std::string& messages = child.result.messages;
        if (messages.size() < kMostMessageBytes) {
            messages.append(block.data(), static_cast<std::size_t>(got));
        }
        return got > 0;
    }

    static void Collect(Child& child) {
        close(child.messages);
        int status = 0;
        while (waitpid(child.process, &status, 0) < 0 && errno == EINTR) {
        }
        if (WIFEXITED(status)) {
            child.result.exitCode = WEXITSTATUS(status);
        } else if (WIFSIGNALED(status)) {
            child.result.signal = WTERMSIG(status);
        }
    }

    const SignalWatch& watch_;
    std::vector<Child> running_;
};

}  // namespace

std::optional<std::string> TaskOfThisProcess() {
    return std::nullopt;
}

int RunChildren(std::size_t count, std::size_t parallel,
                const std::function<int(std::size_t)>& work,
                const std::function<std::string(std::size_t)>& /*taskOf*/,
                const std::function<void(std::size_t, const ChildResult&)>& onEnd) {
    const SignalWatch watch;
    ChildTable children(watch);
    bool isPassedOn = false;
    std::size_t next = 0;
    while (children.Size() > 0 || (next < count && pendingSignal == 0)) {
        while (next < count && children.Size() < parallel && pendingSignal == 0) {
            children.Start(next, work);
            ++next;
        }
        for (const Child& child : children.Wait()) {
            onEnd(child.number, child.result);
        }
        if (pendingSignal != 0 && !isPassedOn) {
            children.PassOn(SIGTERM);
            isPassedOn = true;
        }
    }
    return pendingSignal;
}

bool IsInterruption(int signalNumber) {
    return std::ranges::find(kEndingSignals, signalNumber) != kEndingSignals.end();
}

std::string SignalText(int signalNumber) {
    return "signal " + std::to_string(signalNumber);
}

bool IsProcessGone(std::uint64_t process) {
    return process > 0 &&
           process <= static_cast<std::uint64_t>(std::numeric_limits<pid_t>::max()) &&
           kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH;
}

}  // namespace app
