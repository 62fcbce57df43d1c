// Filters' options pages under one roof, with OK, Cancel and Help, for systems without windows.
#pragma once

#include "host/platform/Export.h"
#include "standalone/DialogModel.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace zeio {
class IoPropertyPage;
}

namespace standalone {

// What a presenter shows and presses. Exceptions of the pages leave through the operations.
class QOLF_HOST_API PropertySheet {
public:
    // Makes each page's dialog from its description; a page without one is left out. A page that is
    // deleted before the sheet is only not asked any more; its dialog stays as it was.
    explicit PropertySheet(const std::vector<zeio::IoPropertyPage*>& pages);
    ~PropertySheet();
    PropertySheet(const PropertySheet&) = delete;
    PropertySheet& operator=(const PropertySheet&) = delete;

    std::size_t PageCount() const { return pages_.size(); }

    // Pages by position, 0 to PageCount() - 1; throws std::out_of_range for another one.
    DialogModel& Page(std::size_t index);

    // True when the page has something to say when Help is pressed (PSP_HASHELP).
    bool HasHelp(std::size_t index) const;

    // Tells every page to apply its choices (PSN_APPLY), then closes the sheet. Does nothing on a
    // closed one.
    void PressOk();

    // Closes the sheet; the pages hear nothing of it.
    void PressCancel();

    // False when the page has no help.
    bool PressHelp(std::size_t index);

    // A sheet is also closed, unapplied, by a page that ends its own dialog.
    bool IsOpen() const;

    // True once OK was pressed.
    bool IsAccepted() const { return isAccepted_; }

private:
    struct ShownPage {
        std::unique_ptr<DialogModel> dialog;
        bool hasHelp;
    };

    static void Notify(DialogModel& page, UINT code);

    std::vector<ShownPage> pages_;
    bool isClosed_ = false;
    bool isAccepted_ = false;
};

// Shows the pages until the sheet is closed. True when OK was pressed. Without pages there is
// nothing to show, and the result is false. The presenter returns when the sheet is no longer open;
// what it or a page throws passes.
QOLF_HOST_API bool RunPropertySheet(const std::vector<zeio::IoPropertyPage*>& pages,
                                    DialogPresenter& presenter);

}  // namespace standalone
