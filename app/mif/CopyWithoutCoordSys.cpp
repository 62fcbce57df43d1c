#include "app/mif/CopyWithoutCoordSys.h"

#include "app/base/Errors.h"
#include "app/base/InputFile.h"
#include "app/base/Paths.h"
#include "app/base/platform/System.h"
#include "app/mif/LineReader.h"
#include "app/mif/MifTokens.h"

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <utility>
#include <vector>

namespace app::check {
namespace {

struct Range {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

bool BeginsWith(const MifLine* line, std::string_view word) {
    return line != nullptr && MifTokens(line->raw).Next().Is(word);
}

// Whether the line reads CoordSys Earth and nothing else.
bool EndsAtEarth(const MifLine& line) {
    const std::vector<MifToken> tokens = TokensOf(line.raw);
    return tokens.size() == 2 && tokens[1].Is("Earth");
}

// The places of all CoordSys clauses before the Data line, without their line ends.
std::vector<Range> FindClauses(std::FILE* mif) {
    std::vector<Range> clauses;
    LineReader lines(mif);
    for (const MifLine* line = lines.Peek(); line != nullptr && !BeginsWith(line, "Data");
         line = lines.Peek()) {
        if (BeginsWith(line, "CoordSys")) {
            clauses.push_back({line->begin, line->end});
            // The clause may break behind Earth.
            if (EndsAtEarth(*line) && BeginsWith(lines.Peek(1), "Projection")) {
                clauses.back().end = lines.Peek(1)->end;
                lines.Skip();
            }
        }
        lines.Skip();
    }
    return clauses;
}

}  // namespace

NeutralCopy::NeutralCopy(const std::filesystem::path& mif)
    : original_(mif), path_(folder_.File(mif.filename())) {
    const std::filesystem::path source = AsOnDisk(mif);
    const InputFile header = OpenInput(source);
    if (header == nullptr) {
        throw Failure(PathText(mif) + ": can't be opened");
    }
    const std::vector<Range> clauses = FindClauses(header.get());
    std::ifstream from(source, std::ios::binary);
    std::ofstream to(path_, std::ios::binary);
    std::uint64_t position = 0;
    std::string part;
    for (const Range& clause : clauses) {
        part.resize(static_cast<std::size_t>(clause.begin - position));
        from.read(part.data(), static_cast<std::streamsize>(part.size()));
        to << part << "CoordSys NonEarth Units \"m\"";
        from.seekg(static_cast<std::streamoff>(clause.end));
        position = clause.end;
    }
    to.close();
    if (!from || !to) {
        throw Failure(PathText(mif) + ": can't make a temporary copy in " +
                      PathText(path_.parent_path()));
    }
    AppendFileRange(source, position, path_);
    const std::filesystem::path mid = FindCompanion(mif, ".mid");
    if (!mid.empty()) {
        LinkFile(mid, folder_.File(mif.filename().replace_extension(".mid")));
    }
}

std::string NeutralCopy::WithOriginalPath(std::string text) const {
    const std::string copy = PathText(path_);
    const std::string original = PathText(original_);
    for (std::size_t at = text.find(copy); at != std::string::npos; at = text.find(copy, at)) {
        text.replace(at, copy.size(), original);
        at += original.size();
    }
    return text;
}

}  // namespace app::check
