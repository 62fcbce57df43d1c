#include "app/json/JsonFields.h"

#include "app/json/JsonValues.h"

#include <utility>

namespace app {

std::optional<JsonFields> JsonFields::Parse(std::string_view text) {
    const nlohmann::json object = ParseJson(text);
    if (!object.is_object()) {
        return std::nullopt;
    }
    JsonFields fields;
    for (const auto& [key, value] : object.items()) {
        Value& field = fields.values_[key];
        if (value.is_string()) {
            field = value.get<std::string>();
        } else if (value.is_number_unsigned()) {
            field = value.get<std::uint64_t>();
        } else if (value.is_number()) {
            field = value.get<double>();
        }
    }
    return fields;
}

const JsonFields::Value* JsonFields::Find(std::string_view key) const {
    const auto at = values_.find(key);
    return at != values_.end() ? &at->second : nullptr;
}

bool JsonFields::Has(std::string_view key) const {
    return Find(key) != nullptr;
}

std::optional<std::string> JsonFields::Text(std::string_view key) const {
    const auto* text = std::get_if<std::string>(Find(key));
    return text != nullptr ? std::optional(*text) : std::nullopt;
}

std::optional<std::uint64_t> JsonFields::Whole(std::string_view key) const {
    const auto* whole = std::get_if<std::uint64_t>(Find(key));
    return whole != nullptr ? std::optional(*whole) : std::nullopt;
}

std::optional<double> JsonFields::Number(std::string_view key) const {
    if (const auto whole = Whole(key)) {
        return static_cast<double>(*whole);
    }
    const auto* number = std::get_if<double>(Find(key));
    return number != nullptr ? std::optional(*number) : std::nullopt;
}

}  // namespace app
