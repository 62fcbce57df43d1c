// How a program reaches an options dialog that its filter has but does not offer as a page.
// Nothing of a host library stands behind it, so a filter built for another host carries it too.
#pragma once

#include <string>

namespace platform {

// A filter that implements this may be found with dynamic_cast from its base class.
class OptionsDialogOwner {
public:
    virtual ~OptionsDialogOwner() = default;

    // Opens the modal dialog, over the manager's parent window, and returns when it is closed. True
    // when the user accepted and the options were stored. The suffix goes behind the caption, with
    // " - " before it; an empty one leaves the caption alone. One such dialog at a time, on the
    // user-interface thread.
    virtual bool ShowOptionsDialog(const std::wstring& captionSuffix) = 0;
};

}  // namespace platform
