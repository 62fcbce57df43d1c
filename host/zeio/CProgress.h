// A run's progress display: it starts with the object and ends with it.
#pragma once

#include "host/platform/Export.h"
#include "host/shr/NonCopyable.h"

namespace zeio {

class IoManager;

class QOLF_HOST_API CProgress : public shr::NonCopyable {
public:
    // Calls IoManager::ProgressStart with an empty title and both flags true.
    explicit CProgress(IoManager& manager);
    ~CProgress();

    // Shows a status line, formatted as shr::FormatString does.
    void MessageVA(const wchar_t* format, ...);

private:
    IoManager& manager_;
};

}  // namespace zeio
