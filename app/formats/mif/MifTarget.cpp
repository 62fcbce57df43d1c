#include "app/formats/mif/MifTarget.h"

#include "app/base/Counted.h"
#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/formats/mif/ExportOptions.h"
#include "app/formats/mif/PairClause.h"
#include "app/mif/Charsets.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace app {
namespace {

constexpr std::size_t kMostListed = 10;
constexpr std::size_t kMostColumns = 250;
constexpr std::size_t kMostRowBytes = 4000;

// "a, b and 3 more"
std::string Listed(const std::vector<std::string>& parts) {
    std::string text;
    const std::size_t shown = std::min(parts.size(), kMostListed);
    for (std::size_t i = 0; i < shown; ++i) {
        text += (i > 0 ? ", " : "") + parts[i];
    }
    if (shown < parts.size()) {
        text += " and " + std::to_string(parts.size() - shown) + " more";
    }
    return text;
}

// The values of a kind.
std::string KindInWords(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Logical:
        return "true or false";
    case ColumnKind::Date:
        return "dates";
    case ColumnKind::Time:
        return "times";
    case ColumnKind::DateTime:
        return "dates with times";
    default:
        return "numbers";
    }
}

char DelimiterOf(const LayerFacts& layer) {
    constexpr std::string_view kUsable = ",;\t|:~^#";
    if (layer.pair && layer.pair->delimiter.size() == 1 &&
        kUsable.find(layer.pair->delimiter.front()) != std::string_view::npos) {
        return layer.pair->delimiter.front();
    }
    return ',';
}

}  // namespace

MifTarget::MifTarget(const std::filesystem::path& path, const TargetOptions& options,
                     Reporter& reporter)
    : options_(options), reporter_(reporter), name_(PathText(path)),
      writer_(path, options.ifExists) {
    if (!options_.encoding.empty() && FindCharsetOfEncoding(options_.encoding) == nullptr) {
        throw UsageError("encoding " + options_.encoding +
                         ": MIF files can't be in it; UTF-8 has every character");
    }
}

std::optional<PairCharset> MifTarget::CharsetFor(const LayerFacts& layer) const {
    if (!options_.encoding.empty()) {
        const Charset& charset = *FindCharsetOfEncoding(options_.encoding);
        return PairCharset(std::string(charset.mifName), std::string(charset.iconvName));
    }
    if (!layer.pair) {
        return std::nullopt;
    }
    // The header's own name stays when it names the code page that the texts were read in.
    const PairFacts& pair = *layer.pair;
    if (!pair.charset.empty() && CodePageOfCharset(pair.charset).codePage == pair.codePage) {
        return PairCharset(pair.charset, pair.codePage);
    }
    const Charset* const charset = FindCharsetOfEncoding(pair.codePage);
    if (charset == nullptr) {
        return std::nullopt;
    }
    return PairCharset(std::string(charset->mifName), pair.codePage);
}

void MifTarget::BeginLayer(const LayerFacts& layer) {
    PairClause clause = ClauseFor(layer);
    isFromPair_ = layer.pair.has_value();
    for (const LayerColumn& column : layer.columns) {
        wantedNames_.push_back(column.name);
    }
    writer_.Begin({.columns = layer.columns,
                   .charset = CharsetFor(layer),
                   .rows = {.delimiter = DelimiterOf(layer), .keepsTypes = isFromPair_},
                   .coordSys = std::move(clause.text),
                   .boundsPlace = clause.boundsPlace,
                   .version = clause.version,
                   .objects = ObjectChoicesOf(options_)});
    isBegun_ = true;
}

void MifTarget::Write(Feature& feature) {
    if (!isFromPair_) {
        // Other formats call single parts several for the sake of a column's type.
        feature.geometry.isMulti = false;
    }
    writer_.Write(feature);
}

bool MifTarget::Finish() {
    if (!isBegun_) {
        return false;
    }
    const PairOutcome outcome = writer_.Finish();
    reporter_.Detail(name_ + ": the charset is " + outcome.charset);
    if (wantedNames_.empty()) {
        reporter_.Note(name_ + ": the column ID numbers the objects; the format wants a column");
    } else {
        TellNames(outcome.columns);
    }
    TellValues(outcome.columns);
    TellSizes(outcome.columns);
    if (outcome.lostCharacters > 0) {
        reporter_.Warning(
            name_ + ": " + Counted(outcome.lostCharacters, "character is", "characters are") +
            " not in " + outcome.charset + " and became '?'; --output-encoding UTF-8 keeps all");
    }
    if (outcome.unplacedObjects > 0) {
        reporter_.Warning(name_ + ": " +
                          Counted(outcome.unplacedObjects, "object has", "objects have") +
                          " coordinates that are not finite numbers; written without geometry");
    }
    return true;
}

void MifTarget::TellNames(const std::vector<ColumnOutcome>& columns) {
    std::vector<std::string> renamed;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].column.name != wantedNames_[i]) {
            renamed.push_back(Quoted(wantedNames_[i]) + " to " + columns[i].column.name);
        }
    }
    if (!renamed.empty()) {
        reporter_.Note(name_ + ": " +
                       Counted(renamed.size(), "column was renamed", "columns were renamed") +
                       ": " + Listed(renamed));
    }
}

void MifTarget::TellValues(const std::vector<ColumnOutcome>& columns) {
    std::vector<std::string> cuts;
    std::uint64_t cutCount = 0;
    for (const ColumnOutcome& outcome : columns) {
        if (outcome.cutCount > 0) {
            cutCount += outcome.cutCount;
            cuts.push_back(std::to_string(outcome.cutCount) + " in " + outcome.column.name +
                           " (first in row " + std::to_string(outcome.firstCut) + ")");
        }
        if (outcome.otherCount > 0 && !isFromPair_) {
            reporter_.Warning(name_ + ": column " + outcome.column.name +
                              " became text: not all of its values are " +
                              KindInWords(outcome.declaredKind) + " (" +
                              Counted(outcome.otherCount, "other", "others") + ", the first " +
                              Quoted(outcome.firstOther) + ")");
        }
    }
    if (cutCount > 0) {
        reporter_.Warning(name_ + ": " +
                          Counted(cutCount, "value was longer", "values were longer") +
                          " than the 254 bytes of a Char column and " +
                          (cutCount == 1 ? "was" : "were") + " cut: " + Listed(cuts));
    }
}

void MifTarget::TellSizes(const std::vector<ColumnOutcome>& columns) {
    if (columns.size() > kMostColumns) {
        reporter_.Warning(
            name_ + ": has " + std::to_string(columns.size()) +
            " columns, and other programs read at most 250; --select leaves some out");
    }
    const std::size_t rowBytes = std::accumulate(
        columns.begin(), columns.end(), std::size_t{0},
        [](std::size_t sum, const ColumnOutcome& outcome) {
            return sum + static_cast<std::size_t>(std::max(outcome.column.width, 0));
        });
    if (rowBytes > kMostRowBytes) {
        reporter_.Warning(name_ + ": its columns hold up to " + std::to_string(rowBytes) +
                          " bytes together, and other programs read at most 4000; --select leaves "
                          "some out");
    }
}

}  // namespace app
