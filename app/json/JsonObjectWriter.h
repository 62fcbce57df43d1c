// Writes one JSON object, member by member.
#pragma once

#include "host/shr/Geometry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace app {

// Appends to a text as it goes, with the commas between the members; the caller closes the object.
class JsonObjectWriter {
public:
    // Opens the object at the end of `out`, which must outlive the writer.
    explicit JsonObjectWriter(std::string& out) : out_(out) { out_ += '{'; }

    // Begins a member and returns the text, to which the caller appends the member's value.
    std::string& Member(std::string_view key);

    void Text(std::string_view key, std::string_view utf8);
    void Text(std::string_view key, std::wstring_view text);
    void Number(std::string_view key, double value);
    void Integer(std::string_view key, std::int64_t value);
    void Boolean(std::string_view key, bool value);

    // Smallest x and y, then largest x and y; null without a box.
    void Box(std::string_view key, const std::optional<shr::Box2d>& box);

    void Null(std::string_view key) { Member(key) += "null"; }

    void Close() { out_ += '}'; }

private:
    std::string& out_;
    bool isFirst_ = true;
};

}  // namespace app
