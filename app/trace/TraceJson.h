// Translation objects as JSON, one object a text: the output of qolf trace and the input of qolf
// replay (docs/trace-format.md).
#pragma once

#include "host/gcs/CSDef.h"
#include "host/zeio/TrObjects.h"

#include <string>
#include <string_view>

namespace app {

// Appends {"type":"TrPolyline",...}. Keys come in a fixed order; numbers read back to the same
// double; texts are UTF-8. An object of a class that the format does not know gives its class's
// name alone.
void AppendObjectJson(std::string& out, const zeio::TrBase& object);

// Appends the definition of a coordinate system; null for none.
void AppendSystemJson(std::string& out, const gcs::CSDef* system);

// Writes the members of one JSON object, with the commas between them.
class JsonObjectWriter {
public:
    // Opens the object at the end of out, which must outlive the writer.
    explicit JsonObjectWriter(std::string& out) : out_(out) { out_ += '{'; }

    // Begins a member whose value the caller appends.
    std::string& Member(std::string_view key);

    void Text(std::string_view key, std::wstring_view text);
    void Number(std::string_view key, double value);
    void Integer(std::string_view key, std::int64_t value);
    void Boolean(std::string_view key, bool value);
    void Null(std::string_view key) { Member(key) += "null"; }

    void Close() { out_ += '}'; }

private:
    std::string& out_;
    bool isFirst_ = true;
};

// The name of the object's class: "TrPen".
std::string ClassName(const zeio::TrBase& object);

}  // namespace app
