// Where boolean options are remembered: for the running program, and across runs in a file.
//
// One store serves any number of hosts, on one thread. Two programs may share a file: each reads it
// when its store is made and replaces it whole when an option changes, so the last one wins.
#pragma once

#include "host/platform/Export.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace standalone {

class QOLF_HOST_API OptionStore {
public:
    // In memory only.
    OptionStore();

    // Backed by a file of lines "name=true" or "name=false" in UTF-8, read at once; a missing file
    // is an empty store, and lines that are no such pair are dropped at the next writing.
    explicit OptionStore(std::filesystem::path file);
    ~OptionStore();

    // The file that the command keeps its options in: options.txt in the folder qolf of the user's
    // configuration folder. Empty when the user has none.
    static std::filesystem::path UserFile();

    // Returns the value that was remembered last, empty when there is none. Names are compared
    // exactly.
    std::optional<bool> Get(const std::wstring& name) const;

    // Remembers a value; with persistent true also in the file, which is replaced atomically when
    // its contents change. A value that was stored with persistent false stays out of the file
    // until another value is stored: a run that was told to forget its options and then saves
    // them all the same leaves no trace. False when the file could not be written, or when the name
    // has a line break, which no line can hold; the running program remembers the value all the
    // same.
    bool Set(const std::wstring& name, bool value, bool persistent);

    // Returns every remembered value, those for the running program only included.
    std::map<std::wstring, bool> All() const;

    // Forgets everything, the file's contents included. False when the file could not be written.
    bool Clear();

private:
    struct Entry {
        bool value = false;
        std::optional<bool> inFile;  // empty: the file has no line for it
        bool isForgotten = false;    // stored for the running program only
    };

    void ReadFile();
    bool WriteFile() const;

    std::filesystem::path file_;  // empty: in memory only
    std::map<std::wstring, Entry> entries_;
};

}  // namespace standalone
