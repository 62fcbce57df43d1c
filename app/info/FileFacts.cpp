#include "app/info/FileFacts.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/formats/mif/MifSource.h"
#include "host/platform/Stdio.h"
#include "standalone/Text.h"

#include <algorithm>
#include <cstdio>

namespace app {
namespace {

template <typename T> T Entry(const zeio::ImportFileInfo& info, const wchar_t* key, T otherwise) {
    const auto found = info.entries.find(key);
    const T* value = found == info.entries.end() ? nullptr : boost::any_cast<T>(&found->second);
    return value != nullptr ? *value : otherwise;
}

// Rows as the module cuts them: ended by a line feed or a NUL, or by the end of the file.
std::optional<std::uint64_t> CountRows(const std::filesystem::path& mifPath) {
    const std::filesystem::path mid = FindCompanion(mifPath, ".mid");
    std::FILE* stream =
        mid.empty() ? nullptr : platform::OpenFile(WidePath(mid), platform::OpenMode::ReadBinary);
    if (stream == nullptr) {
        return std::nullopt;
    }
    std::uint64_t rows = 0;
    int last = '\n';
    for (int c = platform::GetByte(stream); c != EOF; c = platform::GetByte(stream)) {
        rows += c == '\n' || c == 0 ? 1 : 0;
        last = c;
    }
    std::fclose(stream);
    return rows + (last != '\n' && last != 0 ? 1 : 0);
}

class Counter {
public:
    void Take(const Feature& feature) {
        const Geometry& geometry = feature.geometry;
        switch (geometry.kind) {
        case GeometryKind::Points:
            ++counts_.points;
            break;
        case GeometryKind::Line:
            ++counts_.lines;
            break;
        case GeometryKind::Region:
            ++counts_.regions;
            break;
        case GeometryKind::Rectangle:
            ++counts_.rectangles;
            WidenBy(geometry.box);
            break;
        case GeometryKind::Ellipse:
            ++counts_.ellipses;
            WidenBy(geometry.box);
            break;
        case GeometryKind::Text:
            ++counts_.texts;
            break;
        default:  // the module hands over no others
            break;
        }
        counts_.vertices += geometry.points.size();
        for (const shr::Vec2d& point : geometry.points) {
            Widen(point.x, point.y);
        }
    }

    const ObjectCounts& Counts() const { return counts_; }

private:
    void WidenBy(const shr::Box2d& box) {
        Widen(box.minX, box.minY);
        Widen(box.maxX, box.maxY);
    }

    void Widen(double x, double y) {
        if (!counts_.extent) {
            counts_.extent = shr::Box2d{x, y, x, y};
        }
        counts_.extent->minX = std::min(counts_.extent->minX, x);
        counts_.extent->minY = std::min(counts_.extent->minY, y);
        counts_.extent->maxX = std::max(counts_.extent->maxX, x);
        counts_.extent->maxY = std::max(counts_.extent->maxY, y);
    }

    ObjectCounts counts_;
};

// Slots 7 and 8.
void AskSlots(ImportRun& run, Reporter& reporter, FileFacts& facts) {
    facts.isCareTaken = run.IsPadded();
    const auto store = OpenOptionStore(/*noStore=*/true);
    ReportingHost host(*store, reporter, PathText(facts.path));
    zeio::IoManager manager(host);
    const ImportFilterPtr filter = run.TheModule().NewImportFilter(manager);
    const std::wstring path = WidePath(run.ReadPath());
    facts.canImport = filter->CanImportFile(path);
    const zeio::ImportFileInfo info = filter->GetFileInfo(0, path);
    facts.version = Entry<int>(info, L"HDR_VERSION", 0);
    facts.charset = Entry<std::string>(info, L"HDR_CHARSET", "");
    facts.delimiter = Entry<std::string>(info, L"HDR_DELIMITER", "");
    facts.isEarth = Entry<bool>(info, L"HDR_HAS_EARTH_COORDS", false);
    facts.bounds = {Entry<double>(info, L"HDR_XMIN", 0.0), Entry<double>(info, L"HDR_YMIN", 0.0),
                    Entry<double>(info, L"HDR_XMAX", 0.0), Entry<double>(info, L"HDR_YMAX", 0.0)};
    // The copy has some bytes more than the file.
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(facts.path, error);
    facts.fileSize =
        error ? Entry<long long>(info, L"File Size", 0LL) : static_cast<long long>(size);
}

}  // namespace

FileFacts CollectFacts(const std::filesystem::path& path, const SourceOptions& options, bool count,
                       Reporter& reporter) {
    FileFacts facts;
    facts.path = path;
    facts.hasMid = !FindCompanion(path, ".mid").empty();
    MifSource source(path, options);
    const LayerFacts layer = source.Begin(0, reporter);
    facts.header = source.Run().Header();
    facts.columns = layer.columns;
    facts.coordinateSystem = layer.system;
    AskSlots(source.Run(), reporter, facts);
    facts.codePage = standalone::CodePage0();
    Counter counter;
    // Without `count` the first object shows whether there is one.
    source.Read(reporter, [&](const Feature& feature) {
        counter.Take(feature);
        return count;
    });
    if (count) {
        facts.counts = counter.Counts();
        facts.counts->rows = CountRows(path);
    }
    return facts;
}

}  // namespace app
