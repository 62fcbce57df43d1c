#include "host/zeio/IoExportFilter.h"

#include "host/platform/Stdio.h"
#include "standalone/platform/PrivateFiles.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace zeio {

namespace {

// Origin "lines" of this class's errors.
constexpr const wchar_t* kOrigin = L"IoExportFilter";
constexpr int kNotBegun = 1;
constexpr int kCannotRead = 2;

struct StreamCloser {
    void operator()(std::FILE* stream) const {
        static_cast<void>(std::fclose(stream));  // nothing was written
    }
};

}  // namespace

// An export to memory under way. The folder goes with it, whatever becomes of the filter.
struct IoExportFilter::MemoryExport {
    standalone::PrivateFolder folder;
    std::vector<unsigned char>* bytes = nullptr;  // null: to a block
    void** block = nullptr;                       // null: to a vector
    unsigned long long* size = nullptr;

    std::wstring MainFile() const { return folder.PathOf("memory.mif"); }
};

namespace {

std::vector<unsigned char> ReadWhole(const IoExportFilter& filter, const std::wstring& path) {
    const std::unique_ptr<std::FILE, StreamCloser> stream(
        platform::OpenFile(path, platform::OpenMode::ReadBinary));
    if (!stream || !platform::SeekToEnd(stream.get())) {
        filter.Throw_ERR_INTERNAL(kOrigin, kCannotRead);
    }
    std::vector<unsigned char> bytes(platform::Tell(stream.get()));
    if (!platform::SeekTo(stream.get(), 0) ||
        std::fread(bytes.data(), 1, bytes.size(), stream.get()) != bytes.size()) {
        filter.Throw_ERR_INTERNAL(kOrigin, kCannotRead);
    }
    return bytes;
}

}  // namespace

IoExportFilter::IoExportFilter(IoManager& manager) : IoFilter(manager) {}

IoExportFilter::~IoExportFilter() = default;

ExportStatus IoExportFilter::BeginExportToMemory(std::vector<unsigned char>& bytes) {
    auto begun = std::make_unique<MemoryExport>();
    begun->bytes = &bytes;
    const ExportStatus status = BeginExport(begun->MainFile());
    memoryExport_ = std::move(begun);
    return status;
}

ExportStatus IoExportFilter::BeginExportToGlobalMemory(void*& block, unsigned long long& size) {
    auto begun = std::make_unique<MemoryExport>();
    begun->block = &block;
    begun->size = &size;
    const ExportStatus status = BeginExport(begun->MainFile());
    memoryExport_ = std::move(begun);
    return status;
}

ExportStatus IoExportFilter::EndExportToMemory() {
    const std::unique_ptr<MemoryExport> ended = std::move(memoryExport_);
    if (!ended || ended->bytes == nullptr) {
        Throw_ERR_INTERNAL(kOrigin, kNotBegun);
    }
    ended->bytes->clear();
    const ExportStatus status = EndExport();
    if (status == ExportStatus::Done) {
        *ended->bytes = ReadWhole(*this, ended->MainFile());
    }
    return status;
}

ExportStatus IoExportFilter::EndExportToGlobalMemory() {
    const std::unique_ptr<MemoryExport> ended = std::move(memoryExport_);
    if (!ended || ended->block == nullptr) {
        Throw_ERR_INTERNAL(kOrigin, kNotBegun);
    }
    *ended->block = nullptr;
    *ended->size = 0;
    const ExportStatus status = EndExport();
    if (status != ExportStatus::Done) {
        return status;
    }
    const std::vector<unsigned char> bytes = ReadWhole(*this, ended->MainFile());
    if (bytes.empty()) {
        return status;
    }
    *ended->block = std::malloc(bytes.size());
    if (*ended->block == nullptr) {
        throw std::bad_alloc();
    }
    std::memcpy(*ended->block, bytes.data(), bytes.size());
    *ended->size = bytes.size();
    return status;
}

}  // namespace zeio
