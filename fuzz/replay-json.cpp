// Objects from JSON, as the command replay reads them: what is written for an object reads as the
// same object.
#include "app/json/JsonError.h"
#include "app/trace/ObjectReader.h"
#include "app/trace/TraceJson.h"
#include "fuzz/FuzzInput.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>

namespace {

std::string Written(const zeio::TrBase& object) {
    std::string text;
    app::AppendObjectJson(text, object);
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const nlohmann::json json =
        nlohmann::json::parse(data, data + size, nullptr, /*allow_exceptions=*/false);
    if (!json.is_object()) {
        return 0;
    }
    std::string first;
    try {
        first = Written(*app::ObjectFromJson(json));
    } catch (const app::JsonError&) {
        return 0;
    }
    const nlohmann::json read = nlohmann::json::parse(first, nullptr, /*allow_exceptions=*/false);
    fuzz::Require(read.is_object(), "what is written is JSON");
    fuzz::Require(Written(*app::ObjectFromJson(read)) == first, "an object reads as it was");
    return 0;
}
