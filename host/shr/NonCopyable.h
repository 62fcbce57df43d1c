// Bases that take copying and comparing away from a class. They have no virtual operations and
// can't be made or deleted on their own.
#pragma once

namespace shr {

// Derive publicly, so that a program sees at once that there is one object of each.
class NonCopyable {
public:
    NonCopyable(const NonCopyable&) = delete;
    NonCopyable& operator=(const NonCopyable&) = delete;

protected:
    NonCopyable() = default;
    ~NonCopyable() = default;
};

// For classes whose objects are told apart by their addresses.
class NonComparable {
public:
    bool operator==(const NonComparable&) const = delete;

protected:
    NonComparable() = default;
    ~NonComparable() = default;
};

}  // namespace shr
