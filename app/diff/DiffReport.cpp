#include "app/diff/DiffReport.h"

#include "app/base/Reporter.h"
#include "app/feature/ValueText.h"
#include "app/json/JsonObjectWriter.h"
#include "app/json/JsonText.h"

#include <cstddef>
#include <utility>

namespace app {
namespace {

std::string ValueInWords(const Value& value) {
    if (std::holds_alternative<std::monostate>(value)) {
        return "null";
    }
    const bool isText = std::holds_alternative<std::string>(value);
    return isText ? "\"" + TextOf(value) + "\"" : TextOf(value);
}

void AppendTexts(std::string& out, const std::vector<std::string>& texts) {
    out += '[';
    for (std::size_t i = 0; i < texts.size(); ++i) {
        out += i == 0 ? "" : ",";
        AppendJsonString(out, texts[i]);
    }
    out += ']';
}

std::string Listed(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) {
        list.append(list.empty() ? "" : ", ").append(name);
    }
    return list;
}

// Long lines are cut: nobody reads a text of a thousand letters in a list.
std::string Cut(std::string text) {
    constexpr std::size_t kMostBytes = 200;
    if (text.size() <= kMostBytes) {
        return text;
    }
    std::size_t end = kMostBytes;
    while ((static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end;
    }
    return text.substr(0, end) + "...";
}

}  // namespace

DiffReport::DiffReport(OutputFile& output, ReportSettings settings, std::string left,
                       std::string right)
    : output_(output), settings_(settings), left_(std::move(left)), right_(std::move(right)) {
    if (settings_.json) {
        std::string text;
        JsonObjectWriter object(text);
        object.Text("a", left_);
        object.Text("b", right_);
        output_.Write(text);
    }
}

void DiffReport::OnlyLayers(const std::vector<std::string>& inLeft,
                            const std::vector<std::string>& inRight) {
    isAnyDifferent_ = isAnyDifferent_ || !inLeft.empty() || !inRight.empty();
    if (settings_.json) {
        std::string text = ",\"layersOnlyInA\":";
        AppendTexts(text, inLeft);
        text += ",\"layersOnlyInB\":";
        AppendTexts(text, inRight);
        output_.Write(text + ",\"layers\":[");
        return;
    }
    if (!inLeft.empty()) {
        Line("layers only in " + left_ + ": " + Listed(inLeft));
    }
    if (!inRight.empty()) {
        Line("layers only in " + right_ + ": " + Listed(inRight));
    }
}

void DiffReport::BeginLayer(const std::string& left, const std::string& right,
                            const SharedColumns& columns) {
    leftLayer_ = left;
    rightLayer_ = right;
    columns_ = &columns;
    totals_ = {};
    shown_ = 0;
    hasHeading_ = false;
    const bool areSame = columns.onlyInLeft.empty() && columns.onlyInRight.empty();
    isAnyDifferent_ = isAnyDifferent_ || !areSame;
    if (settings_.json) {
        std::string text = std::exchange(hasLayer_, true) ? "," : "";
        JsonObjectWriter object(text);
        object.Text("a", left);
        object.Text("b", right);
        AppendTexts(object.Member("columnsOnlyInA"), columns.onlyInLeft);
        AppendTexts(object.Member("columnsOnlyInB"), columns.onlyInRight);
        output_.Write(text + ",\"differences\":[");
        return;
    }
    if (!columns.onlyInLeft.empty()) {
        BeginText();
        Line("columns only in " + left + ": " + Listed(columns.onlyInLeft));
    }
    if (!columns.onlyInRight.empty()) {
        BeginText();
        Line("columns only in " + right + ": " + Listed(columns.onlyInRight));
    }
}

// The names of the layers, once there is something to say of them.
void DiffReport::BeginText() {
    if (!std::exchange(hasHeading_, true)) {
        Line("a: " + leftLayer_);
        Line("b: " + rightLayer_);
    }
}

void DiffReport::Line(const std::string& text) {
    std::string line = text;
    for (char& c : line) {
        c = c == '\n' || c == '\r' ? ' ' : c;
    }
    output_.Write(TerminalText(line) + "\n");
}

bool DiffReport::IsShown() {
    return settings_.most == 0 || ++shown_ <= settings_.most;
}

// "id 7", or the number of the feature.
std::string DiffReport::Name(const Feature& feature) const {
    return columns_->key ? columns_->names[*columns_->key] + " " +
                               ValueInWords(feature.values[*columns_->key])
                         : std::to_string(feature.number);
}

std::string DiffReport::ValuesInWords(const Feature& feature) const {
    std::string words;
    for (std::size_t i = 0; i < columns_->names.size(); ++i) {
        if (i != columns_->key) {
            words += (words.empty() ? "; " : ", ") + columns_->names[i] + " " +
                     ValueInWords(feature.values[i]);
        }
    }
    return words;
}

void DiffReport::OneSided(const char* change, const Feature& feature) {
    if (!IsShown()) {
        return;
    }
    if (!settings_.json) {
        BeginText();
        Line(Cut(std::string(change) + " " + Name(feature) + ": " + GeometryInWords(feature) +
                 ValuesInWords(feature)));
        return;
    }
    std::string text;
    JsonObjectWriter object(text);
    object.Text("change", std::string_view(change));
    object.Integer("number", static_cast<std::int64_t>(feature.number));
    object.Text("geometry", GeometryInWords(feature));
    JsonObjectWriter values(object.Member("values"));
    for (std::size_t i = 0; i < columns_->names.size(); ++i) {
        AppendJsonValue(values.Member(columns_->names[i]), feature.values[i]);
    }
    values.Close();
    object.Close();
    WriteJson(text);
}

void DiffReport::WriteJson(const std::string& object) {
    const bool isFirst = totals_.Different() == 1;
    output_.Write((isFirst ? "" : ",") + object);
}

void DiffReport::Removed(const Feature& left) {
    ++totals_.removed;
    OneSided("removed", left);
}

void DiffReport::Added(const Feature& right) {
    ++totals_.added;
    OneSided("added", right);
}

void DiffReport::Changed(const Feature& left, const Feature& right,
                         const FeatureDifference& difference) {
    ++totals_.changed;
    if (!IsShown()) {
        return;
    }
    if (!settings_.json) {
        BeginText();
        std::string words;
        for (const std::size_t i : difference.values) {
            words += (words.empty() ? "" : "; ") + columns_->names[i] + ": " +
                     ValueInWords(left.values[i]) + " -> " + ValueInWords(right.values[i]);
        }
        words += (words.empty() || difference.geometry.empty() ? "" : "; ") + difference.geometry;
        Line(Cut("changed " + Name(left) + ": " + words));
        return;
    }
    std::string text;
    JsonObjectWriter object(text);
    object.Text("change", std::string_view("changed"));
    object.Integer("numberInA", static_cast<std::int64_t>(left.number));
    object.Integer("numberInB", static_cast<std::int64_t>(right.number));
    if (columns_->key) {
        AppendJsonValue(object.Member("key"), left.values[*columns_->key]);
    }
    if (!difference.geometry.empty()) {
        object.Text("geometry", difference.geometry);
    }
    JsonObjectWriter values(object.Member("values"));
    for (const std::size_t i : difference.values) {
        JsonObjectWriter pair(values.Member(columns_->names[i]));
        AppendJsonValue(pair.Member("a"), left.values[i]);
        AppendJsonValue(pair.Member("b"), right.values[i]);
        pair.Close();
    }
    values.Close();
    object.Close();
    WriteJson(text);
}

DiffTotals DiffReport::EndLayer() {
    isAnyDifferent_ = isAnyDifferent_ || totals_.Different() > 0;
    if (settings_.json) {
        std::string text = "]";
        for (const auto& [key, count] :
             {std::pair{"added", totals_.added}, std::pair{"removed", totals_.removed},
              std::pair{"changed", totals_.changed}, std::pair{"same", totals_.same}}) {
            text += ",\"" + std::string(key) + "\":" + std::to_string(count);
        }
        output_.Write(text + "}");
    } else if (hasHeading_) {
        if (settings_.most > 0 && shown_ > settings_.most) {
            Line("and " + std::to_string(shown_ - settings_.most) + " more; --max 0 prints all");
        }
        Line(std::to_string(totals_.added) + " added, " + std::to_string(totals_.removed) +
             " removed, " + std::to_string(totals_.changed) + " changed, " +
             std::to_string(totals_.same) + " the same");
    }
    return totals_;
}

bool DiffReport::Finish() {
    if (settings_.json) {
        output_.Write(std::string("],\"isSame\":") + (isAnyDifferent_ ? "false" : "true") + "}\n");
    }
    output_.Finish();
    return !isAnyDifferent_;
}

}  // namespace app
