#include "app/run/ImportRun.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/feature/FeatureBuilder.h"
#include "app/mif/CoordSysCodes.h"
#include "standalone/Text.h"

#ifdef QOLF_HAS_CRS
#include "app/mif/Charsets.h"
#endif

#include <utility>

namespace app {
namespace {

// Forwards the objects to a sink, and the module's texts with the user's own path in them.
class SinkHost : public ReportingHost {
public:
    SinkHost(standalone::OptionStore& store, Reporter& reporter, const CareCopy& copy,
             std::string subject, const ObjectSink& sink)
        : ReportingHost(store, reporter, std::move(subject)), copy_(copy), sink_(sink) {}

    int Warning(shr::IError::WarnStyle style, const std::wstring& text) override {
        return ReportingHost::Warning(style, copy_.WithOriginalPath(text));
    }

    void ImportObject(zeio::TrBase& object) override {
        if (IsGraphics(object)) {
            ++objectCount_;
        }
        sink_(object);
    }

    std::uint64_t ObjectCount() const { return objectCount_; }

private:
    const CareCopy& copy_;
    const ObjectSink& sink_;
    std::uint64_t objectCount_ = 0;
};

const std::filesystem::path& ShownPath(const ImportSettings& settings) {
    return settings.shownPath.empty() ? settings.path : settings.shownPath;
}

// What a user can do about an import that the module has stopped.
std::string AdviceFor(const MifHeader& header, const std::string& name) {
    if (header.unknownProjection) {
        const std::int64_t code = *header.unknownProjection;
        return "Projection code " + std::to_string(code) + " is " + ProjectionInWords(code) + ". " +
               AdviceForProjection(code);
    }
    return "'qolf check " + name + "' says more.";
}

[[noreturn]] void Rethrow(const shr::IError& error, const CareCopy& copy,
                          const ImportSettings& settings, const MifHeader& header) {
    std::string text = standalone::Narrow(copy.WithOriginalPath(error.Message()));
    const std::string read = PathText(settings.path);
    const std::string name = PathText(ShownPath(settings));
    if (const std::size_t at = text.find(read); at != std::string::npos) {
        text.replace(at, read.size(), name);
    }
    if (text.find(name) == std::string::npos) {
        text = name + ": " + text;
    }
    throw Failure(text + (text.ends_with('.') ? " " : ". ") + AdviceFor(header, name));
}

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

// Collects what stands before the first graphic object into a layer, then makes features.
class FeatureCollector {
public:
    FeatureCollector(const LayerSink& layerSink, const FeatureSink& featureSink,
                     const MifHeader& header)
        : layerSink_(layerSink), featureSink_(featureSink) {
        layer_.header = header;
    }

    void Take(zeio::TrBase& object) {
        if (object.GetTypeId() == zeio::TrNamedIds::GetClassTypeId()) {
            layer_.columns = ColumnsOf(static_cast<zeio::TrNamedIds&>(object), layer_.header);
        } else if (object.GetTypeId() == zeio::TrCRS::GetClassTypeId()) {
            const gcs::CSDef* system = static_cast<zeio::TrCRS&>(object).GetCS();
            layer_.coordinateSystem = system != nullptr ? system->Clone() : nullptr;
        } else if (object.GetTypeId() != zeio::TrInitGraphicsImp::GetClassTypeId()) {
            Begin();
            if (builder_->Take(object, feature_)) {
                featureSink_(feature_);
            }
        }
    }

    // Tells the sink about the layer when that has not happened yet.
    void Begin() {
        if (!builder_) {
            std::optional<shr::Box2d> bounds;
            if (layer_.header.ownBounds) {
                const MifHeader::Bounds& own = *layer_.header.ownBounds;
                bounds = {own.minX, own.minY, own.maxX, own.maxY};
            }
            builder_.emplace(layer_.columns, bounds);
            layerSink_(layer_);
        }
    }

private:
    const LayerSink& layerSink_;
    const FeatureSink& featureSink_;
    Layer layer_;
    std::optional<FeatureBuilder> builder_;  // absent until the layer is complete
    Feature feature_;
};

}  // namespace

bool IsGraphics(const zeio::TrBase& object) {
    const shr::CTypeInfo* type = object.GetTypeId();
    return type == zeio::TrPolyline::GetClassTypeId() ||
           type == zeio::TrPolygon::GetClassTypeId() ||
           type == zeio::TrMarkerSet::GetClassTypeId() ||
           type == zeio::TrRectangle::GetClassTypeId() ||
           type == zeio::TrEllipse::GetClassTypeId() || type == zeio::TrText::GetClassTypeId();
}

std::unique_ptr<standalone::OptionStore> OpenOptionStore(bool noStore) {
    const std::filesystem::path file = standalone::OptionStore::UserFile();
    return noStore || file.empty() ? std::make_unique<standalone::OptionStore>()
                                   : std::make_unique<standalone::OptionStore>(file);
}

void ChooseCodePage(const MifHeader& header, const std::string& name, const std::string& encoding,
                    Reporter& reporter) {
    if (!encoding.empty()) {
        if (!standalone::SetCodePage0(encoding)) {
            throw UsageError("--encoding " + encoding + ": the system knows no such encoding");
        }
        return;
    }
#ifdef QOLF_HAS_CRS
    const CodePageChoice choice = CodePageOf(header);
    if (!choice.warning.empty()) {
        reporter.Warning(name + ": " + choice.warning);
    }
    if (!standalone::SetCodePage0(choice.codePage)) {
        reporter.Warning(name + ": the system can't read " + choice.codePage +
                         "; taken as Windows-1252");
        static_cast<void>(standalone::SetCodePage0("CP1252"));  // the host's own, always there
    }
#else
    static_cast<void>(header);
    static_cast<void>(name);
    static_cast<void>(reporter);
#endif
}

ReportingHost::ReportingHost(standalone::OptionStore& store, Reporter& reporter,
                             std::string subject)
    : IoHost(store), reporter_(reporter), subject_(std::move(subject)) {}

int ReportingHost::Warning(shr::IError::WarnStyle, const std::wstring& text) {
    ++warningCount_;
    std::string message = standalone::Narrow(text);
    // The module's header warnings begin with a line of their own that says so again.
    if (message.starts_with("WARNING:\n")) {
        message.erase(0, std::string("WARNING:\n").size());
    }
    reporter_.Warning(subject_ + ": " + message);
    return 0;
}

void ReportingHost::ProgressStart(const std::wstring&, bool, bool) {
    reporter_.StartProgress(subject_, SizeOfFile(PathFromArgument(subject_)));
}

void ReportingHost::ProgressProportion(double fraction) {
    reporter_.Progress(fraction);
}

void ReportingHost::ProgressIndeterminate() {
    reporter_.Progress(-1.0);
}

void ReportingHost::ProgressEnd() {
    reporter_.EndProgress();
}

ImportResult RunImport(const ImportSettings& settings, Reporter& reporter, const ObjectSink& sink) {
    ImportResult result;
    result.header = ScanHeader(settings.path);
    if (const std::string problem = UnitProblem(result.header); !problem.empty()) {
        reporter.Warning(PathText(ShownPath(settings)) + ": " + problem);
    }
    ChooseCodePage(result.header, PathText(settings.path), settings.encoding, reporter);
    MifHeader careHeader = result.header;
    if (settings.asIs) {
        careHeader.careOffsets.clear();
    }
    const CareCopy copy(settings.path, careHeader);
    const Module module(settings.modulePath);
    reporter.Detail("module: " + PathText(module.Path()));
    const auto store = OpenOptionStore(settings.noStore);
    SinkHost host(*store, reporter, copy, PathText(ShownPath(settings)), sink);
    zeio::IoManager manager(host);
    const ImportFilterPtr filter = module.NewImportFilter(manager);
    try {
        if (settings.optionString) {
            filter->SetOptionsFromString(standalone::Widen(*settings.optionString));
        }
        filter->Import(WidePath(copy.Path()));
    } catch (const shr::IError& error) {
        Rethrow(error, copy, settings, result.header);
    }
    result.objectCount = host.ObjectCount();
    result.warningCount = host.WarningCount();
    if (result.objectCount == 0) {
        reporter.Warning(PathText(ShownPath(settings)) + ": holds no objects");
    }
    return result;
}

ImportResult ImportFeatures(const ImportSettings& settings, Reporter& reporter,
                            const LayerSink& layerSink, const FeatureSink& featureSink) {
    FeatureCollector collector(layerSink, featureSink, ScanHeader(settings.path));
    ImportResult result =
        RunImport(settings, reporter, [&](zeio::TrBase& object) { collector.Take(object); });
    collector.Begin();
    return result;
}

}  // namespace app
