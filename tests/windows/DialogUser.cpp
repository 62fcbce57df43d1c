#include "tests/windows/DialogUser.h"

#include <commctrl.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <utility>
#include <vector>

namespace windows_test {

namespace {

constexpr int kFirstControl = 2100;
constexpr int kLastControl = 2105;
constexpr int kCheckBoxes[] = {2101, 2102, 2103, 2104};

BOOL CALLBACK TakeVisibleDialog(HWND window, LPARAM found) {
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    if (IsWindowVisible(window) == 0 || std::wstring(className) != L"#32770") {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// Null when the thread shows none within the time.
HWND WaitForDialog(DWORD threadId) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    HWND dialog = nullptr;
    while (dialog == nullptr && std::chrono::steady_clock::now() < end) {
        Sleep(10);
        EnumThreadWindows(threadId, TakeVisibleDialog, reinterpret_cast<LPARAM>(&dialog));
    }
    return dialog;
}

std::wstring TextOf(HWND window) {
    wchar_t text[256] = {};
    SendMessageW(window, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(text));
    return text;
}

// The window's pixels, four bytes each, row after row from the bottom.
std::vector<char> PixelsOf(HWND window, int width, int height) {
    BITMAPINFO format{};
    format.bmiHeader = {sizeof(BITMAPINFOHEADER), width, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<char> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
                             4);
    HDC screen = GetWindowDC(window);
    HDC copy = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ previous = SelectObject(copy, bitmap);
    BitBlt(copy, 0, 0, width, height, screen, 0, 0, SRCCOPY);
    SelectObject(copy, previous);
    GetDIBits(copy, bitmap, 0, static_cast<UINT>(height), pixels.data(), &format, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(copy);
    ReleaseDC(window, screen);
    return pixels;
}

}  // namespace

Screen::Screen(HWND frame)
    : frame_(frame),
      page_(reinterpret_cast<HWND>(SendMessageW(frame, PSM_GETCURRENTPAGEHWND, 0, 0))) {
    if (page_ == nullptr) {
        page_ = frame_;
    }
}

std::wstring Screen::Caption() const {
    return TextOf(page_);
}

std::map<int, bool> Screen::CheckBoxes() const {
    std::map<int, bool> states;
    for (const int id : kCheckBoxes) {
        if (GetDlgItem(page_, id) != nullptr) {
            states[id] = SendDlgItemMessageW(page_, id, BM_GETCHECK, 0, 0) == BST_CHECKED;
        }
    }
    return states;
}

std::map<int, std::wstring> Screen::Texts() const {
    std::map<int, std::wstring> texts;
    for (int id = kFirstControl; id <= kLastControl; ++id) {
        if (const HWND control = GetDlgItem(page_, id)) {
            texts[id] = TextOf(control);
        }
    }
    return texts;
}

bool Screen::HasContextHelp() const {
    return (GetWindowLongPtrW(page_, GWL_EXSTYLE) & WS_EX_CONTEXTHELP) != 0;
}

void Screen::Click(int controlId) const {
    SendDlgItemMessageW(page_, controlId, BM_CLICK, 0, 0);
}

void Screen::ClickFrame(int controlId) const {
    SendDlgItemMessageW(frame_, controlId, BM_CLICK, 0, 0);
    // A message that is sent does not end a sheet's wait for the next one, and a user's click does.
    PostMessageW(frame_, WM_NULL, 0, 0);
}

LRESULT Screen::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(page_, message, wParam, lParam);
}

LRESULT Screen::AskForHelp() const {
    return Send(WM_SYSCOMMAND, SC_CONTEXTHELP, 0);
}

void Screen::Photograph(const std::string& name) const {
    UpdateWindow(frame_);
    Sleep(200);  // the controls paint themselves when their thread gets to it
    RECT box{};
    GetWindowRect(frame_, &box);
    const int width = static_cast<int>(box.right - box.left);
    const int height = static_cast<int>(box.bottom - box.top);
    const std::vector<char> pixels = PixelsOf(frame_, width, height);

    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42;  // "BM"
    header.bfOffBits = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    header.bfSize = header.bfOffBits + static_cast<DWORD>(pixels.size());
    const BITMAPINFOHEADER format{
        sizeof(BITMAPINFOHEADER), width, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const std::filesystem::path folder = QOLF_SCREENSHOTS;
    std::filesystem::create_directories(folder);
    std::ofstream file(folder / (name + ".bmp"), std::ios::binary);
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(reinterpret_cast<const char*>(&format), sizeof format);
    file.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
}

DialogUser::DialogUser(std::function<void(const Screen&)> script)
    : thread_([script = std::move(script), threadId = GetCurrentThreadId()] {
          const HWND dialog = WaitForDialog(threadId);
          if (dialog == nullptr) {
              return;
          }
          script(Screen(dialog));
          if (IsWindow(dialog) != 0) {
              PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
          }
      }) {}

DialogUser::~DialogUser() {
    thread_.join();
}

}  // namespace windows_test
