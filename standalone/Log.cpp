#include "standalone/Log.h"

#include "standalone/Text.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace standalone {

namespace {

void WriteToStderr(const LogEntry& entry) {
    const std::string line = Narrow(entry.module) + ": " + Narrow(entry.sourceFile) + "(" +
                             std::to_string(entry.line) + "): " + entry.text + "\n";
    std::fputs(line.c_str(), stderr);
}

struct Log {
    std::mutex mutex;
    LogSink sink = WriteToStderr;
};

// Never destroyed: destructors of static objects may log.
Log& TheLog() {
    static Log* log = new Log;
    return *log;
}

}  // namespace

LogSink SetLogSink(LogSink sink) {
    Log& log = TheLog();
    const std::scoped_lock lock(log.mutex);
    return std::exchange(log.sink, std::move(sink));
}

void WriteLog(const LogEntry& entry) {
    Log& log = TheLog();
    const std::scoped_lock lock(log.mutex);
    if (log.sink) {
        log.sink(entry);
    }
}

}  // namespace standalone
