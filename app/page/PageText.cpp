#include "app/page/PageText.h"

#include "app/feature/LabelText.h"

namespace app {

std::string HtmlText(std::string_view utf8) {
    std::string text;
    for (const char c : CleanName(utf8)) {
        switch (c) {
        case '&':
            text += "&amp;";
            break;
        case '<':
            text += "&lt;";
            break;
        case '>':
            text += "&gt;";
            break;
        case '"':
            text += "&quot;";
            break;
        case '\'':
            text += "&#39;";
            break;
        default:
            text += c;
        }
    }
    return text;
}

// In JSON the three stand in strings alone, where the escape is the same character.
std::string JsonForScript(std::string_view json) {
    std::string text;
    text.reserve(json.size());
    for (const char c : json) {
        switch (c) {
        case '<':
            text += "\\u003c";
            break;
        case '>':
            text += "\\u003e";
            break;
        case '&':
            text += "\\u0026";
            break;
        default:
            text += c;
        }
    }
    return text;
}

}  // namespace app
