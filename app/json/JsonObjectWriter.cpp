#include "app/json/JsonObjectWriter.h"

#include "app/json/JsonText.h"
#include "standalone/Text.h"

#include <utility>

namespace app {

std::string& JsonObjectWriter::Member(std::string_view key) {
    if (!isFirst_) {
        out_ += ',';
    }
    isFirst_ = false;
    AppendJsonString(out_, key);
    out_ += ':';
    return out_;
}

void JsonObjectWriter::Text(std::string_view key, std::string_view utf8) {
    AppendJsonString(Member(key), utf8);
}

void JsonObjectWriter::Text(std::string_view key, std::wstring_view text) {
    Text(key, standalone::Narrow(text));
}

void JsonObjectWriter::Number(std::string_view key, double value) {
    AppendJsonNumber(Member(key), value);
}

void JsonObjectWriter::Integer(std::string_view key, std::int64_t value) {
    AppendJsonNumber(Member(key), value);
}

void JsonObjectWriter::Box(std::string_view key, const std::optional<shr::Box2d>& box) {
    if (!box) {
        Null(key);
        return;
    }
    std::string& out = Member(key);
    char separator = '[';
    for (const double number : {box->minX, box->minY, box->maxX, box->maxY}) {
        out += std::exchange(separator, ',');
        AppendPlainJsonNumber(out, number);
    }
    out += ']';
}

void JsonObjectWriter::Boolean(std::string_view key, bool value) {
    Member(key) += value ? "true" : "false";
}

}  // namespace app
