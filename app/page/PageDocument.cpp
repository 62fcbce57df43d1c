#include "app/page/PageDocument.h"

#include "app/base/Paths.h"
#include "app/json/JsonObjectWriter.h"
#include "app/page/PageFiles.h"
#include "app/page/PageText.h"

#include <array>

namespace app {

namespace {

constexpr int kViewDecimals = 9;

std::string TitleOf(const PageOptions& options, const PageLayers& layers) {
    if (!options.title.empty()) {
        return options.title;
    }
    std::string title;
    for (const std::string& name : layers.Names()) {
        title += (title.empty() ? "" : ", ") + name;
    }
    return title;
}

std::string PolicyOf(const BaseMap& baseMap) {
    std::string policy = "default-src 'none'; script-src '";
    policy += EmbeddedScriptHash();
    policy += "'; style-src '";
    policy += EmbeddedStylesHash();
    policy += "'; img-src data:" + (baseMap.url.empty() ? "" : ' ' + baseMap.origin);
    return policy + "; base-uri 'none'; form-action 'none'";
}

// Absent: the unit of a plane that nothing is known of.
std::optional<double> MetresPerUnit(const SystemPtr& system) {
    if (system == nullptr || system->kind != SystemKind::Plane || !(system->metresPerUnit > 0.0)) {
        return std::nullopt;
    }
    return system->metresPerUnit;
}

void AppendSettings(std::string& out, const PageOptions& options, const PageLayers& layers,
                    PagePlane plane) {
    JsonObjectWriter settings(out);
    AppendPageString(settings.Member("title"), options.title);
    settings.Boolean("isPlane", plane == PagePlane::Units);
    if (const auto metres = MetresPerUnit(layers.FirstSystem());
        metres && plane == PagePlane::Units) {
        settings.Number("metresPerUnit", *metres);
    }
    if (const auto seam = layers.Seam()) {
        settings.Number("seam", *seam);
    }
    if (options.bbox) {
        std::string& view = settings.Member("view");
        char before = '[';
        for (const double number :
             {options.bbox->minX, options.bbox->minY, options.bbox->maxX, options.bbox->maxY}) {
            view += before;
            AppendRounded(view, number, kViewDecimals);
            before = ',';
        }
        view += ']';
    }
    AppendColor(settings.Member("background"), options.background);
    settings.Boolean("legend", options.showsLegend);
    if (!options.baseMap.url.empty() && plane == PagePlane::Degrees) {
        AppendPageString(settings.Member("tiles"), options.baseMap.url);
        AppendPageString(settings.Member("attribution"), options.baseMap.attribution);
    }
    settings.Member("styles") += layers.Styles().Json();
    settings.Close();
}

}  // namespace

std::string DocumentHead(const PageOptions& options, const PageLayers& layers, PagePlane plane) {
    const std::string title = HtmlText(TitleOf(options, layers));
    std::string text = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta http-equiv=\"Content-Security-Policy\" content=\"";
    text += PolicyOf(plane == PagePlane::Degrees ? options.baseMap : BaseMap());
    text += "\">\n<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            "<meta name=\"generator\" content=\"qolf " QOLF_VERSION "\">\n<title>";
    text += title;
    text += "</title>\n<link rel=\"icon\" href=\"data:,\">\n<!--\n";
    text += EmbeddedNotice();
    text += "-->\n<style>";
    text += EmbeddedStyles();
    text += "</style>\n</head>\n<body>\n<noscript>This map needs a browser that runs scripts."
            "</noscript>\n<div id=\"map\" aria-label=\"";
    text += title;
    text += "\"></div>\n<script type=\"application/json\" id=\"settings\">";
    AppendSettings(text, options, layers, plane);
    text += "</script>\n";
    return text;
}

std::string DocumentEnd() {
    std::string text = "<script>";
    text += EmbeddedScript();
    text += "</script>\n</body>\n</html>\n";
    return text;
}

}  // namespace app
