#include "app/formats/gpkg/XmlText.h"

#include "app/feature/LabelText.h"

namespace app {
namespace {

std::string Escaped(std::string_view utf8) {
    std::string escaped;
    for (const char c : CleanName(utf8)) {
        switch (c) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

}  // namespace

void XmlText::Start(std::string_view element, const std::vector<Attribute>& attributes) {
    text_.append(open_.size(), ' ');
    text_ += '<';
    text_ += element;
    for (const Attribute& attribute : attributes) {
        text_ += ' ';
        text_ += attribute.name;
        text_ += "=\"" + Escaped(attribute.value) + '"';
    }
}

void XmlText::Begin(std::string_view element, const std::vector<Attribute>& attributes) {
    Start(element, attributes);
    text_ += ">\n";
    open_.emplace_back(element);
}

void XmlText::End() {
    const std::string element = open_.back();
    open_.pop_back();
    text_.append(open_.size(), ' ');
    text_ += "</" + element + ">\n";
}

void XmlText::Empty(std::string_view element, const std::vector<Attribute>& attributes) {
    Start(element, attributes);
    text_ += "/>\n";
}

void XmlText::Text(std::string_view element, std::string_view utf8,
                   const std::vector<Attribute>& attributes) {
    Start(element, attributes);
    text_ += '>' + Escaped(utf8) + "</";
    text_ += element;
    text_ += ">\n";
}

}  // namespace app
