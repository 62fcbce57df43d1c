#include "app/check/GatheredFindings.h"

#include "app/base/Counted.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace app {
namespace {

// Fewer objects than that are named one by one.
constexpr std::uint64_t kLeast = 3;

struct KindWords {
    ObjectKind kind;
    const char* one;
    const char* many;
};
constexpr std::array kKindWords = {
    KindWords{ObjectKind::None, "object without a place", "objects without a place"},
    KindWords{ObjectKind::Point, "point", "points"},
    KindWords{ObjectKind::Line, "line", "lines"},
    KindWords{ObjectKind::Pline, "polyline", "polylines"},
    KindWords{ObjectKind::Region, "region", "regions"},
    KindWords{ObjectKind::Arc, "arc", "arcs"},
    KindWords{ObjectKind::Text, "text", "texts"},
    KindWords{ObjectKind::Rect, "rectangle", "rectangles"},
    KindWords{ObjectKind::RoundRect, "round rectangle", "round rectangles"},
    KindWords{ObjectKind::Ellipse, "ellipse", "ellipses"},
    KindWords{ObjectKind::Multipoint, "multipoint", "multipoints"},
};

// "11001 regions", "5 points and 3 texts": the objects that were hit, when these are all of their
// kinds; else "".
std::string AllObjects(const FindingCount& count, const MifCounts& objects) {
    std::uint64_t all = 0;
    std::string text;
    for (const KindWords& words : kKindWords) {
        const bool isHit = (count.kinds >> static_cast<unsigned>(words.kind) & 1U) != 0;
        if (isHit) {
            all += objects.Of(words.kind);
            text += (text.empty() ? "" : " and ") +
                    Counted(objects.Of(words.kind), words.one, words.many);
        }
    }
    // Members of collections are numbered with the other objects, but counted apart.
    return all == count.objects && objects.members == 0 ? text : "";
}

std::string AllThatWereHit(const FindingCount& count, const CheckedPair& pair) {
    if (count.objects < kLeast || count.found != count.objects) {
        return "";
    }
    if (count.first.file == FileOfPair::Mid) {
        return count.objects == pair.rows ? std::to_string(pair.rows) + " rows" : "";
    }
    return AllObjects(count, pair.objects);
}

}  // namespace

void GatheredFindings::PassOn(FindingSink& sink, CheckedPair& pair) const {
    std::array<bool, std::tuple_size_v<FindingCounts>> isSaid{};
    for (const Finding& finding : findings_) {
        const auto code = static_cast<std::size_t>(finding.code->code);
        FindingCount& count = pair.findings[code];
        const std::string all = AllThatWereHit(count, pair);
        if (all.empty()) {
            sink.Add(finding);
            continue;
        }
        if (!isSaid[code]) {
            Finding one = finding;
            one.message = "all " + all + ", here the first one: " + finding.message;
            one.object = 0;
            one.count = count.found;
            sink.Add(one);
        }
        isSaid[code] = true;
        count.reported = count.found;
    }
}

}  // namespace app
