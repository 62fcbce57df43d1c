// Reads typed values out of JSON. Every operation throws JsonError, which names the key, when the
// value is of another kind.
#pragma once

#include "app/json/JsonError.h"
#include "host/shr/Color4b.h"
#include "host/shr/Geometry.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

namespace app {

// The members of one JSON object. Each operation changes its target only when the key is there.
class JsonMembers {
public:
    // json must outlive the members and be an object; name is for messages.
    JsonMembers(const nlohmann::json& json, std::string name);

    // Null when the key is absent.
    const nlohmann::json* Find(const char* key) const;

    void Read(const char* key, double& number) const;  // a number, or "nan", "inf", "-inf"
    void Read(const char* key, bool& truth) const;
    void Read(const char* key, std::wstring& text) const;
    void Read(const char* key, shr::Color4b& color) const;
    void Read(const char* key, shr::Vec3d& point) const;
    void Read(const char* key, std::vector<shr::Vec3d>& points) const;
    void Read(const char* key, std::vector<double>& numbers) const;
    void Read(const char* key, std::vector<std::wstring>& texts) const;

    // A whole number from least to most.
    void ReadWhole(const char* key, std::int64_t& number, std::int64_t least,
                   std::int64_t most) const;

    // Exactly count numbers; the result is empty when the key is absent.
    std::vector<double> Numbers(const char* key, std::size_t count) const;

    // A whole number that Target holds.
    template <typename Target> void ReadInteger(const char* key, Target& target) const {
        auto whole = static_cast<std::int64_t>(target);
        ReadWhole(key, whole, std::numeric_limits<Target>::min(),
                  std::numeric_limits<Target>::max());
        target = static_cast<Target>(whole);
    }

    // An enumerator by its number.
    template <typename Enum> void ReadEnum(const char* key, Enum& target) const {
        auto number = static_cast<std::underlying_type_t<Enum>>(target);
        ReadInteger(key, number);
        target = static_cast<Enum>(number);
    }

    [[noreturn]] void WrongKind(const char* key, const char* expected) const;

private:
    const nlohmann::json& json_;
    std::string name_;
};

}  // namespace app
