// A whole import. The input is the options (one character) and a pair of files.
#include "fuzz/FuzzInput.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    fuzz::WritePair(fuzz::TextOf(data + 1, size - 1));
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
