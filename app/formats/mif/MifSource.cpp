#include "app/formats/mif/MifSource.h"

#include "app/base/Errors.h"
#include "app/base/InputFile.h"
#include "app/base/Paths.h"
#include "app/base/Utf8.h"
#include "app/crs/HostSystem.h"
#include "app/crs/ReadClause.h"
#include "app/feature/FeatureBuilder.h"
#include "app/formats/mif/PairFeatures.h"
#include "app/mif/Numbers.h"
#include "app/run/CodePage.h"
#include "standalone/Text.h"

#include <algorithm>
#include <utility>

namespace app {
namespace {

// Ends an import once the sink has enough.
struct EnoughRead {};

LayerColumn TypedAs(std::string name, const Column& column) {
    return {std::move(name), column.kind, column.width, column.decimals};
}

// The module's names with the kinds of the header, unless that has another number of columns.
std::vector<LayerColumn> ColumnsOf(const zeio::TrNamedIds& ids, const MifHeader& header) {
    std::vector<LayerColumn> columns;
    const bool isTyped = ids.names.size() == header.columns.size();
    for (std::size_t i = 0; i < ids.names.size(); ++i) {
        std::string name = standalone::Narrow(ids.names[i]);
        columns.push_back(isTyped ? TypedAs(std::move(name), header.columns[i])
                                  : LayerColumn{.name = std::move(name)});
    }
    return columns;
}

// The header's columns; of several with one name the later ones get a number.
std::vector<LayerColumn> ColumnsOf(const MifHeader& header) {
    std::vector<LayerColumn> columns;
    const auto isTaken = [&](const std::string& name) {
        return std::ranges::any_of(columns,
                                   [&](const LayerColumn& column) { return column.name == name; });
    };
    for (const Column& column : header.columns) {
        const std::string wanted = Utf8FromNarrow(column.name);
        std::string name = wanted;
        for (int number = 2; isTaken(name); ++number) {
            name = wanted + "_" + std::to_string(number);
        }
        columns.push_back(TypedAs(std::move(name), column));
    }
    return columns;
}

// The Bounds may be on a line of their own.
std::string ClauseWithBounds(const MifHeader& header) {
    std::string text = header.coordSys.text;
    std::erase(text, '\r');
    if (!text.empty() && header.ownBounds) {
        const shr::Box2d& box = *header.ownBounds;
        text += "\nBounds (" + NumberAsText(box.minX) + ", " + NumberAsText(box.minY) + ") (" +
                NumberAsText(box.maxX) + ", " + NumberAsText(box.maxY) + ")";
    }
    return text;
}

}  // namespace

MifSource::MifSource(const std::filesystem::path& path, SourceOptions options)
    : Source(PathText(MifBeside(path))), path_(MifBeside(path)), options_(std::move(options)) {}

MifSource::~MifSource() = default;

std::vector<std::string> MifSource::LayerNames() const {
    return {PathText(path_.stem())};
}

LayerFacts MifSource::Begin(std::size_t /*layer*/, Reporter& reporter) {
    facts_ = {};
    if (!options_.encoding.empty()) {
        SetEncoding(options_.encoding);
    }
    if (options_.asIs) {
        BeginAsIs(reporter);
    } else {
        BeginReading(reporter);
    }
    return CompletedFacts();
}

LayerFacts MifSource::BeginHeader(const PassedHeader& passed, Reporter& reporter) {
    facts_ = {};
    header_ = passed.header;
    SetCodePageFor(header_, options_.encoding, passed.areLettersUtf8, Name(), reporter);
    MakeRun(path_, reporter);
    FillFacts();
    return CompletedFacts();
}

LayerFacts MifSource::CompletedFacts() {
    facts_.name = LayerNames().front();
    facts_.knownExtent = header_.bounds;
    facts_.pair = PairFacts{.version = header_.version,
                            .charset = header_.charset,
                            .codePage = standalone::CodePage0(),
                            .delimiter = std::string(1, DelimiterOf(header_)),
                            .coordSysText = ClauseWithBounds(header_)};
    if (options_.assumedSystem != nullptr) {
        facts_.system = options_.assumedSystem;
        facts_.pair->coordSysText.clear();
    }
    return facts_;
}

// The settings that reading and --as-is have in common.
void MifSource::MakeRun(const std::filesystem::path& path, Reporter& reporter) {
    ImportSettings settings;
    settings.path = path;
    settings.shownPath = path_;
    settings.noStore = options_.noStore;
    if (!options_.asIs) {
        // What a user has stored is for the module's own runs. The filters also share the option
        // AreasToCurves: areas become curves on the way out, when that is asked for.
        settings.noStore = true;
        settings.optionString = "Defaults=1;ForgetOptions=1";
    }
    settings.codePage = standalone::CodePage0();
    settings.modulePath = options_.modulePath;
    run_.emplace(std::move(settings), reporter);
}

void MifSource::BeginAsIs(Reporter& reporter) {
    header_ = ScanHeader(path_);
    SetCodePageFor(header_, options_.encoding, /*areLettersUtf8=*/false, Name(), reporter);
    MakeRun(path_, reporter);
    if (const std::string problem = UnitProblem(header_); !problem.empty()) {
        reporter.Warning(Name() + ": " + problem);
    }
    run_->ImportHeader(reporter, [this](const zeio::TrBase& object) {
        if (object.GetTypeId() == zeio::TrNamedIds::GetClassTypeId()) {
            facts_.columns = ColumnsOf(static_cast<const zeio::TrNamedIds&>(object), header_);
        } else if (object.GetTypeId() == zeio::TrCRS::GetClassTypeId()) {
            const gcs::CSDef* system = static_cast<const zeio::TrCRS&>(object).GetCS();
            if (system != nullptr) {
                facts_.system = std::make_shared<const CoordinateSystem>(FromHost(system));
            }
        }
    });
}

void MifSource::BeginReading(Reporter& reporter) {
    if (reading_ == nullptr) {
        reading_ = std::make_unique<PairReading>(path_);
        header_ = reading_->Pair().header;
        SetCodePageFor(header_, options_.encoding, reading_->Pair().areLettersUtf8, Name(),
                       reporter);
        MakeRun(reading_->Copy().Path(), reporter);
        codePage_ = standalone::CodePage0();
    }
    UseOwnCodePage();
    FillFacts();
}

// Another source may have set its own since.
void MifSource::UseOwnCodePage() const {
    static_cast<void>(standalone::SetCodePage0(codePage_));
}

void MifSource::FillFacts() {
    facts_.columns = ColumnsOf(header_);
    if (!header_.coordSysText.empty()) {
        facts_.system = std::make_shared<const CoordinateSystem>(ReadClause(header_.coordSysText));
    }
}

void MifSource::Read(Reporter& reporter, const FeatureSink& sink) {
    try {
        if (options_.asIs) {
            ReadAsIs(reporter, sink);
        } else {
            ReadJoined(reporter, sink);
        }
    } catch (const EnoughRead&) {
        reporter.EndProgress();
    }
}

void MifSource::ReadJoined(Reporter& reporter, const FeatureSink& sink) {
    UseOwnCodePage();
    const bool hasRows =
        !options_.withoutValues && !reading_->Pair().mid.empty() && !header_.columns.empty();
    const InputFile mid = hasRows ? OpenInput(reading_->Pair().mid) : nullptr;
    if (hasRows && mid == nullptr) {
        throw Failure(PathText(reading_->Pair().mid) + ": can't be opened");
    }
    StreamSource input(mid.get());
    std::optional<LineReader> lines;
    std::optional<RowReader> rows;
    if (hasRows) {
        lines.emplace(input);
        rows.emplace(*lines, DelimiterOf(header_), header_.columns.size());
    }
    PairFeatures features(*reading_, facts_.columns, rows ? &*rows : nullptr, sink);
    const auto say = [&](bool isWhole) {
        SayCares(features, rows ? rows->Cares() : RowCares(), isWhole && rows && rows->Skip(),
                 reporter);
    };
    try {
        if (!features.Begin()) {
            throw EnoughRead();
        }
        run_->Import(reporter, [&](zeio::TrBase& object) {
            if (!features.Take(object)) {
                throw EnoughRead();
            }
        });
    } catch (const EnoughRead&) {
        say(/*isWhole=*/false);
        throw;
    }
    features.Finish();
    if (reading_->Pair().objects.Objects() == 0) {
        reporter.Warning(Name() + ": holds no objects");
    }
    say(/*isWhole=*/true);
}

void MifSource::SayCares(const PairFeatures& features, const RowCares& rowCares, bool hasMoreRows,
                         Reporter& reporter) {
    if (std::exchange(hasSaidCares_, true)) {
        return;
    }
    std::vector<Care> cares = CaresOf(reading_->Pair().findings);
    for (Care& care : CaresOf(rowCares)) {
        cares.push_back(std::move(care));
    }
    if (features.WithoutRow() > 0) {
        cares.push_back({true, features.WithoutRow(),
                         CountedFrom(features.WithoutRow(), "object has no row in the .mid file",
                                     "objects have no row in the .mid file", 0)});
    }
    if (hasMoreRows) {
        cares.push_back({true, 1, "the .mid file has more rows than there are objects"});
    }
    SayAll(cares, reporter);
}

// Each loss, and in one line what was read without one.
void MifSource::SayAll(const std::vector<Care>& cares, Reporter& reporter) const {
    const std::string prefix = Name() + ": ";
    std::vector<std::string> harmless;
    for (const Care& care : cares) {
        if (care.isLoss) {
            reporter.Warning(prefix + care.text);
        } else {
            harmless.push_back(care.text);
        }
    }
    if (harmless.size() == 1) {
        reporter.Note(prefix + harmless.front());
        return;
    }
    for (const std::string& text : harmless) {
        reporter.Detail(prefix + text);
    }
    if (!harmless.empty()) {
        reporter.Note(prefix + std::to_string(harmless.size()) +
                      " kinds of faults were read as they were meant; -v lists them");
    }
}

void MifSource::ReadAsIs(Reporter& reporter, const FeatureSink& sink) {
    FeatureBuilder builder(facts_.columns, header_.ownBounds);
    Feature feature;
    ReadObjects(reporter, [&](zeio::TrBase& object) {
        if (builder.Take(object, feature) && !sink(feature)) {
            throw EnoughRead();
        }
    });
}

void MifSource::ReadObjects(Reporter& reporter, const ObjectSink& sink) {
    if (run_->Import(reporter, sink) == 0) {
        reporter.Warning(Name() + ": holds no objects");
    }
}

}  // namespace app
