#include "app/batch/ChildProcesses.h"

#include "app/base/Errors.h"
#include "host/platform/Stdio.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <list>
#include <mutex>
#include <thread>
#include <utility>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <fcntl.h>
#include <io.h>

namespace app {
namespace {

constexpr const wchar_t* kTaskVariable = L"QOLF_TASK";
constexpr std::size_t kMostMessageBytes = std::size_t{1} << 20;
constexpr DWORD kFirstExceptionCode = 0xC0000000;

std::atomic<bool> isInterrupted = false;

// The running processes get the same event, as all programs of a console do, and end by it.
BOOL WINAPI NoteInterrupt(DWORD) {
    isInterrupted = true;
    return TRUE;
}

class InterruptWatch {
public:
    InterruptWatch() {
        isInterrupted = false;
        SetConsoleCtrlHandler(NoteInterrupt, TRUE);
    }
    ~InterruptWatch() { SetConsoleCtrlHandler(NoteInterrupt, FALSE); }
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;
};

[[noreturn]] void Fail() {
    throw Failure("can't start a process: error " + std::to_string(GetLastError()));
}

class Handle {
public:
    explicit Handle(HANDLE handle = nullptr) : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Handle() {
        if (handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE) {
            CloseHandle(handle_);
        }
    }
    HANDLE Get() const { return handle_; }

private:
    HANDLE handle_;
};

// The two ends of a pipe; processes that are started inherit the one for writing.
struct Pipe {
    Pipe() {
        HANDLE ends[2];
        if (CreatePipe(&ends[0], &ends[1], nullptr, 0) == 0) {
            Fail();
        }
        reading = Handle(ends[0]);
        writing = Handle(ends[1]);
        if (SetHandleInformation(writing.Get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT) == 0) {
            Fail();
        }
    }
    Handle reading;
    Handle writing;
};

// Ends the processes in it when this program ends, however that happens.
Handle MakeJob() {
    Handle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

std::wstring ProgramPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

// Runs this program's command line anew, with the task in its environment.
Handle StartCopy(const std::string& task, HANDLE errorPipe, HANDLE job) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const Handle nothing(CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     &inherited, OPEN_EXISTING, 0, nullptr));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = nothing.Get();
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = errorPipe;
    PROCESS_INFORMATION process{};
    std::wstring commandLine = GetCommandLineW();
    // Without a task the copy would run the whole batch.
    if (SetEnvironmentVariableW(kTaskVariable, platform::PathFromBytes(task).c_str()) == 0) {
        Fail();
    }
    const BOOL isStarted =
        CreateProcessW(ProgramPath().c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                       CREATE_SUSPENDED, nullptr, nullptr, &startup, &process);
    const DWORD error = GetLastError();
    SetEnvironmentVariableW(kTaskVariable, nullptr);
    if (isStarted == 0) {
        SetLastError(error);
        Fail();
    }
    AssignProcessToJobObject(job, process.hProcess);
    ResumeThread(process.hThread);
    CloseHandle(process.hThread);
    return Handle(process.hProcess);
}

std::string ReadAll(HANDLE pipe) {
    std::string messages;
    std::array<char, 4096> block{};
    DWORD got = 0;
    while (ReadFile(pipe, block.data(), block.size(), &got, nullptr) != 0 && got > 0) {
        if (messages.size() < kMostMessageBytes) {
            messages.append(block.data(), got);
        }
    }
    return messages;
}

ChildResult ResultOf(HANDLE process, std::string messages) {
    WaitForSingleObject(process, INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(process, &exitCode);
    ChildResult result;
    result.messages = std::move(messages);
    (exitCode >= kFirstExceptionCode ? result.signal : result.exitCode) =
        static_cast<int>(exitCode);
    return result;
}

class ChildTable {
public:
    ChildTable() : job_(MakeJob()) {}

    // Ends the processes that still run, as after an exception, and waits for them.
    ~ChildTable() {
        if (!running_.empty()) {
            TerminateJobObject(job_.Get(), 1);
        }
        for (Child& child : running_) {
            if (child.reader.joinable()) {  // not the one whose thread couldn't be made
                child.reader.join();
            }
        }
    }
    ChildTable(const ChildTable&) = delete;
    ChildTable& operator=(const ChildTable&) = delete;

    std::size_t Size() const { return running_.size(); }

    void Start(std::size_t number, const std::string& task) {
        Pipe pipe;
        Handle process = StartCopy(task, pipe.writing.Get(), job_.Get());
        Child& child = running_.emplace_back();
        child.number = number;
        child.reader = std::thread(
            [this, &child, messages = std::move(pipe.reading), process = std::move(process)] {
                child.result = ResultOf(process.Get(), ReadAll(messages.Get()));
                const std::lock_guard lock(mutex_);
                child.hasEnded = true;
                ended_.notify_one();
            });
    }

    // Waits until one has ended and calls `onEnd` for those that have.
    void Wait(const std::function<void(std::size_t, const ChildResult&)>& onEnd) {
        std::list<Child> ended;
        {
            std::unique_lock lock(mutex_);
            const auto hasEnded = [](const Child& child) { return child.hasEnded; };
            ended_.wait(lock, [&] { return std::ranges::any_of(running_, hasEnded); });
            for (auto child = running_.begin(); child != running_.end();) {
                const auto next = std::next(child);
                if (child->hasEnded) {
                    ended.splice(ended.end(), running_, child);
                }
                child = next;
            }
        }
        for (Child& child : ended) {
            child.reader.join();
        }
        for (const Child& child : ended) {
            onEnd(child.number, child.result);
        }
    }

private:
    struct Child {
        std::size_t number = 0;
        std::thread reader;
        ChildResult result;  // the reader's until hasEnded
        bool hasEnded = false;
    };

    Handle job_;
    std::mutex mutex_;
    std::condition_variable ended_;
    std::list<Child> running_;  // a reader keeps the address of its child
};

}  // namespace

std::optional<std::string> TaskOfThisProcess() {
    const wchar_t* const task = _wgetenv(kTaskVariable);
    return task != nullptr ? std::optional(platform::PathToBytes(task)) : std::nullopt;
}

int RunChildren(std::size_t count, std::size_t parallel,
                const std::function<int(std::size_t)>& /*work*/,
                const std::function<std::string(std::size_t)>& taskOf,
                const std::function<void(std::size_t, const ChildResult&)>& onEnd) {
    const InterruptWatch watch;
    ChildTable children;
    std::size_t next = 0;
    while (children.Size() > 0 || (next < count && !isInterrupted)) {
        while (next < count && children.Size() < parallel && !isInterrupted) {
            children.Start(next, taskOf(next));
            ++next;
        }
        children.Wait(onEnd);
    }
    return isInterrupted ? static_cast<int>(STATUS_CONTROL_C_EXIT) : 0;
}

bool IsInterruption(int signalNumber) {
    return signalNumber == static_cast<int>(STATUS_CONTROL_C_EXIT);
}

std::string SignalText(int signalNumber) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "exception 0x%08X",
                  static_cast<unsigned>(signalNumber));
    return text.data();
}

bool IsProcessGone(std::uint64_t process) {
    if (process == 0 || process > 0xFFFFFFFFU) {
        return false;
    }
    const Handle running(OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process)));
    if (running.Get() == nullptr) {
        return GetLastError() == ERROR_INVALID_PARAMETER;  // no process has this number
    }
    return WaitForSingleObject(running.Get(), 0) == WAIT_OBJECT_0;
}

}  // namespace app
