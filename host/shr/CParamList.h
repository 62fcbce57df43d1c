// The named attribute values of one object: column name to text, in the order of first use.
//
// Names are compared exactly, with their case; an empty name is a name like any other.
//
// Lists filled with the same names one after the other share their names: copying a list, or
// setting the names again in the same order, allocates no name. A list belongs to one thread at a
// time, but lists that share names may live in several.
#pragma once

#include "host/platform/Export.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace shr {

class QOLF_HOST_API CParamList {
public:
    CParamList();  // empty
    ~CParamList();
    CParamList(const CParamList&);
    CParamList(CParamList&&) noexcept;  // leaves the other one empty
    CParamList& operator=(const CParamList&);
    CParamList& operator=(CParamList&&) noexcept;

    // Stores a value under a name; a value already there is replaced in its place. Narrow text is
    // text of code page 0 and is converted when it is asked for.
    void Set(const std::wstring& name, std::string value);
    void Set(const std::wstring& name, const std::wstring& value);

    // Puts the value into value and returns true; clears value and returns false when the name is
    // absent.
    bool Get(const std::wstring& name, std::wstring& value) const;

    // Entries by position, 0 to Size() - 1; another position is undefined. The name is valid until
    // the list is changed.
    std::size_t Size() const;
    const std::wstring& Name(std::size_t index) const;
    std::wstring Value(std::size_t index) const;

    // Returns the value as narrow text of code page 0: as it was set, or converted.
    std::string NarrowValue(std::size_t index) const;

    // Forgets values and names.
    void Clear();

private:
    struct Names;
    struct Memory;
    struct Entry {
        std::string narrow;                  // the value, when it was set as narrow text
        std::unique_ptr<std::wstring> wide;  // the value, when it was set as wide text
        Entry() = default;
        Entry(const Entry&);
        Entry(Entry&&) noexcept = default;
        Entry& operator=(const Entry&);
        Entry& operator=(Entry&&) noexcept = default;
    };

    void TakeMemory();
    void LeaveMemory() noexcept;
    std::size_t IndexOf(const std::wstring& name) const;
    Entry& EntryFor(const std::wstring& name);
    void AppendName(const std::wstring& name);

    std::shared_ptr<Names> names_;  // null while no name was set; may hold more than are set here
    std::vector<Entry> entries_;    // entries_[i] belongs to name i
    std::size_t nextHint_ = 0;      // where the next name of a repeated sequence is expected
};

}  // namespace shr
