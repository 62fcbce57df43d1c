// The page's four slots and what it calls of its base.
#pragma once

#include "host/platform/WindowSystem.h"
#include "host/shr/CTypeInfo.h"

#include <string>

namespace zeio {

class IoManager;

class IoPropertyPage {
public:
    IoPropertyPage(const std::wstring& name, IoManager& manager);
    IoPropertyPage(const IoPropertyPage&) = delete;
    IoPropertyPage& operator=(const IoPropertyPage&) = delete;

    virtual ~IoPropertyPage();
    virtual const shr::CTypeInfo* GetTypeId() const;
    virtual int ForwardDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    virtual int DlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    static const shr::CTypeInfo* GetClassTypeId();
    void SetPropSheetPage(const PROPSHEETPAGEW& page);
    int CallDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};

LONG_PTR IoPropPageDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace zeio
