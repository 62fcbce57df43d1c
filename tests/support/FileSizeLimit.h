// A disk that is full after so many bytes of a file, on systems that have such a limit. For this
// process and those that it starts meanwhile.
#pragma once

#include <csignal>
#include <sys/resource.h>

namespace support {

class FileSizeLimit {
public:
    // Lowers the largest size that a file may have; writing beyond it fails without a signal.
    explicit FileSizeLimit(rlim_t bytes) : previousHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &previous_);
        rlimit lowered = previous_;
        lowered.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &lowered);
    }

    // As it was before.
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &previous_);
        std::signal(SIGXFSZ, previousHandler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit previous_{};
    void (*previousHandler_)(int);
};

}  // namespace support
