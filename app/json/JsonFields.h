// The texts and numbers of one JSON object, for lines of our own files. Unlike JsonValues.h this
// needs no header of the JSON library.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace app {

class JsonFields {
public:
    // Returns nothing when the text is not one JSON object.
    static std::optional<JsonFields> Parse(std::string_view text);

    // Whether the object has the member, of whatever kind.
    bool Has(std::string_view key) const;

    // These return nothing when the member is absent or of another kind.
    std::optional<std::string> Text(std::string_view key) const;
    std::optional<std::uint64_t> Whole(std::string_view key) const;  // written in digits alone
    std::optional<double> Number(std::string_view key) const;        // whole or not

private:
    using Value = std::variant<std::monostate, std::string, std::uint64_t, double>;

    const Value* Find(std::string_view key) const;

    std::map<std::string, Value, std::less<>> values_;
};

}  // namespace app
