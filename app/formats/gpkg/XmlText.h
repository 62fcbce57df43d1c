// XML, element by element.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace app {

// Writes what XML can hold: control characters and noncharacters are left out.
class XmlText {
public:
    struct Attribute {
        std::string_view name;
        std::string value;  // UTF-8
    };

    // Starts an element; End ends the one that was started last. Names are written as they are.
    void Begin(std::string_view element, const std::vector<Attribute>& attributes = {});
    void End();

    // An element without content.
    void Empty(std::string_view element, const std::vector<Attribute>& attributes);

    // An element with nothing but text.
    void Text(std::string_view element, std::string_view utf8,
              const std::vector<Attribute>& attributes = {});

    const std::string& Whole() const { return text_; }

private:
    void Start(std::string_view element, const std::vector<Attribute>& attributes);

    std::string text_;
    std::vector<std::string> open_;
};

}  // namespace app
