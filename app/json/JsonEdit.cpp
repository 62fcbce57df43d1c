#include "app/json/JsonEdit.h"

#include "app/json/JsonValues.h"

#include <utility>

namespace app {
namespace {

nlohmann::json ObjectOf(std::string_view text) {
    nlohmann::json object = ParseJson(text);
    if (!object.is_object()) {
        throw JsonError("is not a JSON object");
    }
    return object;
}

}  // namespace

std::string WithJsonMember(std::string_view object, const std::string& key,
                           std::string_view value) {
    nlohmann::json changed = ObjectOf(object);
    nlohmann::json member = ParseJson(value);
    if (member.is_discarded()) {
        throw JsonError("the value of \"" + key + "\" is not JSON");
    }
    changed[key] = std::move(member);
    return changed.dump();
}

std::string WithoutJsonMember(std::string_view object, const std::string& key) {
    nlohmann::json changed = ObjectOf(object);
    changed.erase(key);
    return changed.dump();
}

}  // namespace app
