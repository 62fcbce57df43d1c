// The property page on which the user sets the export options.
//
// The filter owns the page; the page hands its choices back to it when the user accepts them.
#pragma once

#include "export/ExportOptions.h"
#include "host/zeio/IoPropertyPage.h"

#include <string>

namespace mif {

class MifExportFilter;

class MifExportDlg final : public zeio::IoPropertyPage {
public:
    // title is the path that the export is for; its file name goes into the caption. Empty: the
    // caption stays. The filter must outlive the page.
    MifExportDlg(zeio::IoManager& manager, MifExportFilter& filter, const std::wstring& title,
                 const ExportOptions& options);
    ~MifExportDlg() override;

    const shr::CTypeInfo* GetTypeId() const override;
    int ForwardDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

    // 1 for a message that was handled, else 0. Every exception goes to the host's log and none
    // leaves: the window system has no way to pass one on.
    int DlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

    static const shr::CTypeInfo* GetClassTypeId();  // module/PageType.cpp

    // Registers the page's property-sheet description, with the template in the module.
    void Describe(HINSTANCE module);

    const ExportOptions& options() const { return options_; }

private:
    int HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    int InitDialog(HWND window);
    int HandleCommand(HWND window, int command);
    int HandleNotification(HWND window, UINT code);
    void AppendTitleToCaption(HWND window) const;
    void ShowOptions(HWND window) const;
    void TakeOptions(HWND window);
    void AcceptOptions(HWND window);
    void ShowHelp() const;

    MifExportFilter& filter_;
    std::wstring title_;
    ExportOptions options_;
};

}  // namespace mif
