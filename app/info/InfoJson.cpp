#include "app/info/InfoJson.h"

#include "app/base/Paths.h"
#include "app/json/JsonObjectWriter.h"
#include "app/json/JsonText.h"

#include <utility>

namespace app {
namespace {

void AddCount(JsonObjectWriter& object, const char* key, std::uint64_t count) {
    object.Integer(key, static_cast<std::int64_t>(count));
}

void AddCares(JsonObjectWriter& object, const std::vector<Care>& cares) {
    std::string& out = object.Member("cares");
    char separator = '[';
    for (const Care& care : cares) {
        out += std::exchange(separator, ',');
        AppendJsonString(out, care.text);
    }
    out += cares.empty() ? "[]" : "]";
}

void AddColumns(JsonObjectWriter& object, const std::vector<LayerColumn>& columns) {
    std::string& out = object.Member("columns");
    char separator = '[';
    for (const LayerColumn& column : columns) {
        out += std::exchange(separator, ',');
        JsonObjectWriter member(out);
        member.Text("name", column.name);
        member.Text("type", ColumnKindName(column.kind));
        member.Integer("width", column.width);
        member.Integer("decimals", column.decimals);
        member.Close();
    }
    out += columns.empty() ? "[]" : "]";
}

void AddCounts(JsonObjectWriter& object, const ObjectCounts& counts) {
    JsonObjectWriter objects(object.Member("objects"));
    AddCount(objects, "total", counts.Objects());
    AddCount(objects, "points", counts.points);
    AddCount(objects, "lines", counts.lines);
    AddCount(objects, "regions", counts.regions);
    AddCount(objects, "rectangles", counts.rectangles);
    AddCount(objects, "ellipses", counts.ellipses);
    AddCount(objects, "arcs", counts.arcs);
    AddCount(objects, "texts", counts.texts);
    AddCount(objects, "collections", counts.collections);
    AddCount(objects, "withoutPlace", counts.withoutPlace);
    objects.Close();
    AddCount(object, "vertices", counts.vertices);
    object.Box("extent", counts.extent);
    if (counts.rows) {
        AddCount(object, "rows", *counts.rows);
    } else {
        object.Null("rows");
    }
}

void AddCoordSys(JsonObjectWriter& object, const FileFacts& facts, const CrsIdentifier& identify) {
    if (facts.format.empty()) {
        object.Text("coordSys", facts.coordSysText);
    }
    const CoordSysDescription description =
        DescribeCoordSys(facts.coordinateSystem.get(), identify);
    object.Text("crsName", description.name);
    object.Text("unit", description.unit);
    object.Text("proj", description.proj);
    object.Text("wkt2", description.wkt2);
    if (description.epsgCode != 0) {
        object.Integer("epsg", description.epsgCode);
    } else {
        object.Null("epsg");
    }
}

}  // namespace

std::string FactsAsJson(const FileFacts& facts, const CrsIdentifier& identify) {
    const bool isPair = facts.format.empty();
    std::string out;
    JsonObjectWriter object(out);
    object.Text("file", PathText(facts.path));
    AddCount(object, "fileSize", facts.fileSize);
    if (isPair) {
        object.Boolean("canImport", facts.canImport);
        object.Integer("version", facts.version);
        object.Text("charset", facts.charset);
        object.Text("codePage", facts.codePage);
        object.Text("delimiter", facts.delimiter);
    } else {
        object.Text("format", facts.format);
        object.Text("layer", facts.layer);
    }
    object.Boolean("earth", facts.isEarth);
    AddCoordSys(object, facts, identify);
    object.Box("bounds", facts.bounds);
    if (isPair) {
        object.Boolean("mid", facts.hasMid);
        object.Boolean("careTaken", facts.isCareTaken);
        AddCares(object, facts.cares);
    }
    AddColumns(object, facts.columns);
    if (facts.counts) {
        AddCounts(object, *facts.counts);
    }
    if (!facts.problem.empty()) {
        object.Text("error", facts.problem);
    }
    object.Close();
    return out;
}

std::string ErrorAsJson(const std::filesystem::path& path, const std::string& error) {
    std::string out;
    JsonObjectWriter object(out);
    object.Text("file", PathText(path));
    object.Text("error", error);
    object.Close();
    return out;
}

}  // namespace app
