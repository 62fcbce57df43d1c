#include "tests/cli/OpenWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace cli {

OpenWatch::OpenWatch(const std::filesystem::path& file)
    : notify_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    // The system joins two events of one kind; with the closings no openings follow each other.
    if (inotify_add_watch(notify_, file.c_str(), IN_OPEN | IN_CLOSE) < 0) {
        throw std::runtime_error("the file can't be watched");
    }
}

OpenWatch::~OpenWatch() {
    close(notify_);
}

int OpenWatch::Count() const {
    int count = 0;
    alignas(inotify_event) std::array<char, 4096> buffer{};
    for (ssize_t size = 0; (size = read(notify_, buffer.data(), buffer.size())) > 0;) {
        for (const char* at = buffer.data(); at < buffer.data() + size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(at);
            count += (event->mask & IN_OPEN) != 0 ? 1 : 0;
            at += sizeof(inotify_event) + event->len;
        }
    }
    return count;
}

}  // namespace cli
