// Reads typed values out of JSON. Every operation throws JsonError, which names the key, when the
// value is of another kind. Needs the large header of the JSON library.
#pragma once

#include "app/json/JsonError.h"
#include "host/shr/Color4b.h"
#include "host/shr/Geometry.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace app {

// Parses one JSON text. Returns a discarded value when it is not valid. The parser takes long to
// compile, so nobody else calls the library's own.
nlohmann::json ParseJson(std::string_view text);

// The members of one JSON object. An operation leaves its target alone when the key is absent.
class JsonMembers {
public:
    // `json` must outlive the members. `name` says in messages what the object is ("a datum").
    // Throws JsonError when `json` is not an object.
    JsonMembers(const nlohmann::json& json, std::string name);

    // Returns the value of a key; null when the key is absent.
    const nlohmann::json* Find(const char* key) const;

    void Read(const char* key, double& number) const;  // a number, or "nan", "inf", "-inf"
    void Read(const char* key, bool& truth) const;
    void Read(const char* key, std::wstring& text) const;
    void Read(const char* key, shr::Color4b& color) const;
    void Read(const char* key, shr::Vec3d& point) const;
    void Read(const char* key, std::vector<shr::Vec3d>& points) const;
    void Read(const char* key, std::vector<double>& numbers) const;
    void Read(const char* key, std::vector<std::wstring>& texts) const;

    // Reads a whole number from `least` to `most`. 1.0 is as whole as 1.
    void ReadWhole(const char* key, std::int64_t& number, std::int64_t least,
                   std::int64_t most) const;

    // Returns a list of exactly `count` numbers; an empty one when the key is absent.
    std::vector<double> Numbers(const char* key, std::size_t count) const;

    // Reads a whole number that Target can hold.
    template <typename Target> void ReadInteger(const char* key, Target& target) const {
        auto whole = static_cast<std::int64_t>(target);
        ReadWhole(key, whole, std::numeric_limits<Target>::min(),
                  std::numeric_limits<Target>::max());
        target = static_cast<Target>(whole);
    }

    // Reads an enumerator by its number. Numbers without an enumerator are taken, too.
    template <typename Enum> void ReadEnum(const char* key, Enum& target) const {
        auto number = static_cast<std::underlying_type_t<Enum>>(target);
        ReadInteger(key, number);
        target = static_cast<Enum>(number);
    }

    // Throws JsonError: the value of the key must be `expected`.
    [[noreturn]] void WrongKind(const char* key, const char* expected) const;

private:
    const nlohmann::json& json_;
    std::string name_;
};

}  // namespace app
