#include "host/shr/CParamList.h"

#include "host/shr/Text.h"

#include <algorithm>
#include <deque>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace shr {

// The names of one or many lists. A list has the first entries_.size() of them.
//
// Once a second list may refer to the names they never change again, so that lists which share
// them can live in different threads.
struct CParamList::Names {
    std::deque<std::wstring> inOrder;  // no name twice; a deque, because the map refers into it
    std::unordered_map<std::wstring_view, std::size_t> positions;
    bool isShared = false;

    void Append(const std::wstring& name) {
        inOrder.push_back(name);
        positions.emplace(inOrder.back(), inOrder.size() - 1);
    }

    // Written only once, by the thread of the only list that has the names: later ones only read.
    void Share() {
        if (!isShared) {
            isShared = true;
        }
    }
};

// What the thread's last complete list leaves to the next one.
struct CParamList::Memory {
    std::shared_ptr<Names> names;  // null until a list with names was complete

    // The last list's own reference to them, and its entries without their values. One list after
    // the other passes these on, which takes neither an allocation nor a count of references.
    std::shared_ptr<Names> spareNames;
    std::vector<Entry> spareEntries;

    // Null before the first list of the thread and once the thread is at its end: lists in static
    // storage outlive the memory.
    static Memory* OfThread();
};

CParamList::Memory* CParamList::Memory::OfThread() {
    // Plain values, because a thread's objects with a destructor take a longer way to reach.
    static constinit thread_local Memory* memory = nullptr;
    static constinit thread_local bool isMade = false;
    if (!isMade) {
        static thread_local Memory owned;
        static thread_local struct AtEnd {
            ~AtEnd() { memory = nullptr; }
        } atEnd;
        static_cast<void>(atEnd);
        memory = &owned;
        isMade = true;
    }
    return memory;
}

CParamList::Entry::Entry(const Entry& other)
    : narrow(other.narrow),
      wide(other.wide ? std::make_unique<std::wstring>(*other.wide) : nullptr) {}

CParamList::Entry& CParamList::Entry::operator=(const Entry& other) {
    Entry copy(other);
    return *this = std::move(copy);
}

CParamList::CParamList() = default;

CParamList::~CParamList() {
    LeaveMemory();
}

CParamList::CParamList(const CParamList& other) : names_(other.names_), entries_(other.entries_) {
    if (names_) {
        names_->Share();
    }
}

CParamList::CParamList(CParamList&& other) noexcept
    : names_(std::move(other.names_)), entries_(std::move(other.entries_)),
      nextHint_(std::exchange(other.nextHint_, 0)) {
    other.entries_.clear();
}

CParamList& CParamList::operator=(const CParamList& other) {
    if (this != &other) {
        LeaveMemory();
        names_ = other.names_;
        entries_ = other.entries_;
        nextHint_ = 0;
        if (names_) {
            names_->Share();
        }
    }
    return *this;
}

CParamList& CParamList::operator=(CParamList&& other) noexcept {
    if (this != &other) {
        LeaveMemory();
        names_ = std::move(other.names_);
        entries_ = std::move(other.entries_);
        other.entries_.clear();
        nextHint_ = std::exchange(other.nextHint_, 0);
    }
    return *this;
}

void CParamList::Set(const std::wstring& name, std::string value) {
    Entry& entry = EntryFor(name);
    entry.narrow = std::move(value);
    entry.wide.reset();
}

void CParamList::Set(const std::wstring& name, const std::wstring& value) {
    auto wide = std::make_unique<std::wstring>(value);
    Entry& entry = EntryFor(name);
    entry.narrow.clear();
    entry.wide = std::move(wide);
}

bool CParamList::Get(const std::wstring& name, std::wstring& value) const {
    const std::size_t index = IndexOf(name);
    if (index == entries_.size()) {
        value.clear();
        return false;
    }
    value = Value(index);
    return true;
}

std::size_t CParamList::Size() const {
    return entries_.size();
}

const std::wstring& CParamList::Name(std::size_t index) const {
    return names_->inOrder[index];
}

std::wstring CParamList::Value(std::size_t index) const {
    const Entry& entry = entries_[index];
    return entry.wide ? *entry.wide : AtoW(entry.narrow);
}

std::string CParamList::NarrowValue(std::size_t index) const {
    const Entry& entry = entries_[index];
    return entry.wide ? WtoAN(*entry.wide) : entry.narrow;
}

void CParamList::Clear() {
    LeaveMemory();
    names_.reset();
    entries_.clear();
    nextHint_ = 0;
}

void CParamList::LeaveMemory() noexcept {
    Memory* const memory = names_ ? Memory::OfThread() : nullptr;
    if (memory == nullptr) {
        return;
    }
    if (memory->names != names_) {
        names_->Share();
        memory->names = names_;
    }
    memory->spareNames = std::move(names_);
    if (memory->spareEntries.capacity() < entries_.capacity()) {
        entries_.clear();
        memory->spareEntries.swap(entries_);
    }
}

// Starts with what the last list has left.
void CParamList::TakeMemory() {
    Memory* const memory = Memory::OfThread();
    if (memory == nullptr || !memory->names) {
        return;
    }
    names_ = memory->spareNames ? std::move(memory->spareNames) : memory->names;
    if (entries_.capacity() < memory->spareEntries.capacity()) {
        entries_.swap(memory->spareEntries);
    }
    entries_.reserve(names_->inOrder.size());
}

std::size_t CParamList::IndexOf(const std::wstring& name) const {
    if (!names_) {
        return entries_.size();
    }
    const auto found = names_->positions.find(name);
    return found == names_->positions.end() ? entries_.size()
                                            : std::min(found->second, entries_.size());
}

// Rows of a table set the same names in the same order, so the name behind the last one is tried
// first: among the list's own, then among those that the names hold in reserve.
CParamList::Entry& CParamList::EntryFor(const std::wstring& name) {
    if (!names_) {
        TakeMemory();
    }
    const bool isExpected =
        names_ && nextHint_ < names_->inOrder.size() && names_->inOrder[nextHint_] == name;
    const std::size_t index = isExpected ? nextHint_ : IndexOf(name);
    if (index == entries_.size()) {
        if (!isExpected) {
            AppendName(name);
        }
        entries_.emplace_back();
    }
    nextHint_ = index + 1;
    return entries_[index];
}

// Puts a name behind those of the entries.
void CParamList::AppendName(const std::wstring& name) {
    const std::size_t count = entries_.size();
    if (!names_ || names_->isShared || names_->inOrder.size() != count) {
        auto own = std::make_shared<Names>();
        for (std::size_t i = 0; i < count; ++i) {
            own->Append(names_->inOrder[i]);
        }
        names_ = std::move(own);
    }
    names_->Append(name);
}

}  // namespace shr
