#include "app/base/platform/RemovalList.h"

#include <atomic>
#include <csignal>
#include <cstring>
#include <string>

#include <unistd.h>

namespace app {
namespace {

constexpr std::size_t kSlots = 64;
constexpr std::size_t kPathBytes = 4096;

// A signal handler can use plain memory only, so the paths are in fixed arrays. A slot is written
// only while it is Free, and read only while it is not.
enum SlotState : int { Free = 0, HoldsFile = 1, HoldsFolder = 2 };
struct Slot {
    std::atomic<int> state{Free};
    char path[kPathBytes];
};
Slot slots[kSlots];
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void RemoveAndDie(int signalNumber) {
    for (Slot& slot : slots) {
        if (slot.state.load() == HoldsFile) {
            unlink(slot.path);
        }
    }
    for (Slot& slot : slots) {
        if (slot.state.load() == HoldsFolder) {
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

bool IsAtOrBelow(const char* path, const std::string& folder) {
    return std::strncmp(path, folder.c_str(), folder.size()) == 0 &&
           (path[folder.size()] == '\0' || path[folder.size()] == '/');
}

}  // namespace

void RemoveOnSignal(const std::filesystem::path& path, RemovalKind kind) {
    static const bool installed = [] {
        InstallHandlers();
        return true;
    }();
    static_cast<void>(installed);
    const std::string bytes = std::filesystem::absolute(path).string();
    if (bytes.size() >= kPathBytes) {
        return;
    }
    for (Slot& slot : slots) {
        if (slot.state.load() == Free) {
            std::memcpy(slot.path, bytes.c_str(), bytes.size() + 1);
            slot.state.store(kind == RemovalKind::File ? HoldsFile : HoldsFolder);
            return;
        }
    }
}

void KeepOnSignal(const std::filesystem::path& path) {
    const std::string bytes = std::filesystem::absolute(path).string();
    for (Slot& slot : slots) {
        if (slot.state.load() != Free && IsAtOrBelow(slot.path, bytes)) {
            slot.state.store(Free);
        }
    }
}

}  // namespace app
