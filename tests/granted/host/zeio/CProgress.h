// Made from its manager alone.
#pragma once

namespace zeio {

class IoManager;

class CProgress {
public:
    explicit CProgress(IoManager& manager);
    ~CProgress();
    CProgress(const CProgress&) = delete;
    CProgress& operator=(const CProgress&) = delete;

    void MessageVA(const wchar_t* format, ...);
};

}  // namespace zeio
