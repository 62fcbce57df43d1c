// How a program reaches an options dialog that its filter has but does not offer as a page.
// Nothing of a host library stands behind it, so a filter built for another host carries it too.
#pragma once

#include <string>

namespace platform {

// A filter that implements this may be found with dynamic_cast from its base class.
class OptionsDialogOwner {
public:
    virtual ~OptionsDialogOwner() = default;

    // Opens the modal dialog. True when the user accepted and the options were stored.
    virtual bool ShowOptionsDialog(const std::wstring& captionSuffix) = 0;
};

}  // namespace platform
