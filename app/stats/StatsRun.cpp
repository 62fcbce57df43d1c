#include "app/stats/StatsRun.h"

#include "app/base/DisplayWidth.h"
#include "app/base/Errors.h"
#include "app/base/Output.h"
#include "app/base/Paths.h"
#include "app/feature/ValueText.h"
#include "app/formats/Formats.h"
#include "app/json/JsonObjectWriter.h"
#include "app/json/JsonText.h"
#include "app/json/ShortestNumber.h"
#include "app/query/Question.h"
#include "app/stats/LayerStatistics.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace app {
namespace {

// Rows of cells, each column as wide as its widest cell.
class Table {
public:
    using Row = std::vector<std::string>;

    // The first `leftCount` columns are flush left, the others right.
    explicit Table(std::size_t leftCount) : leftCount_(leftCount) {}

    void Add(Row row) { rows_.push_back(std::move(row)); }

    std::string Text() const {
        std::vector<std::size_t> widths;
        for (const Row& row : rows_) {
            widths.resize(std::max(widths.size(), row.size()));
            for (std::size_t i = 0; i < row.size(); ++i) {
                widths[i] = std::max(widths[i], DisplayWidth(row[i]));
            }
        }
        std::string text;
        for (const Row& row : rows_) {
            std::string line = "   ";
            for (std::size_t i = 0; i < row.size(); ++i) {
                const std::string blanks(widths[i] - DisplayWidth(row[i]), ' ');
                line += i < leftCount_ ? " " + row[i] + blanks + " " : " " + blanks + row[i] + " ";
            }
            line.erase(line.find_last_not_of(' ') + 1);
            text += line + "\n";
        }
        return text;
    }

private:
    std::size_t leftCount_;
    std::vector<Row> rows_;
};

std::string BoxInWords(const shr::Box2d& box) {
    return "x " + PlainText(box.minX) + " to " + PlainText(box.maxX) + ", y " +
           PlainText(box.minY) + " to " + PlainText(box.maxY);
}

// A value for a table: long texts are cut.
std::string Shown(const Value& value) {
    constexpr std::size_t kMostBytes = 30;
    std::string text = TextOf(value);
    std::ranges::replace_if(
        text, [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    if (text.size() <= kMostBytes) {
        return text;
    }
    std::size_t end = kMostBytes;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end;
    }
    return text.substr(0, end) + "...";
}

std::string MeanText(double mean) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.6g", mean);
    return text.data();
}

std::string KindsText(const LayerStatistics& layer) {
    Table table(3);
    for (const KindStatistics& kind : layer.Kinds()) {
        if (kind.count > 0) {
            table.Add({kind.name, std::to_string(kind.count),
                       kind.extent ? BoxInWords(*kind.extent) : ""});
        }
    }
    return table.Text();
}

std::string ColumnsText(const LayerStatistics& layer) {
    Table table(2);
    table.Add({"column", "type", "filled", "distinct", "minimum", "maximum", "mean"});
    for (std::size_t i = 0; i < layer.Columns().size(); ++i) {
        const LayerColumn& column = layer.Columns()[i];
        const ColumnStatistics& values = layer.Values()[i];
        const std::optional<std::size_t> distinct = values.Distinct();
        const std::optional<double> mean = values.Mean();
        table.Add({column.name, ColumnKindName(column.kind), std::to_string(values.Filled()),
                   distinct ? std::to_string(*distinct)
                            : ">" + std::to_string(ColumnStatistics::kMostDistinct),
                   Shown(values.Minimum()), Shown(values.Maximum()),
                   mean ? MeanText(*mean) : std::string()});
    }
    return table.Text();
}

std::string LayerText(const std::string& name, const LayerStatistics& layer) {
    return TerminalText("  Layer " + name + ": " + std::to_string(layer.Features()) +
                        (layer.Features() == 1 ? " object\n" : " objects\n") + KindsText(layer) +
                        (layer.Columns().empty() ? "" : ColumnsText(layer)));
}

void AppendColumn(std::string& out, const LayerColumn& column, const ColumnStatistics& values) {
    JsonObjectWriter object(out);
    object.Text("name", column.name);
    object.Text("type", std::string_view(ColumnKindName(column.kind)));
    object.Integer("filled", static_cast<std::int64_t>(values.Filled()));
    if (const std::optional<std::size_t> distinct = values.Distinct()) {
        object.Integer("distinct", static_cast<std::int64_t>(*distinct));
    } else {
        object.Null("distinct");
    }
    AppendJsonValue(object.Member("minimum"), values.Minimum());
    AppendJsonValue(object.Member("maximum"), values.Maximum());
    if (const std::optional<double> mean = values.Mean()) {
        AppendPlainJsonNumber(object.Member("mean"), *mean);
    } else {
        object.Null("mean");
    }
    object.Close();
}

std::string LayerJson(const std::string& name, const LayerStatistics& layer) {
    std::string out;
    JsonObjectWriter object(out);
    object.Text("layer", name);
    object.Integer("features", static_cast<std::int64_t>(layer.Features()));
    object.Box("extent", layer.Extent());
    std::string& kinds = object.Member("objects");
    kinds += '[';
    for (const KindStatistics& kind : layer.Kinds()) {
        if (kind.count > 0) {
            kinds += kinds.back() == '[' ? "" : ",";
            JsonObjectWriter member(kinds);
            member.Text("kind", std::string_view(kind.name));
            member.Integer("count", static_cast<std::int64_t>(kind.count));
            member.Box("extent", kind.extent);
            member.Close();
        }
    }
    kinds += ']';
    std::string& columns = object.Member("columns");
    columns += '[';
    for (std::size_t i = 0; i < layer.Columns().size(); ++i) {
        columns += i == 0 ? "" : ",";
        AppendColumn(columns, layer.Columns()[i], layer.Values()[i]);
    }
    columns += ']';
    object.Close();
    return out;
}

LayerStatistics StatisticsOf(Source& source, std::size_t number, const StatsOptions& options,
                             std::string& name, Reporter& reporter) {
    const LayerFacts facts = source.Begin(number, reporter);
    name = facts.name;
    std::optional<Question> question;
    if (!options.where.empty()) {
        question.emplace(options.where, facts.columns, source.Name());
    }
    LayerStatistics layer(facts.columns);
    source.Read(reporter, [&](const Feature& feature) {
        if (!question || question->Holds(feature)) {
            layer.Take(feature);
        }
        return true;
    });
    return layer;
}

// The layers of a file: their texts one below the other, or their objects with commas.
std::string LayersOf(const std::string& file, const StatsOptions& options, Reporter& reporter) {
    const std::unique_ptr<Source> source = FormatOfPath(file).openSource(file, options.source);
    std::string text;
    for (std::size_t i = 0; i < source->LayerNames().size(); ++i) {
        std::string name;
        const LayerStatistics layer = StatisticsOf(*source, i, options, name, reporter);
        text +=
            options.json ? (i == 0 ? "" : ",") + LayerJson(name, layer) : LayerText(name, layer);
    }
    return text;
}

}  // namespace

int RunStats(const StatsOptions& options, Reporter& reporter) {
    for (const std::string& file : options.files) {
        static_cast<void>(FormatOfPath(file));  // throws for one of no format
    }
    OutputFile output("-", IfExists::Overwrite);
    bool anyFailed = false;
    output.Write(options.json ? "{\"files\":[" : "");
    for (std::size_t i = 0; i < options.files.size(); ++i) {
        const std::string& file = options.files[i];
        std::string layers;
        std::string error;
        try {
            layers = LayersOf(file, options, reporter);
        } catch (const UsageError&) {
            throw;  // every file would say the same
        } catch (const Failure& failure) {
            error = failure.what();
            reporter.Error(error);
            anyFailed = true;
        }
        const std::string name = PathText(PathFromArgument(file));
        if (options.json) {
            std::string text = i == 0 ? "" : ",";
            JsonObjectWriter object(text);
            object.Text("file", name);
            object.Member("layers") += "[" + layers + "]";
            if (!error.empty()) {
                object.Text("error", error);
            }
            object.Close();
            output.Write(text);
        } else if (error.empty()) {
            output.Write((i == 0 ? "" : "\n") + TerminalText(name) + "\n" + layers);
        }
    }
    output.Write(options.json ? "]}\n" : "");
    output.Finish();
    return anyFailed ? 1 : 0;
}

}  // namespace app
