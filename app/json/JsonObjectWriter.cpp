#include "app/json/JsonObjectWriter.h"

#include "app/json/JsonText.h"
#include "standalone/Text.h"

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

void JsonObjectWriter::Boolean(std::string_view key, bool value) {
    Member(key) += value ? "true" : "false";
}

}  // namespace app
