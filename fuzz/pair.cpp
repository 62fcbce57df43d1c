// A pair read as it was meant: the pass over it, the copy for the module, and the features that
// both make together.
#include "app/base/Errors.h"
#include "app/base/InputFile.h"
#include "app/formats/mif/PairFeatures.h"
#include "app/mif/PairReading.h"
#include "fuzz/FuzzInput.h"
#include "host/zeio/Errors.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace {

// Requires that cuts come in order, apart from each other, and counts them.
class CutSink : public app::PassSink {
public:
    void Cut(std::uint64_t begin, std::uint64_t end, std::string_view /*text*/) override {
        fuzz::Require(begin >= end_ && end >= begin, "cuts come in order and do not overlap");
        end_ = end;
        ++count_;
    }

    std::uint64_t count() const { return count_; }

private:
    std::uint64_t end_ = 0;
    std::uint64_t count_ = 0;
};

// Hands the module's objects to the features.
class JoiningHost : private fuzz::StoreOwner, public zeio::IoHost {
public:
    explicit JoiningHost(app::PairFeatures& features) : IoHost(store), features_(features) {}

    void ImportObject(zeio::TrBase& object) override {
        fuzz::Require(features_.Take(object), "the sink wants everything");
    }
    int Warning(shr::IError::WarnStyle /*style*/, const std::wstring& /*text*/) override {
        return 0;
    }

private:
    app::PairFeatures& features_;
};

std::uint64_t CountFeatures(app::PairReading& reading) {
    const app::PassedPair& pair = reading.Pair();
    const app::InputFile mid = pair.mid.empty() ? nullptr : app::OpenInput(pair.mid);
    app::StreamSource input(mid.get());
    std::optional<app::LineReader> lines;
    std::optional<app::RowReader> rows;
    if (mid != nullptr) {
        lines.emplace(input);
        rows.emplace(*lines, app::DelimiterOf(pair.header), pair.header.columns.size());
    }
    std::vector<app::LayerColumn> columns;
    for (const app::Column& column : pair.header.columns) {
        columns.push_back({column.name, column.kind, column.width, column.decimals});
    }
    std::uint64_t count = 0;
    const app::FeatureSink sink = [&](app::Feature& feature) {
        fuzz::Require(feature.number == ++count, "features are numbered");
        fuzz::Require(feature.values.size() == columns.size(), "a value for each column");
        return true;
    };
    app::PairFeatures features(reading, columns, rows ? &*rows : nullptr, sink);
    fuzz::Require(features.Begin(), "the sink wants everything");
    JoiningHost host(features);
    zeio::IoManager manager(host);
    mif::MifImportFilter filter(manager);
    filter.Import(reading.Copy().Path().wstring());
    features.Finish();
    return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::WritePair(fuzz::TextOf(data, size));
    const std::filesystem::path path = fuzz::PathOf("map.mif");
    CutSink cuts;
    try {
        static_cast<void>(app::PassPair(path, cuts));
    } catch (const app::Failure& failure) {
        fuzz::Require(*failure.what() != '\0', "a failure says what it is");
        return 0;
    }
    app::PairReading reading(path);
    const std::uint64_t objects = reading.Pair().objects.Objects();
    std::uint64_t features = 0;
    try {
        features = CountFeatures(reading);
    } catch (const app::Failure& failure) {
        // Damage inside a clause can lead the module to other objects than the pass has found, or
        // past the end of the header. The file is then refused with a reason.
        fuzz::Require(*failure.what() != '\0', "a failure says what it is");
        return 0;
    } catch (const zeio::ErrorMsg& error) {
        fuzz::Require(*error.what() != '\0', "the module says why it refuses a file");
        return 0;
    }
    fuzz::Require(features == objects, "a feature for each object of the file");
    return 0;
}
