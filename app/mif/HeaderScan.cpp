#include "app/mif/HeaderScan.h"

#include "app/base/Errors.h"
#include "app/base/InputFile.h"
#include "app/base/Paths.h"
#include "app/mif/CoordSysCodes.h"
#include "app/mif/LineReader.h"
#include "app/mif/MifTokens.h"
#include "app/mif/Numbers.h"
#include "app/mif/Units.h"

#include <cerrno>
#include <cstring>
#include <string_view>

namespace app {
namespace {

// The tokens of a header, line after line.
class HeaderTokens {
public:
    explicit HeaderTokens(std::FILE* stream) : lines_(stream) { StartLine(); }

    // Takes the next token. False at the end of the input.
    bool Next() {
        while (line_ != nullptr) {
            token_ = tokens_.Next();
            if (token_.kind != TokenKind::End) {
                return true;
            }
            if (!isAtLineEnd_ && line_->lineEnd != LineEnd::None) {
                isAtLineEnd_ = true;
                token_.kind = TokenKind::LineEnd;
                token_.text = "\n";
                return true;
            }
            lines_.Skip();
            StartLine();
        }
        token_ = {};
        return false;
    }

    // Goes on to the first token of the next line. False at the end of the input.
    bool NextLine() {
        while (!token_.IsLineEnd()) {
            if (!Next()) {
                return false;
            }
        }
        return Next();
    }

    bool AtLineEnd() const { return token_.IsLineEnd(); }
    const MifToken& Current() const { return token_; }
    std::string Token() const { return WithoutReturns(token_.text); }
    bool Is(std::string_view keyword) const { return token_.Is(keyword); }

    // Offset behind the current token, or of the next line behind a line end.
    std::uint64_t Offset() const {
        return token_.IsLineEnd() && line_ != nullptr ? line_->next : token_.end;
    }
    // 1-based; behind a line end that of the next line.
    std::uint64_t Line() const {
        return line_ == nullptr ? 0 : line_->number + (token_.IsLineEnd() ? 1 : 0);
    }
    FileStart Start() const { return lines_.Start(); }

private:
    void StartLine() {
        line_ = lines_.Peek();
        isAtLineEnd_ = false;
        tokens_ = line_ != nullptr ? MifTokens(line_->raw, line_->begin) : MifTokens({});
    }

    LineReader lines_;
    const MifLine* line_ = nullptr;  // null behind the last one
    MifTokens tokens_{{}};
    MifToken token_;
    bool isAtLineEnd_ = false;  // the line's end was handed out
};

class HeaderParser {
public:
    explicit HeaderParser(std::FILE* stream) : tokens_(stream) {}

    MifHeader Run() {
        header_.start = tokens_.Start();
        bool more = tokens_.Next();
        while (more && tokens_.Offset() <= kSearched) {
            if (tokens_.Is("data")) {
                ReadData();
                break;
            }
            more = ReadClause();
        }
        return std::move(header_);
    }

private:
    // Headers end well before; a file without Data is not read to its end. Column lists may be
    // longer and are read as a whole.
    static constexpr std::uint64_t kSearched = 1 << 20;

    bool ReadClause() {
        const std::string keyword = tokens_.Token();
        const auto isKeyword = [&](std::string_view word) {
            return EqualsIgnoringCase(keyword, word);
        };
        if (isKeyword("coordsys")) {
            return ReadCoordSys();
        }
        if (isKeyword("columns")) {
            return ReadColumns();
        }
        if (isKeyword("bounds")) {
            if (ReadBounds()) {
                header_.ownBounds = header_.bounds;
            }
        } else if (isKeyword("version") && tokens_.Next()) {
            header_.version = ReadInt(tokens_.Token());
        } else if (isKeyword("charset") && tokens_.Next()) {
            header_.charset = tokens_.AtLineEnd() ? "" : tokens_.Token();
        } else if (isKeyword("delimiter") && tokens_.Next()) {
            ReadDelimiter();
        }
        return tokens_.NextLine();
    }

    void ReadDelimiter() {
        // The module takes texts of fewer than three characters.
        if (tokens_.Token().size() < 3 && !tokens_.AtLineEnd()) {
            header_.delimiter = tokens_.Token();
        }
    }

    void ReadData() {
        while (!tokens_.AtLineEnd() && tokens_.Next()) {
        }
        header_.hasData = true;
        header_.dataOffset = tokens_.Offset();
        header_.dataLine = tokens_.Line();
    }

    // Bounds (x1, y1) (x2, y2), with the keyword as the current token.
    bool ReadBounds() {
        static constexpr const char* kShape[] = {"(", nullptr, ",", nullptr, ")",
                                                 "(", nullptr, ",", nullptr};
        double numbers[4] = {};
        int count = 0;
        for (const char* expected : kShape) {
            if (!Advance()) {
                return false;
            }
            if (expected == nullptr) {
                numbers[count++] = NumberOrSigned();
            } else if (tokens_.Current().text != expected) {
                return false;
            }
        }
        header_.bounds = shr::Box2d{numbers[0], numbers[1], numbers[2], numbers[3]};
        return true;
    }

    // Some writers put a blank behind the minus sign.
    double NumberOrSigned() {
        if (tokens_.Token() == "-" && Advance()) {
            return -ReadDouble(tokens_.Token());
        }
        return ReadDouble(tokens_.Token());
    }

    bool ReadColumns() {
        if (!tokens_.Next()) {
            return false;
        }
        const int count = tokens_.AtLineEnd() ? 0 : ReadInt(tokens_.Token());
        bool more = tokens_.NextLine();
        for (int i = 0; i < count && more; ++i) {
            header_.columns.push_back(ReadColumn());
            more = tokens_.NextLine();
        }
        return more;
    }

    Column ReadColumn() {
        Column column;
        column.name = tokens_.Token();
        std::vector<std::string> words;
        while (tokens_.Next() && !tokens_.AtLineEnd()) {
            words.push_back(tokens_.Token());
            column.typeText += tokens_.Token();
        }
        if (words.empty()) {
            return column;
        }
        column.kind = ColumnKindOf(words[0]);
        // "(", width, ",", decimals, ")"
        column.width = words.size() > 2 && words[1] == "(" ? ReadInt(words[2]) : 0;
        column.decimals = words.size() > 4 && words[3] == "," ? ReadInt(words[4]) : 0;
        return column;
    }

    // The next token of the clause, which is added to its text.
    bool Advance() {
        if (!tokens_.Next()) {
            return false;
        }
        if (isInCoordSys_ && !tokens_.AtLineEnd()) {
            const bool isTight = tokens_.Token() == "," || tokens_.Token() == ")";
            const bool afterParenthesis =
                !header_.coordSysText.empty() && header_.coordSysText.back() == '(';
            header_.coordSysText += isTight || afterParenthesis ? "" : " ";
            header_.coordSysText += tokens_.Token();
        }
        return true;
    }

    // The rest of the clause's line, with its bounds when they stand there.
    bool FinishCoordSys() {
        while (!tokens_.AtLineEnd()) {
            if (tokens_.Is("bounds")) {
                static_cast<void>(ReadBounds());  // what it reads is in the header
            } else if (tokens_.Is("units") && Advance() && !tokens_.AtLineEnd()) {
                header_.unitsText = tokens_.Token();
            }
            if (!tokens_.AtLineEnd() && !Advance()) {
                break;
            }
        }
        isInCoordSys_ = false;
        const bool more = tokens_.NextLine();
        if (more && lacking_ > 0 && !tokens_.AtLineEnd() && !IsNumberToken()) {
            header_.careOffsets.insert(header_.careOffsets.end(), lacking_, clauseEnd_);
        }
        lacking_ = 0;
        return more;
    }

    // A clause that goes on in the next line, which the module reads as it stands there.
    bool IsNumberToken() const {
        constexpr std::string_view kStarts = "0123456789+-.";
        return !tokens_.Token().empty() &&
               kStarts.find(tokens_.Token().front()) != std::string_view::npos;
    }

    bool ReadCoordSys() {
        header_.coordSysText = tokens_.Token();
        header_.unitsText.clear();
        isInCoordSys_ = true;
        if (!Advance() || !tokens_.Is("earth")) {
            return FinishCoordSys();
        }
        Advance();
        if (tokens_.AtLineEnd()) {
            clauseEnd_ = tokens_.Offset();
            const std::string text = header_.coordSysText;
            if (!Advance()) {
                return false;
            }
            if (!tokens_.Is("projection")) {
                header_.coordSysText = text;
                return FinishAtEarth();
            }
            // The clause may break after Earth.
        }
        if (!tokens_.Is("projection") || !Advance()) {
            return FinishCoordSys();
        }
        const int code = ReadInt(tokens_.Token());
        const Projection* const projection = FindProjection(code);
        if (projection == nullptr) {
            header_.unknownProjection = code;
        }
        if (!Advance() || tokens_.Token() != "," || !Advance()) {
            return FinishCoordSys();
        }
        ReadDatum();
        if (!tokens_.AtLineEnd() && !AtBounds()) {
            header_.unitsText = tokens_.Token();
        }
        // An unknown projection stops the import anyway.
        for (std::size_t i = 0; projection != nullptr && i <= projection->parameterCount; ++i) {
            TakePart();
        }
        return FinishCoordSys();
    }

    // The clause has nothing behind Earth, and the current token begins the next line.
    bool FinishAtEarth() {
        isInCoordSys_ = false;
        if (!tokens_.AtLineEnd()) {
            header_.careOffsets.push_back(clauseEnd_);
        }
        return true;
    }

    // The code, and for a custom datum the ellipsoid's code, the shifts, the rotations and so on.
    void ReadDatum() {
        const int datum = tokens_.AtLineEnd() ? 0 : ReadInt(tokens_.Token());
        const int count = datum == 999 ? 4 : datum == 9999 ? 9 : 0;
        for (int i = 0; i <= count; ++i) {
            TakePart();
        }
    }

    bool AtBounds() const { return tokens_.Is("bounds") || tokens_.Is("affine"); }

    // Goes on behind a token that the module reads as a part of the clause, and behind a comma.
    // Counts the parts that the clause's line does not have. The module takes the words of Bounds
    // and Affine as well, which are enough for all parts.
    void TakePart() {
        if (tokens_.AtLineEnd()) {
            clauseEnd_ = tokens_.Offset();
            ++lacking_;
        } else if (!AtBounds() && Advance() && tokens_.Token() == ",") {
            Advance();
        }
    }

    HeaderTokens tokens_;
    MifHeader header_;
    bool isInCoordSys_ = false;
    std::size_t lacking_ = 0;      // parts that the module would look for in the next line
    std::uint64_t clauseEnd_ = 0;  // bytes before that line
};

}  // namespace

std::string UnitProblem(const MifHeader& header) {
    constexpr std::string_view kEarth = "coordsys earth";
    const std::string& unit = header.unitsText;
    const bool isEarth =
        EqualsIgnoringCase(std::string_view(header.coordSysText).substr(0, kEarth.size()), kEarth);
    const Unit* const known = FindUnit(unit);
    if (!isEarth || unit.empty() || (known != nullptr && known->isKnownToModule) ||
        ReadDouble(unit) > 0.0) {
        return {};
    }
    return "the module does not know the unit \"" + unit +
           "\" and takes the coordinates as metres; a number of units per metre in its place is "
           "understood";
}

MifHeader ScanHeader(const std::filesystem::path& path) {
    const InputFile stream = OpenInput(path);
    if (stream == nullptr) {
        throw Failure(PathText(path) + ": can't open: " + std::strerror(errno));
    }
    return ScanHeader(stream.get());
}

MifHeader ScanHeader(std::FILE* stream) {
    std::rewind(stream);
    return HeaderParser(stream).Run();
}

}  // namespace app
