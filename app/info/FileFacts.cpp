#include "app/info/FileFacts.h"

#include "app/base/Paths.h"
#include "app/base/Utf8.h"
#include "app/crs/CoordinateSystem.h"
#include "app/formats/mif/MifSource.h"
#include "app/mif/PairPass.h"
#include "host/platform/Stdio.h"
#include "standalone/Text.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <utility>

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

// What the module answers of a file without an import: slots 7 and 8.
class Slots {
public:
    Slots(const MifSource& source, Reporter& reporter)
        : store_(OpenOptionStore(/*noStore=*/true)),
          host_(*store_, reporter, PathText(source.Path())), manager_(host_),
          filter_(source.Run().TheModule().NewImportFilter(manager_)),
          path_(WidePath(source.Path())) {}

    bool CanImport() { return filter_->CanImportFile(path_) != 0; }
    zeio::ImportFileInfo FileInfo() { return filter_->GetFileInfo(0, path_); }

private:
    std::unique_ptr<standalone::OptionStore> store_;
    ReportingHost host_;
    zeio::IoManager manager_;
    ImportFilterPtr filter_;
    std::wstring path_;
};

void TakeSlotAnswers(const zeio::ImportFileInfo& info, FileFacts& facts) {
    facts.version = Entry<int>(info, L"HDR_VERSION", 0);
    facts.charset = Entry<std::string>(info, L"HDR_CHARSET", "");
    facts.delimiter = Entry<std::string>(info, L"HDR_DELIMITER", "");
    facts.isEarth = Entry<bool>(info, L"HDR_HAS_EARTH_COORDS", false);
    const shr::Box2d bounds{
        Entry<double>(info, L"HDR_XMIN", 0.0), Entry<double>(info, L"HDR_YMIN", 0.0),
        Entry<double>(info, L"HDR_XMAX", 0.0), Entry<double>(info, L"HDR_YMAX", 0.0)};
    if (bounds != shr::Box2d{}) {
        facts.bounds = bounds;
        facts.areBoundsOfCoordSys = false;
    }
}

void TakeHeader(const MifHeader& header, FileFacts& facts) {
    facts.version = header.version;
    facts.charset = header.charset;
    facts.delimiter = header.delimiter;
    facts.bounds = header.bounds;
    facts.areBoundsOfCoordSys = header.bounds && !header.ownBounds;
    facts.coordSysText = Utf8FromNarrow(header.coordSys.text);
    facts.coordSysLine = Utf8FromNarrow(header.coordSysText);
}

void TakeFindings(const FindingCounts& findings, FileFacts& facts) {
    facts.cares = CaresOf(findings);
    facts.isCareTaken = std::ranges::any_of(AllFindings(), [&](const FindingInfo& info) {
        return info.readBy == ReadByCommand::Yes &&
               findings[static_cast<std::size_t>(info.code)].found > 0;
    });
}

void CollectAsIs(MifSource& source, bool count, Reporter& reporter, FileFacts& facts) {
    const LayerFacts layer = source.Begin(0, reporter);
    TakeHeader(source.Header(), facts);
    facts.columns = layer.columns;
    facts.coordinateSystem = layer.system;
    TakeSlotAnswers(Slots(source, reporter).FileInfo(), facts);
    FeatureCounter counter;
    // Without `count` the first object shows whether there is one.
    source.Read(reporter, [&](const Feature& feature) {
        counter.Take(feature);
        return count;
    });
    if (count) {
        facts.counts = counter.Counts();
        facts.counts->rows = CountRows(source.Path());
    }
}

void CollectAsMeant(MifSource& source, bool count, Reporter& reporter, FileFacts& facts) {
    PassedHeader passed = PassHeaderOf(source.Path());
    if (!passed.header.hasData) {
        facts.problem = "the header ends without the line Data";
    } else if (count) {
        ObjectCounter counter;
        PassedPair pair = PassPair(source.Path(), counter);
        facts.counts = counter.Counts();
        facts.counts->rows = pair.rows;
        passed = std::move(pair);
    }
    const LayerFacts layer = source.BeginHeader(passed, reporter);
    TakeHeader(passed.header, facts);
    TakeFindings(passed.findings, facts);
    const CoordSysClause& clause = passed.header.coordSys;
    facts.isCareTaken = facts.isCareTaken || clause.lackingParts > clause.emptyLinesBehind;
    facts.columns = layer.columns;
    facts.coordinateSystem = layer.system;
    facts.isEarth = layer.system != nullptr && layer.system->IsOnEarth();
}

}  // namespace

FileFacts CollectFacts(const std::filesystem::path& path, const SourceOptions& options, bool count,
                       Reporter& reporter) {
    MifSource source(path, options);
    FileFacts facts;
    facts.path = source.Path();
    std::error_code error;
    facts.fileSize = std::filesystem::file_size(AsOnDisk(source.Path()), error);
    facts.hasMid = !FindCompanion(source.Path(), ".mid").empty();
    if (options.asIs) {
        CollectAsIs(source, count, reporter, facts);
    } else {
        CollectAsMeant(source, count, reporter, facts);
    }
    facts.canImport = Slots(source, reporter).CanImport();
    facts.codePage = standalone::CodePage0();
    return facts;
}

FileFacts CollectLayerFacts(const SourceWithFormat& input, std::size_t layer,
                            const std::filesystem::path& path, bool count, Reporter& reporter) {
    const LayerFacts begun = input.source->Begin(layer, reporter);
    FileFacts facts;
    facts.path = path;
    facts.format = input.format;
    facts.words = input.words;
    facts.layer = begun.name;
    facts.fileSize = static_cast<std::uintmax_t>(SizeOfFile(path));
    facts.columns = begun.columns;
    facts.coordinateSystem = begun.system;
    facts.isEarth = begun.system != nullptr && begun.system->IsOnEarth();
    facts.bounds = begun.knownExtent;
    if (count) {
        FeatureCounter counter;
        input.source->Read(reporter, [&](const Feature& feature) {
            counter.Take(feature);
            return true;
        });
        facts.counts = counter.Counts();
        facts.counts->rows = facts.counts->Objects();
    }
    return facts;
}

}  // namespace app
