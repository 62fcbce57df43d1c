// The log of exceptions that were swallowed because they must not escape: from destructors and
// from dialog procedures.
#pragma once

#include "host/platform/Export.h"

#include <functional>
#include <string>

namespace standalone {

struct LogEntry {
    std::wstring module;      // who swallowed the exception: a module's name, or what it was doing
    std::wstring sourceFile;  // without folder and extension
    int line;
    std::string text;  // what the exception says, in UTF-8
};

using LogSink = std::function<void(const LogEntry&)>;

// Plugs in what receives the entries; an empty function drops them. Returns the sink that was there
// before. Initially each entry is one line on stderr, since a swallowed exception has no other way
// to be noticed: "module: sourceFile(line): text".
QOLF_HOST_API LogSink SetLogSink(LogSink sink);

// Hands an entry to the sink. Entries of several threads come one after the other.
QOLF_HOST_API void WriteLog(const LogEntry& entry);

}  // namespace standalone
