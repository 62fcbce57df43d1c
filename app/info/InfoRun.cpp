#include "app/info/InfoRun.h"

#include "app/base/DisplayWidth.h"
#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/base/Reporter.h"
#include "app/crs/DescribeCoordSys.h"
#include "app/crs/FrequentSystems.h"
#include "app/info/FileFacts.h"
#include "app/info/InfoJson.h"
#include "app/json/ShortestNumber.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace app {
namespace {

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
    return "x " + PlainText(box.minX) + " to " + PlainText(box.maxX) + ", y " +
           PlainText(box.minY) + " to " + PlainText(box.maxY);
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
                write(options.json ? FactsAsJson(facts, options.identify)
                                   : InfoText(facts, options.identify));
                if (!facts.problem.empty()) {
                    reporter.Warning(PathText(facts.path) + ": " + facts.problem);
                }
            });
        } catch (const UsageError&) {
            throw;  // every file would say the same
        } catch (const Failure& failure) {
            if (options.json) {
                write(ErrorAsJson(path, failure.what()));
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
