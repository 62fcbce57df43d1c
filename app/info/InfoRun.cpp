#include "app/info/InfoRun.h"

#include "app/base/DisplayWidth.h"
#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/base/Reporter.h"
#include "app/crs/DescribeCoordSys.h"
#include "app/crs/FrequentSystems.h"
#include "app/info/FileFacts.h"
#include "app/json/JsonText.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace app {
namespace {

std::string Number(double value) {
    std::string text;
    AppendJsonNumber(text, value);
    return text;
}

// "Tab", "comma", or the characters themselves.
std::string DelimiterInWords(const std::string& delimiter) {
    if (delimiter == "\t") {
        return "tab";
    }
    if (delimiter == ",") {
        return "comma";
    }
    return delimiter.empty() ? "none" : "'" + delimiter + "'";
}

std::string SizeInWords(std::uintmax_t bytes) {
    char text[48];
    if (bytes < 10'000) {
        std::snprintf(text, sizeof text, "%ju bytes", bytes);
    } else if (bytes < 1'000'000) {
        std::snprintf(text, sizeof text, "%.0f kB", static_cast<double>(bytes) / 1e3);
    } else if (bytes < 1'000'000'000) {
        std::snprintf(text, sizeof text, "%.1f MB", static_cast<double>(bytes) / 1e6);
    } else {
        std::snprintf(text, sizeof text, "%.1f GB", static_cast<double>(bytes) / 1e9);
    }
    return text;
}

std::string BoxInWords(const shr::Box2d& box) {
    return "x " + Number(box.minX) + " to " + Number(box.maxX) + ", y " + Number(box.minY) +
           " to " + Number(box.maxY);
}

std::string ColumnType(const LayerColumn& column) {
    std::string text = ColumnKindName(column.kind);
    if (column.kind == ColumnKind::Char && column.width > 0) {
        text += "(" + std::to_string(column.width) + ")";
    } else if (column.kind == ColumnKind::Decimal) {
        text += "(" + std::to_string(column.width) + "," + std::to_string(column.decimals) + ")";
    }
    return text;
}

// Two columns of text, the first as wide as its longest entry.
class Table {
public:
    void Row(const std::string& label, const std::string& text) { rows_.emplace_back(label, text); }

    std::string Text(const std::string& indent) const {
        std::size_t width = 0;
        for (const auto& [label, text] : rows_) {
            width = std::max(width, DisplayWidth(label));
        }
        std::string out;
        for (const auto& [label, text] : rows_) {
            out.append(indent).append(label).append(width - DisplayWidth(label) + 2, ' ');
            out.append(text).append("\n");
        }
        return out;
    }

private:
    std::vector<std::pair<std::string, std::string>> rows_;
};

// "1 point", "2 points"; "" for none.
void AddCount(std::string& text, std::uint64_t count, const char* noun) {
    if (count > 0) {
        text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + noun +
                (count == 1 ? "" : "s");
    }
}

void AddCountRows(Table& table, const ObjectCounts& counts) {
    std::string kinds;
    AddCount(kinds, counts.points, "point");
    AddCount(kinds, counts.lines, "line");
    AddCount(kinds, counts.regions, "region");
    AddCount(kinds, counts.rectangles, "rectangle");
    AddCount(kinds, counts.ellipses, "ellipse");
    AddCount(kinds, counts.arcs, "arc");
    AddCount(kinds, counts.texts, "text");
    AddCount(kinds, counts.collections, "collection");
    if (counts.withoutPlace > 0) {
        kinds +=
            (kinds.empty() ? "" : ", ") + std::to_string(counts.withoutPlace) + " without a place";
    }
    table.Row("Objects",
              std::to_string(counts.Objects()) + (kinds.empty() ? "" : " (" + kinds + ")"));
    table.Row("Vertices", std::to_string(counts.vertices));
    if (counts.extent) {
        table.Row("Extent", BoxInWords(*counts.extent));
    }
    table.Row("Rows", counts.rows ? std::to_string(*counts.rows) : "no .mid file");
}

// Leaves PROJ alone where it can; without WKT, which only PROJ makes.
CrsIdentifier AskedLast(const CrsIdentifier& identify) {
    return [&identify](const CoordinateSystem& system) {
        const std::optional<RegisteredSystem> known =
            system.clause ? FindFrequentSystem(*system.clause) : std::nullopt;
        return known ? CrsIdentity{"", known->epsgCode, known->epsgName} : identify(system);
    };
}

void AddCoordSysRows(Table& table, const FileFacts& facts, const CrsIdentifier& identify) {
    const CoordSysDescription description =
        DescribeCoordSys(facts.coordinateSystem.get(), AskedLast(identify));
    table.Row("System", description.name);
    if (description.epsgCode != 0) {
        table.Row("EPSG", std::to_string(description.epsgCode) + " " + description.epsgName);
    }
    if (!description.proj.empty()) {
        table.Row("PROJ", description.proj);
    }
    if (!description.unit.empty()) {
        table.Row("Unit", description.unit);
    }
    for (const std::string& note : description.notes) {
        table.Row("Note", note);
    }
    if (facts.format.empty()) {
        table.Row("Clause", facts.coordSysLine.empty() ? "none" : facts.coordSysLine);
    }
}

std::string BoundsInWords(const FileFacts& facts) {
    if (!facts.bounds) {
        return "not given";
    }
    return BoxInWords(*facts.bounds) +
           (facts.areBoundsOfCoordSys ? " (of the CoordSys clause)" : "");
}

void AddHeaderRows(Table& table, const FileFacts& facts) {
    table.Row("Size", SizeInWords(facts.fileSize) +
                          (facts.hasMid ? ", with a .mid file" : ", without a .mid file"));
    table.Row("Version", std::to_string(facts.version));
    table.Row("Charset", (facts.charset.empty() ? "not given" : facts.charset) + ", read as " +
                             facts.codePage);
    table.Row("Delimiter", DelimiterInWords(facts.delimiter));
}

std::string InfoText(const FileFacts& facts, const CrsIdentifier& identify) {
    Table table;
    if (facts.format.empty()) {
        AddHeaderRows(table, facts);
    } else {
        table.Row("Size", SizeInWords(facts.fileSize));
        table.Row("Format", facts.words);
        table.Row("Layer", facts.layer);
    }
    AddCoordSysRows(table, facts, identify);
    if (facts.format.empty() || facts.bounds) {
        table.Row("Bounds", BoundsInWords(facts));
    }
    if (facts.counts) {
        AddCountRows(table, *facts.counts);
    }
    for (const Care& care : facts.cares) {
        table.Row("Care", care.text);
    }
    table.Row("Columns", facts.columns.empty() ? "none" : std::to_string(facts.columns.size()));
    Table columns;
    for (const LayerColumn& column : facts.columns) {
        columns.Row(column.name, ColumnType(column));
    }
    return TerminalText(PathText(facts.path) + "\n" + table.Text("  ") + columns.Text("    "));
}

void AddMember(std::string& out, const char* key) {
    out += out.empty() || out.back() == '{' ? "\"" : ",\"";
    out.append(key).append("\":");
}

void AddText(std::string& out, const char* key, const std::string& text) {
    AddMember(out, key);
    AppendJsonString(out, text);
}

void AddInteger(std::string& out, const char* key, std::int64_t value) {
    AddMember(out, key);
    AppendJsonNumber(out, value);
}

void AddBox(std::string& out, const char* key, const shr::Box2d& box) {
    AddMember(out, key);
    out += "[" + Number(box.minX) + "," + Number(box.minY) + "," + Number(box.maxX) + "," +
           Number(box.maxY) + "]";
}

void AddBox(std::string& out, const char* key, const std::optional<shr::Box2d>& box) {
    if (box) {
        AddBox(out, key, *box);
    } else {
        AddMember(out, key);
        out += "null";
    }
}

void AddFlag(std::string& out, const char* key, bool value) {
    AddMember(out, key);
    out += value ? "true" : "false";
}

void AddCares(std::string& out, const std::vector<Care>& cares) {
    AddMember(out, "cares");
    out += '[';
    for (const Care& care : cares) {
        out += out.back() == '[' ? "" : ",";
        AppendJsonString(out, care.text);
    }
    out += ']';
}

void AddColumns(std::string& out, const std::vector<LayerColumn>& columns) {
    AddMember(out, "columns");
    out += '[';
    for (const LayerColumn& column : columns) {
        out += out.back() == '[' ? "{" : ",{";
        AddText(out, "name", column.name);
        AddText(out, "type", ColumnKindName(column.kind));
        AddInteger(out, "width", column.width);
        AddInteger(out, "decimals", column.decimals);
        out += '}';
    }
    out += ']';
}

void AddCounts(std::string& out, const ObjectCounts& counts) {
    AddMember(out, "objects");
    out += '{';
    AddInteger(out, "total", static_cast<std::int64_t>(counts.Objects()));
    AddInteger(out, "points", static_cast<std::int64_t>(counts.points));
    AddInteger(out, "lines", static_cast<std::int64_t>(counts.lines));
    AddInteger(out, "regions", static_cast<std::int64_t>(counts.regions));
    AddInteger(out, "rectangles", static_cast<std::int64_t>(counts.rectangles));
    AddInteger(out, "ellipses", static_cast<std::int64_t>(counts.ellipses));
    AddInteger(out, "arcs", static_cast<std::int64_t>(counts.arcs));
    AddInteger(out, "texts", static_cast<std::int64_t>(counts.texts));
    AddInteger(out, "collections", static_cast<std::int64_t>(counts.collections));
    AddInteger(out, "withoutPlace", static_cast<std::int64_t>(counts.withoutPlace));
    out += '}';
    AddInteger(out, "vertices", static_cast<std::int64_t>(counts.vertices));
    AddBox(out, "extent", counts.extent);
    if (counts.rows) {
        AddInteger(out, "rows", static_cast<std::int64_t>(*counts.rows));
    } else {
        AddMember(out, "rows");
        out += "null";
    }
}

void AddCoordSys(std::string& out, const FileFacts& facts, const CrsIdentifier& identify) {
    if (facts.format.empty()) {
        AddText(out, "coordSys", facts.coordSysText);
    }
    const CoordSysDescription description =
        DescribeCoordSys(facts.coordinateSystem.get(), identify);
    AddText(out, "crsName", description.name);
    AddText(out, "unit", description.unit);
    AddText(out, "proj", description.proj);
    AddText(out, "wkt2", description.wkt2);
    AddMember(out, "epsg");
    out += description.epsgCode != 0 ? std::to_string(description.epsgCode) : "null";
}

std::string InfoJson(const FileFacts& facts, const CrsIdentifier& identify) {
    std::string out = "{";
    AddText(out, "file", PathText(facts.path));
    AddInteger(out, "fileSize", static_cast<std::int64_t>(facts.fileSize));
    if (facts.format.empty()) {
        AddFlag(out, "canImport", facts.canImport);
        AddInteger(out, "version", facts.version);
        AddText(out, "charset", facts.charset);
        AddText(out, "codePage", facts.codePage);
        AddText(out, "delimiter", facts.delimiter);
    } else {
        AddText(out, "format", facts.format);
        AddText(out, "layer", facts.layer);
    }
    AddFlag(out, "earth", facts.isEarth);
    AddCoordSys(out, facts, identify);
    AddBox(out, "bounds", facts.bounds);
    if (facts.format.empty()) {
        AddFlag(out, "mid", facts.hasMid);
        AddFlag(out, "careTaken", facts.isCareTaken);
        AddCares(out, facts.cares);
    }
    AddColumns(out, facts.columns);
    if (facts.counts) {
        AddCounts(out, *facts.counts);
    }
    if (!facts.problem.empty()) {
        AddText(out, "error", facts.problem);
    }
    return out + "}";
}

// In place of a file that has no header.
std::string ErrorJson(const std::filesystem::path& path, const std::string& error) {
    std::string out = "{";
    AddText(out, "file", PathText(path));
    AddText(out, "error", error);
    return out + "}";
}

// What there is to say of one file: of a pair once, of another format for each layer.
template <typename Sink>
void CollectAll(const std::string& file, const InfoOptions& options,
                const SourceOptions& sourceOptions, Reporter& reporter, const Sink& sink) {
    const std::filesystem::path path = PathFromArgument(file);
    const SourceWithFormat other =
        options.openUnlessPair ? options.openUnlessPair(file, sourceOptions) : SourceWithFormat{};
    if (other.source == nullptr) {
        sink(CollectFacts(path, sourceOptions, options.count, reporter));
        return;
    }
    const std::size_t layers = other.source->LayerNames().size();
    if (layers == 0) {
        throw Failure(other.source->Name() + ": holds no layer with features");
    }
    for (std::size_t layer = 0; layer < layers; ++layer) {
        sink(CollectLayerFacts(other, layer, path, options.count, reporter));
    }
}

}  // namespace

int RunInfo(const InfoOptions& options, Reporter& reporter) {
    OutputFile output("-", IfExists::Overwrite);
    bool anyFailed = false;
    bool isFirst = true;
    if (options.json) {
        output.Write("{\"files\":[");
        reporter.SetProgress(false);
    }
    const auto write = [&](const std::string& text) {
        output.Write(std::exchange(isFirst, false) ? "" : options.json ? "," : "\n");
        output.Write(text);
    };
    SourceOptions sourceOptions;
    sourceOptions.asIs = options.asIs;
    sourceOptions.noStore = true;
    sourceOptions.encoding = options.encoding;
    sourceOptions.modulePath = options.modulePath;
    sourceOptions.assumedSystem = options.assumedSystem;
    for (const std::string& file : options.files) {
        const std::filesystem::path path = PathFromArgument(file);
        try {
            CollectAll(file, options, sourceOptions, reporter, [&](const FileFacts& facts) {
                write(options.json ? InfoJson(facts, options.identify)
                                   : InfoText(facts, options.identify));
                if (!facts.problem.empty()) {
                    reporter.Warning(PathText(facts.path) + ": " + facts.problem);
                }
            });
        } catch (const UsageError&) {
            throw;  // every file would say the same
        } catch (const Failure& failure) {
            if (options.json) {
                write(ErrorJson(path, failure.what()));
            }
            reporter.Error(failure.what());
            anyFailed = true;
        }
    }
    output.Write(options.json ? "]}\n" : "");
    output.Finish();
    return anyFailed ? 1 : 0;
}

}  // namespace app
