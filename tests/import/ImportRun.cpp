#include "tests/import/ImportRun.h"

#include "host/shr/IError.h"
#include "standalone/Text.h"

namespace import_test {

namespace {

std::string ErrorText(const shr::IError& error, const std::wstring& path) {
    std::wstring message = error.Message();
    const std::size_t position = message.find(path);
    if (position != std::wstring::npos) {
        message.replace(position, path.size(), L"PATH");
    }
    return standalone::Narrow(error.Source()) + '(' + std::to_string(error.Line()) +
           "): " + standalone::Narrow(message);
}

}  // namespace

void ImportRun::Import(std::string_view objects) {
    ImportBytes(header_ + "Data\n" + std::string(objects));
}

void ImportRun::ImportBytes(std::string_view bytes) {
    WriteFiles(bytes);
    ImportFile();
}

void ImportRun::WriteFiles(std::string_view bytes) {
    static_cast<void>(folder_.Write("map.mif", bytes));
    if (hasRows_) {
        static_cast<void>(folder_.Write("map.mid", rows_));
    }
}

void ImportRun::ImportFile() {
    error_.clear();
    try {
        filter_.Import(Path());
    } catch (const shr::IError& error) {
        error_ = ErrorText(error, Path());
    }
}

void ImportRun::UseRows(std::string rows) {
    rows_ = std::move(rows);
    hasRows_ = true;
}

void ImportRun::Remember(const wchar_t* option, bool value) {
    static_cast<void>(host_.optionStore().Set(option, value, /*persistent=*/true));
}

Lines ObjectsOf(std::string_view objects) {
    ImportRun run;
    run.Import(objects);
    return run.HostReceived();
}

}  // namespace import_test
