// A pair read as it was meant: the pass over it, the copy for the module, and the features that
// both make together. What is no MIF file is refused with one of a few reasons; any other gives a
// feature for each object that the pass has found, however damaged it is.
#include "app/base/Errors.h"
#include "app/base/InputFile.h"
#include "app/formats/mif/PairFeatures.h"
#include "app/mif/PairReading.h"
#include "fuzz/FuzzInput.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace {

// Why a file is refused.
constexpr std::array<std::string_view, 3> kReasons = {
    "map.mif: is not a MIF file: ",
    "map.mif: is encoded in UTF-16, ",
    "map.mif: the header ends without the line Data",
};

bool IsReason(std::string_view text) {
    return std::ranges::any_of(kReasons, [&](std::string_view reason) {
        return text.find(reason) != std::string_view::npos;
    });
}

// Requires that cuts come in order, apart from each other.
class CutSink : public app::PassSink {
public:
    void Cut(std::uint64_t begin, std::uint64_t end, std::string_view /*text*/) override {
        fuzz::Require(begin >= end_ && end >= begin, "cuts come in order and do not overlap");
        end_ = end;
    }

private:
    std::uint64_t end_ = 0;
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
        fuzz::Require(IsReason(failure.what()), "a file is refused for a known reason");
        return 0;
    }
    app::PairReading reading(path);
    const std::uint64_t objects = reading.Pair().objects.Objects();
    fuzz::Require(CountFeatures(reading) == objects, "a feature for each object of the file");
    return 0;
}
