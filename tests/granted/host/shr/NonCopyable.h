// Bases without operations.
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
protected:
    NonComparable() = default;
    ~NonComparable() = default;
};

}  // namespace shr
