#include "app/formats/mif/MifSource.h"

#include "app/base/Paths.h"
#include "standalone/Text.h"

#include <utility>

namespace app {
namespace {

// Ends an import once the sink has enough.
struct EnoughRead {};

// With the kinds of the header, unless that has another number of columns than the module.
std::vector<LayerColumn> ColumnsOf(const zeio::TrNamedIds& ids, const MifHeader& header) {
    std::vector<LayerColumn> columns;
    const bool isTyped = ids.names.size() == header.columns.size();
    for (std::size_t i = 0; i < ids.names.size(); ++i) {
        LayerColumn column;
        column.name = standalone::Narrow(ids.names[i]);
        if (isTyped) {
            column.kind = header.columns[i].kind;
            column.width = header.columns[i].width;
            column.decimals = header.columns[i].decimals;
        }
        columns.push_back(std::move(column));
    }
    return columns;
}

}  // namespace

MifSource::MifSource(const std::filesystem::path& path, SourceOptions options)
    : Source(PathText(path)), path_(path), options_(std::move(options)) {}

std::vector<std::string> MifSource::LayerNames() const {
    return {PathText(path_.stem())};
}

void MifSource::PrepareCopies(Reporter& reporter) {
    readPath_ = path_;
    if (options_.repair) {
        repaired_.emplace();
        readPath_ = repaired_->File(path_.filename());
        std::filesystem::path rows = path_.filename();
        static_cast<void>(repaired_->File(rows.replace_extension(".mid")));
        options_.repair(path_, readPath_, reporter);
    }
    if (options_.assumedSystem != nullptr) {
        withoutSystem_.emplace(readPath_);
        readPath_ = withoutSystem_->Path();
    }
}

LayerFacts MifSource::Begin(std::size_t /*layer*/, Reporter& reporter) {
    PrepareCopies(reporter);
    ImportSettings settings;
    settings.path = readPath_;
    settings.shownPath = path_;
    settings.asIs = options_.asIs;
    settings.noStore = options_.noStore;
    // The filters share the option AreasToCurves. Areas become curves on the way out, when that is
    // asked for, and never on the way in.
    settings.optionString = "Defaults=1;ForgetOptions=1";
    settings.encoding = options_.encoding;
    settings.modulePath = options_.modulePath;
    run_.emplace(std::move(settings), reporter);

    facts_ = {};
    facts_.name = LayerNames().front();
    const MifHeader& header = run_->Header();
    facts_.knownExtent = header.bounds;
    facts_.pair = PairFacts{.version = header.version,
                            .charset = header.charset,
                            .codePage = run_->CodePage(),
                            .delimiter = header.delimiter};
    run_->ImportHeader(reporter, [this, &header](const zeio::TrBase& object) {
        if (object.GetTypeId() == zeio::TrNamedIds::GetClassTypeId()) {
            facts_.columns = ColumnsOf(static_cast<const zeio::TrNamedIds&>(object), header);
        } else if (object.GetTypeId() == zeio::TrCRS::GetClassTypeId()) {
            const gcs::CSDef* system = static_cast<const zeio::TrCRS&>(object).GetCS();
            facts_.system = system != nullptr ? system->Clone() : nullptr;
        }
    });
    if (options_.assumedSystem != nullptr) {
        facts_.system = options_.assumedSystem;
    }
    return facts_;
}

void MifSource::Read(Reporter& reporter, const FeatureSink& sink) {
    FeatureBuilder builder(facts_.columns, run_->Header().ownBounds);
    Feature feature;
    try {
        ReadObjects(reporter, [&](zeio::TrBase& object) {
            if (builder.Take(object, feature) && !sink(feature)) {
                throw EnoughRead();
            }
        });
    } catch (const EnoughRead&) {
        reporter.EndProgress();
    }
}

void MifSource::ReadObjects(Reporter& reporter, const ObjectSink& sink) {
    run_->Import(reporter, sink);
}

}  // namespace app
