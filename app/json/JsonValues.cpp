#include "app/json/JsonValues.h"

#include "standalone/Text.h"

#include <cmath>
#include <limits>
#include <optional>

namespace app {

using Json = nlohmann::json;

namespace {

std::optional<double> NumberOf(const Json& json) {
    if (json.is_number()) {
        return json.get<double>();
    }
    if (json == "nan") {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (json == "inf") {
        return std::numeric_limits<double>::infinity();
    }
    if (json == "-inf") {
        return -std::numeric_limits<double>::infinity();
    }
    return std::nullopt;
}

std::optional<std::int64_t> WholeOf(const Json& json) {
    if (json.is_number_unsigned() &&
        json.get<std::uint64_t>() >
            static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
        return std::nullopt;
    }
    if (json.is_number_integer()) {
        return json.get<std::int64_t>();
    }
    // 1.0 is as whole as 1.
    constexpr double kExact = 9007199254740992.0;
    if (json.is_number_float() && std::abs(json.get<double>()) <= kExact &&
        std::trunc(json.get<double>()) == json.get<double>()) {
        return static_cast<std::int64_t>(json.get<double>());
    }
    return std::nullopt;
}

std::optional<shr::Vec3d> PointOf(const Json& json) {
    if (!json.is_array() || json.size() < 2 || json.size() > 3) {
        return std::nullopt;
    }
    double numbers[3] = {};
    for (std::size_t i = 0; i < json.size(); ++i) {
        const std::optional<double> number = NumberOf(json[i]);
        if (!number) {
            return std::nullopt;
        }
        numbers[i] = *number;
    }
    return shr::Vec3d{numbers[0], numbers[1], numbers[2]};
}

}  // namespace

Json ParseJson(std::string_view text) {
    return Json::parse(text.data(), text.data() + text.size(), nullptr, /*allow_exceptions=*/false);
}

JsonMembers::JsonMembers(const Json& json, std::string name) : json_(json), name_(std::move(name)) {
    if (!json_.is_object()) {
        throw JsonError(name_ + " is not a JSON object");
    }
}

void JsonMembers::WrongKind(const char* key, const char* expected) const {
    throw JsonError("\"" + std::string(key) + "\" of " + name_ + " must be " + expected);
}

const Json* JsonMembers::Find(const char* key) const {
    const auto found = json_.find(key);
    return found == json_.end() ? nullptr : &*found;
}

void JsonMembers::Read(const char* key, double& number) const {
    if (const Json* json = Find(key)) {
        const std::optional<double> value = NumberOf(*json);
        if (!value) {
            WrongKind(key, "a number");
        }
        number = *value;
    }
}

void JsonMembers::Read(const char* key, bool& truth) const {
    if (const Json* json = Find(key)) {
        if (!json->is_boolean()) {
            WrongKind(key, "true or false");
        }
        truth = json->get<bool>();
    }
}

void JsonMembers::Read(const char* key, std::wstring& text) const {
    if (const Json* json = Find(key)) {
        if (!json->is_string()) {
            WrongKind(key, "a text");
        }
        text = standalone::Widen(json->get_ref<const std::string&>());
    }
}

void JsonMembers::ReadWhole(const char* key, std::int64_t& number, std::int64_t least,
                            std::int64_t most) const {
    if (const Json* json = Find(key)) {
        const std::optional<std::int64_t> value = WholeOf(*json);
        if (!value || *value < least || *value > most) {
            const std::string range =
                "a whole number from " + std::to_string(least) + " to " + std::to_string(most);
            WrongKind(key, range.c_str());
        }
        number = *value;
    }
}

void JsonMembers::Read(const char* key, shr::Color4b& color) const {
    const Json* json = Find(key);
    if (json == nullptr) {
        return;
    }
    constexpr const char* kExpected = "a colour: four whole numbers from 0 to 255";
    if (!json->is_array() || json->size() != 4) {
        WrongKind(key, kExpected);
    }
    std::uint8_t bytes[4] = {};
    for (std::size_t i = 0; i < 4; ++i) {
        const std::optional<std::int64_t> value = WholeOf((*json)[i]);
        if (!value || *value < 0 || *value > 255) {
            WrongKind(key, kExpected);
        }
        bytes[i] = static_cast<std::uint8_t>(*value);
    }
    color = shr::Color4b(bytes[0], bytes[1], bytes[2], bytes[3]);
}

void JsonMembers::Read(const char* key, shr::Vec3d& point) const {
    if (const Json* json = Find(key)) {
        const std::optional<shr::Vec3d> value = PointOf(*json);
        if (!value) {
            WrongKind(key, "a point: [x,y,z]");
        }
        point = *value;
    }
}

void JsonMembers::Read(const char* key, std::vector<shr::Vec3d>& points) const {
    const Json* json = Find(key);
    if (json == nullptr) {
        return;
    }
    constexpr const char* kExpected = "a list of points: [[x,y,z],...]";
    if (!json->is_array()) {
        WrongKind(key, kExpected);
    }
    points.clear();
    points.reserve(json->size());
    for (const Json& entry : *json) {
        const std::optional<shr::Vec3d> point = PointOf(entry);
        if (!point) {
            WrongKind(key, kExpected);
        }
        points.push_back(*point);
    }
}

void JsonMembers::Read(const char* key, std::vector<double>& numbers) const {
    const Json* json = Find(key);
    if (json == nullptr) {
        return;
    }
    if (!json->is_array()) {
        WrongKind(key, "a list of numbers");
    }
    numbers.clear();
    for (const Json& entry : *json) {
        const std::optional<double> number = NumberOf(entry);
        if (!number) {
            WrongKind(key, "a list of numbers");
        }
        numbers.push_back(*number);
    }
}

void JsonMembers::Read(const char* key, std::vector<std::wstring>& texts) const {
    const Json* json = Find(key);
    if (json == nullptr) {
        return;
    }
    if (!json->is_array()) {
        WrongKind(key, "a list of texts");
    }
    texts.clear();
    for (const Json& entry : *json) {
        if (!entry.is_string()) {
            WrongKind(key, "a list of texts");
        }
        texts.push_back(standalone::Widen(entry.get_ref<const std::string&>()));
    }
}

std::vector<double> JsonMembers::Numbers(const char* key, std::size_t count) const {
    std::vector<double> numbers;
    Read(key, numbers);
    if (Find(key) != nullptr && numbers.size() != count) {
        const std::string expected = "a list of " + std::to_string(count) + " numbers";
        WrongKind(key, expected.c_str());
    }
    return numbers;
}

}  // namespace app
