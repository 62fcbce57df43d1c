#include "app/mif/PaddedCopy.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"

#include <fstream>

namespace app {
namespace {

// Writes the header's bytes up to the last offset, with an empty line for each.
void WriteHead(const std::filesystem::path& source, const MifHeader& header,
               const std::filesystem::path& target) {
    std::ifstream from(source, std::ios::binary);
    std::ofstream to(target, std::ios::binary);
    std::string part;
    std::uint64_t position = 0;
    for (const std::uint64_t offset : header.careOffsets) {
        part.resize(static_cast<std::size_t>(offset - position));
        from.read(part.data(), static_cast<std::streamsize>(part.size()));
        to << part << '\n';
        position = offset;
    }
    to.close();
    if (!from || !to) {
        throw Failure(PathText(source) + ": can't make a temporary copy in " +
                      PathText(target.parent_path()));
    }
}

}  // namespace

CareCopy::CareCopy(const std::filesystem::path& mifPath, const MifHeader& header)
    : original_(mifPath), path_(mifPath) {
    if (!header.NeedsCare()) {
        return;
    }
    const std::filesystem::path source = AsOnDisk(mifPath);
    folder_.emplace();
    path_ = folder_->File(mifPath.filename());
    WriteHead(source, header, path_);
    AppendFileRange(source, header.careOffsets.back(), path_);
    const std::filesystem::path mid = FindCompanion(mifPath, ".mid");
    if (!mid.empty()) {
        LinkFile(mid, folder_->File(mifPath.filename().replace_extension(".mid")));
    }
}

std::wstring CareCopy::WithOriginalPath(std::wstring text) const {
    if (!IsCopy()) {
        return text;
    }
    const std::wstring copy = WidePath(path_);
    const std::wstring original = WidePath(original_);
    for (std::size_t at = text.find(copy); at != std::wstring::npos; at = text.find(copy, at)) {
        text.replace(at, copy.size(), original);
        at += original.size();
    }
    return text;
}

}  // namespace app
