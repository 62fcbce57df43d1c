#include "app/feature/ValueText.h"

#include "app/json/JsonText.h"
#include "app/json/ShortestNumber.h"

#include <cstdint>

namespace app {

std::string TextOf(const Value& value) {
    struct Writer {
        std::string operator()(std::monostate) const { return ""; }
        std::string operator()(const std::string& text) const { return text; }
        std::string operator()(std::int64_t number) const { return std::to_string(number); }
        std::string operator()(bool isTrue) const { return isTrue ? "true" : "false"; }
        std::string operator()(double number) const { return PlainText(number); }
    };
    return std::visit(Writer(), value);
}

void AppendJsonValue(std::string& out, const Value& value) {
    struct Writer {
        std::string& out;
        void operator()(std::monostate) const { out += "null"; }
        void operator()(const std::string& text) const { AppendJsonString(out, text); }
        void operator()(std::int64_t number) const { AppendJsonNumber(out, number); }
        void operator()(bool isTrue) const { out += isTrue ? "true" : "false"; }
        void operator()(double number) const { AppendPlainJsonNumber(out, number); }
    };
    std::visit(Writer{out}, value);
}

}  // namespace app
