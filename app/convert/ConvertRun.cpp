#include "app/convert/ConvertRun.h"

#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "app/batch/BatchRun.h"
#include "app/convert/BatchConvert.h"
#include "app/convert/FeatureFilter.h"
#include "app/convert/SystemPlan.h"
#include "app/formats/geojson/GeoJsonReader.h"
#include "app/formats/geojson/GeoJsonWriter.h"
#include "app/formats/gpkg/GeoPackageReader.h"
#include "app/formats/gpkg/PackageTarget.h"
#include "app/formats/mif/MifInput.h"
#include "app/formats/mif/MifTarget.h"
#include "app/run/ExportRun.h"
#include "app/run/ImportRun.h"

#include <functional>
#include <memory>
#include <span>
#include <utility>

namespace app {

namespace {

// Ends a reading early when the limit is reached.
struct EnoughFeatures {};

IfExists IfExistsOf(const ConvertOptions& options) {
    return options.overwrite ? IfExists::Overwrite : IfExists::Refuse;
}

ImportSettings ImportSettingsOf(const ConvertOptions& options, const std::string& input,
                                const PreparedMif& prepared) {
    ImportSettings settings;
    settings.path = prepared.Path();
    settings.shownPath = PathFromArgument(input);
    settings.asIs = options.asIs;
    settings.noStore = options.noStore;
    // The filters share the option AreasToCurves; the areas of a conversion become curves on the
    // way out, when that is asked for, and never on the way in.
    settings.optionString = "Defaults=1;ForgetOptions=1";
    settings.encoding = options.encoding;
    settings.modulePath = options.modulePath;
    return settings;
}

ExportSettings ExportSettingsOf(const ConvertOptions& options, const std::string& output) {
    ExportSettings settings;
    settings.path = PathFromArgument(output);
    settings.ifExists = IfExistsOf(options);
    settings.noStore = options.noStore;
    settings.optionString = ExportOptionString(options);
    settings.modulePath = options.modulePath;
    return settings;
}

FilterSettings FilterSettingsOf(const ConvertOptions& options) {
    FilterSettings settings;
    settings.columns = options.select;
    if (!options.box.empty()) {
        settings.box = shr::Box2d{options.box[0], options.box[1], options.box[2], options.box[3]};
    }
    settings.limit = options.limit;
    return settings;
}

// A layer's way from its input's features to the target.
class LayerConversion {
public:
    LayerConversion(const ConvertOptions& options, Format format, FeatureTarget& target,
                    Reporter& reporter)
        : options_(options), format_(format), target_(target), reporter_(reporter),
          filter_(FilterSettingsOf(options)) {}

    // facts.system is the input's. subject names the input.
    void Begin(LayerFacts facts, const std::string& subject) {
        subject_ = subject;
        plan_ = PlanSystems(facts.system, format_, options_.crs, subject, reporter_);
        if (plan_.output != nullptr && format_ == Format::Mif) {
            plan_.output = ForExport(*plan_.output);
        }
        if (plan_.reprojection) {
            facts.knownExtent.reset();  // a box does not stay one
        }
        facts.system = plan_.output.get();
        facts.columns = filter_.SelectColumns(facts.columns, subject);
        target_.BeginLayer(facts);
        if (filter_.IsEmpty()) {
            throw EnoughFeatures();
        }
    }

    void Take(Feature& feature) {
        if (plan_.reprojection || !target_.TakesCurves()) {
            FlattenCurves(feature, options_.segments);
        }
        if (plan_.reprojection) {
            plan_.reprojection->Apply(feature);
        }
        if (!filter_.Wants(feature)) {
            ++outsideCount_;
            return;
        }
        filter_.SelectValues(feature);
        target_.Write(feature);
        isAnyWritten_ = true;
        if (filter_.CountIsLast()) {
            throw EnoughFeatures();
        }
    }

    // Says when the box has kept everything out, and what happened to points that have no place in
    // the output's system.
    void End() {
        if (outsideCount_ > 0 && !isAnyWritten_) {
            reporter_.Warning(subject_ +
                              ": no object meets --bbox, whose numbers are coordinates "
                              "of the output; " +
                              (format_ == Format::Mif ? "nothing" : "an empty layer") +
                              " is written");
        }
        if (plan_.reprojection && plan_.reprojection->FailedPoints() > 0) {
            reporter_.Warning(subject_ + ": " + std::to_string(plan_.reprojection->FailedPoints()) +
                              " points have no place in the output's coordinate system");
        }
    }

private:
    const ConvertOptions& options_;
    Format format_;
    FeatureTarget& target_;
    Reporter& reporter_;
    FeatureFilter filter_;
    SystemPlan plan_;
    std::string subject_;
    std::uint64_t outsideCount_ = 0;  // features that --bbox has kept out
    bool isAnyWritten_ = false;
};

std::string LayerName(const ConvertOptions& options, const std::string& input) {
    if (!options.layer.empty()) {
        return options.layer;
    }
    return input == "-" ? "layer" : PathText(PathFromArgument(input).stem());
}

void ReadMif(const ConvertOptions& options, const std::string& input, LayerConversion& conversion,
             Reporter& reporter) {
    const PreparedMif prepared(options, input, reporter);
    const auto begin = [&](const Layer& layer) {
        LayerFacts facts;
        facts.name = LayerName(options, input);
        facts.columns = layer.columns;
        facts.system = prepared.AssumedSystem() != nullptr ? prepared.AssumedSystem()
                                                           : layer.coordinateSystem.get();
        if (layer.header.bounds) {
            const MifHeader::Bounds& bounds = *layer.header.bounds;
            facts.knownExtent = {bounds.minX, bounds.minY, bounds.maxX, bounds.maxY};
        }
        conversion.Begin(std::move(facts), input);
    };
    static_cast<void>(ImportFeatures(ImportSettingsOf(options, input, prepared), reporter, begin,
                                     [&](Feature& feature) { conversion.Take(feature); }));
}

void ReadGeoJson(const ConvertOptions& options, const std::string& input,
                 LayerConversion& conversion, Reporter& reporter) {
    GeoJsonReader reader(PathFromArgument(input));
    const GeoJsonFacts found = reader.Survey(reporter);
    const std::string subject = input == "-" ? "standard input" : input;
    if (found.withoutGeometry > 0) {
        reporter.Warning(subject + ": " + std::to_string(found.withoutGeometry) +
                         (found.withoutGeometry == 1 ? " feature has" : " features have") +
                         " no geometry and was left out");
    }
    if (found.featureCount == 0) {
        reporter.Warning(subject + ": holds no features");
    }
    const gcs::GCSDef system = Wgs84System();
    LayerFacts facts;
    facts.name = LayerName(options, input);
    facts.columns = found.columns;
    facts.system = &system;
    facts.knownExtent = found.extent;
    conversion.Begin(std::move(facts), subject);
    reporter.StartProgress(subject, SizeOfFile(PathFromArgument(input)));
    reader.Read(found, reporter, [&](Feature& feature) { conversion.Take(feature); });
    reporter.EndProgress();
}

void ReadPackage(const ConvertOptions& options, const std::string& input,
                 LayerConversion& conversion, Reporter& reporter) {
    GeoPackageReader reader(PathFromArgument(input));
    const PackageLayer& layer = reader.LayerNamed(options.layer);
    std::string problem;
    const std::unique_ptr<gcs::CSDef> system = SystemOf(layer.reference, problem);
    if (!problem.empty()) {
        reporter.Warning(input + ": " + problem + "; the coordinates stay as they are");
    }
    LayerFacts facts;
    facts.name = layer.name;
    facts.columns = layer.columns;
    facts.system = system.get();
    conversion.Begin(std::move(facts), input);
    const PackageReadResult result =
        reader.Read(layer, [&](Feature& feature) { conversion.Take(feature); });
    if (result.withoutGeometry > 0) {
        reporter.Warning(input + ": " + std::to_string(result.withoutGeometry) +
                         " rows have no geometry and were left out");
    }
}

std::unique_ptr<FeatureTarget> OpenTarget(const ConvertOptions& options, Format format,
                                          const std::string& output, Reporter& reporter) {
    const std::filesystem::path path = PathFromArgument(output);
    switch (format) {
    case Format::Mif:
        return std::make_unique<MifTarget>(ExportSettingsOf(options, output), reporter);
    case Format::GeoPackage:
        return std::make_unique<PackageTarget>(path, IfExistsOf(options), reporter);
    case Format::GeoJsonLines:
        return std::make_unique<GeoJsonWriter>(path, IfExistsOf(options), GeoJsonForm::Lines,
                                               options.withStyles);
    case Format::GeoJsonSequence:
        return std::make_unique<GeoJsonWriter>(path, IfExistsOf(options), GeoJsonForm::Sequence,
                                               options.withStyles);
    case Format::GeoJson:
        break;
    }
    return std::make_unique<GeoJsonWriter>(path, IfExistsOf(options), GeoJsonForm::Collection,
                                           options.withStyles);
}

void ConvertInput(const ConvertOptions& options, const std::string& input, Format format,
                  FeatureTarget& target, Reporter& reporter) {
    LayerConversion conversion(options, format, target, reporter);
    try {
        switch (FormatOfPath(input)) {
        case Format::Mif:
            ReadMif(options, input, conversion, reporter);
            break;
        case Format::GeoPackage:
            ReadPackage(options, input, conversion, reporter);
            break;
        default:
            ReadGeoJson(options, input, conversion, reporter);
        }
    } catch (const EnoughFeatures&) {
        reporter.EndProgress();
    }
    conversion.End();
}

// What the host of an export asks and sends in place of an import's objects.
class ObjectForwarder {
public:
    // assumed takes the place of the input's system unless it is null.
    ObjectForwarder(ExportRun& run, const MifHeader& header, const gcs::CSDef* assumed)
        : run_(run), header_(header), assumed_(assumed) {}

    void Send(zeio::TrBase& object) {
        const shr::CTypeInfo* type = object.GetTypeId();
        if (type == zeio::TrInitGraphicsImp::GetClassTypeId()) {
            SendQuestions();
        } else if (type == zeio::TrCRS::GetClassTypeId()) {
            SendSystem(static_cast<zeio::TrCRS&>(object));
        } else if (!(type == zeio::TrText::GetClassTypeId() && !RendersText(capabilities_)) &&
                   !(type == zeio::TrMarkerSet::GetClassTypeId() &&
                     !RendersMarkers(capabilities_))) {
            run_.Send(object);
        }
    }

private:
    void SendQuestions() {
        zeio::TrInitGraphicsExp questions;
        questions.extent = {0.0, 0.0, 0.0, -1.0, -1.0, -1.0};  // not known
        if (header_.bounds) {
            questions.extent = {header_.bounds->minX, header_.bounds->minY, 0.0,
                                header_.bounds->maxX, header_.bounds->maxY, 0.0};
        }
        run_.Send(questions);
        capabilities_ = questions.capabilities;
        if (assumed_ != nullptr) {
            zeio::TrCRS system;
            system.SetCS(assumed_);
            SendSystem(system);
        }
    }

    void SendSystem(zeio::TrCRS& system) {
        if (system.GetCS() != nullptr) {
            const std::unique_ptr<gcs::CSDef> definition = ForExport(*system.GetCS());
            system.SetCS(definition.get());
        }
        run_.Send(system);
    }

    ExportRun& run_;
    const MifHeader& header_;
    const gcs::CSDef* assumed_;
    std::uint32_t capabilities_ = 0;
};

// From pair to pair, object by object, so that nothing is lost that both filters know.
int ConvertPair(const ConvertOptions& options, const std::string& input, const std::string& output,
                Reporter& reporter) {
    CheckOutput(PathFromArgument(output), IfExistsOf(options));
    const PreparedMif prepared(options, input, reporter);
    const ImportSettings settings = ImportSettingsOf(options, input, prepared);
    const MifHeader header = ScanHeader(settings.path);
    ExportRun run(ExportSettingsOf(options, output), reporter);
    ObjectForwarder forwarder(run, header, prepared.AssumedSystem());
    static_cast<void>(
        RunImport(settings, reporter, [&](zeio::TrBase& object) { forwarder.Send(object); }));
    if (!run.Finish()) {
        reporter.Warning(input + ": holds no objects that are drawn; nothing was written");
    }
    return 0;
}

bool IsPairToPair(const ConvertOptions& options, const std::string& input, Format format) {
    return format == Format::Mif && FormatOfPath(input) == Format::Mif && options.select.empty() &&
           options.box.empty() && !options.limit && (options.crs.empty() || options.crs == "keep");
}

// Refuses what no input and output can be, before anything is written.
void CheckPaths(std::span<const std::string> inputs, const std::string& output, Format format) {
    for (const std::string& input : inputs) {
        const std::filesystem::path path = PathFromArgument(input);
        std::error_code error;
        if (std::filesystem::is_directory(path, error)) {
            throw UsageError(input + ": is a folder; --output-dir FOLDER and --to FORMAT convert "
                                     "the files in it");
        }
        static_cast<void>(FormatOfPath(input));  // throws for others
        if (input != "-" && output != "-") {
            CheckNotInput(path, PathFromArgument(output));
        }
    }
    if (format == Format::Mif) {
        CheckMifOutput(output);
    } else if (format == Format::GeoPackage && output == "-") {
        throw UsageError("a GeoPackage is a database and can't go to standard output; name a .gpkg "
                         "file");
    }
}

int ConvertToOne(const ConvertOptions& options, Reporter& reporter) {
    if (options.paths.size() < 2) {
        throw UsageError("convert needs an input and an output, or --output-dir");
    }
    const std::string& output = options.paths.back();
    const Format format =
        options.format.empty() ? FormatOfPath(output) : FormatOfName(options.format);
    const std::size_t inputCount = options.paths.size() - 1;
    CheckPaths(std::span(options.paths).first(inputCount), output, format);
    if (output == "-" && IsTerminal(stdout)) {
        reporter.SetProgress(false);  // the features stand there
    }
    if (inputCount > 1 && format != Format::GeoPackage) {
        throw UsageError("several inputs become one output only as a GeoPackage; use --output-dir "
                         "for a file each");
    }
    if (IsPairToPair(options, options.paths.front(), format)) {
        return ConvertPair(options, options.paths.front(), output, reporter);
    }
    if (output != "-") {
        CheckOutput(PathFromArgument(output), IfExistsOf(options));
    }
    const std::unique_ptr<FeatureTarget> target = OpenTarget(options, format, output, reporter);
    for (std::size_t i = 0; i < inputCount; ++i) {
        ConvertInput(options, options.paths[i], format, *target, reporter);
    }
    if (!target->Finish()) {
        reporter.Warning(options.paths.front() +
                         ": holds no objects that are drawn; nothing was written");
    }
    return 0;
}

}  // namespace

int RunConvert(const ConvertOptions& options, Reporter& reporter) {
    return options.outputFolder.empty() ? ConvertToOne(options, reporter)
                                        : ConvertMany(options, reporter);
}

}  // namespace app
