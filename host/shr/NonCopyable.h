// Bases that take copying and comparing away from a class.
#pragma once

namespace shr {

class NonCopyable {
public:
    NonCopyable(const NonCopyable&) = delete;
    NonCopyable& operator=(const NonCopyable&) = delete;

protected:
    NonCopyable() = default;
    ~NonCopyable() = default;
};

class NonComparable {
public:
    bool operator==(const NonComparable&) const = delete;

protected:
    NonComparable() = default;
    ~NonComparable() = default;
};

}  // namespace shr
