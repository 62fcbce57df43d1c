#include "app/base/platform/RemovalList.h"

#include <atomic>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace app {
namespace {

constexpr std::size_t kSlots = 64;
constexpr std::size_t kPathBytes = 4096;
constexpr int kDeepest = 200;  // folders in folders; none of ours is that deep

// A signal handler can use plain memory only, so the paths are in fixed arrays. A slot is written
// only while it is not `isTaken`, and read only while it is.
struct Slot {
    std::atomic<bool> isTaken{false};
    pid_t owner;
    char path[kPathBytes];
};
Slot slots[kSlots];
static_assert(std::atomic<bool>::is_always_lock_free);

// As the kernel gives it; the C library's own way of listing a folder asks for memory.
struct Entry {
    std::uint64_t inode;
    std::int64_t offset;
    unsigned short size;
    unsigned char type;
    char name[1];  // and more, up to a NUL
};

bool IsDotOrDots(const char* name) {
    return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

// Removes what is in an open folder. Never follows a link.
void Empty(int folder, int depth) {
    alignas(Entry) char block[2048];
    for (;;) {
        const long got = syscall(SYS_getdents64, folder, block, sizeof block);
        if (got <= 0) {
            return;
        }
        for (long at = 0; at < got;) {
            const auto* const entry = reinterpret_cast<const Entry*>(block + at);
            at += entry->size;
            if (IsDotOrDots(entry->name) || unlinkat(folder, entry->name, 0) == 0 ||
                depth == kDeepest) {
                continue;
            }
            const int inner =
                openat(folder, entry->name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
            if (inner >= 0) {
                Empty(inner, depth + 1);
                close(inner);
                unlinkat(folder, entry->name, AT_REMOVEDIR);
            }
        }
    }
}

extern "C" void RemoveAndDie(int signalNumber) {
    for (Slot& slot : slots) {
        if (!slot.isTaken.load() || slot.owner != getpid()) {
            continue;
        }
        const int folder = open(slot.path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (folder >= 0) {
            Empty(folder, 0);
            close(folder);
            rmdir(slot.path);
        }
    }
    // SA_RESETHAND has restored the default action, which ends the program after the handler.
    raise(signalNumber);
}

void InstallHandlers() {
    for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction current {};
        sigaction(signalNumber, nullptr, &current);
        if (current.sa_handler == SIG_IGN) {
            continue;  // as under nohup: the program is meant to live on
        }
        struct sigaction action {};
        action.sa_handler = RemoveAndDie;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        sigemptyset(&action.sa_mask);
        sigaction(signalNumber, &action, nullptr);
    }
}

}  // namespace

void RemoveOnSignal(const std::filesystem::path& folder) {
    static const bool installed = [] {
        InstallHandlers();
        return true;
    }();
    static_cast<void>(installed);
    const std::string bytes = std::filesystem::absolute(folder).string();
    if (bytes.size() >= kPathBytes) {
        return;
    }
    for (Slot& slot : slots) {
        if (!slot.isTaken.load()) {
            std::memcpy(slot.path, bytes.c_str(), bytes.size() + 1);
            slot.owner = getpid();
            slot.isTaken.store(true);
            return;
        }
    }
}

void KeepOnSignal(const std::filesystem::path& folder) {
    const std::string bytes = std::filesystem::absolute(folder).string();
    for (Slot& slot : slots) {
        if (slot.isTaken.load() && bytes == slot.path) {
            slot.isTaken.store(false);
        }
    }
}

void EndBySignal(int signalNumber) {
    // The handler, if there is one, removes the folders.
    std::raise(signalNumber);
}

}  // namespace app
