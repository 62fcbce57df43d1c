// A whole import. The input is the options (one character), the .mif file, a record separator
// (0x1E) and the .mid file.
#include "fuzz/FuzzInput.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"

#include <cstdint>
#include <string_view>

namespace {

constexpr char kSeparator = '\x1E';

void WritePair(std::string_view text) {
    const std::size_t separator = text.rfind(kSeparator);
    fuzz::WriteFile("map.mif", text.substr(0, separator));
    if (separator == std::string_view::npos) {
        fuzz::RemoveFile("map.mid");
    } else {
        fuzz::WriteFile("map.mid", text.substr(separator + 1));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    WritePair(fuzz::TextOf(data + 1, size - 1));
    fuzz::CheckingHost host;
    host.optionStore().Set(L"AreasToCurves", (data[0] & 1) != 0, /*persistent=*/true);
    host.optionStore().Set(L"IgnoreStyles", (data[0] & 2) != 0, /*persistent=*/true);
    zeio::IoManager manager(host);
    mif::MifImportFilter filter(manager);
    const std::wstring path = fuzz::PathOf("map.mif");
    const bool canImport = filter.CanImportFile(path) == 1;
    static_cast<void>(filter.GetFileInfo(0, path));
    try {
        filter.Import(path);
        fuzz::Require(canImport, "what was imported could be imported");
    } catch (const shr::IError& error) {
        fuzz::Require(!error.Message().empty(), "an error says what it is");
    }
    return 0;
}
