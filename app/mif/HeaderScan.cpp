#include "app/mif/HeaderScan.h"

#include "app/base/Errors.h"
#include "app/base/Paths.h"
#include "app/mif/Projections.h"
#include "host/platform/Stdio.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <string_view>

namespace app {
namespace {

bool Is(const std::string& token, const char* keyword) {
    return platform::CompareNoCase(token.c_str(), keyword) == 0;
}

// The longest start that is a whole number, 0 when there is none; clamped to int.
int WholeNumber(const std::string& token) {
    const char* begin = token.c_str() + (!token.empty() && token.front() == '+' ? 1 : 0);
    int value = 0;
    const auto result = std::from_chars(begin, token.c_str() + token.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        return *begin == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    return value;
}

double Number(const std::string& token) {
    const char* begin = token.c_str() + (!token.empty() && token.front() == '+' ? 1 : 0);
    double value = 0.0;
    std::from_chars(begin, token.c_str() + token.size(), value);
    return value;
}

// Cuts the file into the same tokens as the module does: words, quoted strings, and the single
// characters "(", ")", "," and line feed. Carriage returns don't exist.
class HeaderTokens {
public:
    explicit HeaderTokens(std::FILE* stream) : stream_(stream) { Fetch(); }

    // False at the end of the input. An empty quoted string is a token like any other here.
    bool Next() {
        token_.clear();
        while (next_ == ' ' || next_ == '\t') {
            Fetch();
        }
        if (next_ == EOF) {
            return false;
        }
        if (next_ == '"') {
            Fetch();
            ReadQuoted();
        } else if (IsSingle(next_)) {
            Take();
        } else {
            while (next_ != EOF && !IsSingle(next_) && next_ != ' ' && next_ != '\t' &&
                   next_ != '"') {
                Take();
            }
        }
        return true;
    }

    // Goes on to the first token of the next line. False at the end of the input.
    bool NextLine() {
        while (!AtLineEnd()) {
            if (!Next()) {
                return false;
            }
        }
        return Next();
    }

    bool AtLineEnd() const { return token_ == "\n"; }
    const std::string& Token() const { return token_; }
    std::uint64_t Offset() const { return offset_; }  // bytes behind the current token
    std::uint64_t Line() const { return line_; }      // 1-based, of the next byte

private:
    static bool IsSingle(int c) { return c == '\n' || c == '(' || c == ')' || c == ','; }

    void Fetch() {
        offset_ = fetched_;
        do {
            next_ = platform::GetByte(stream_);
            fetched_ += next_ == EOF ? 0 : 1;
        } while (next_ == '\r');
    }

    void Take() {
        token_ += static_cast<char>(next_);
        line_ += next_ == '\n' ? 1 : 0;
        Fetch();
    }

    void ReadQuoted() {
        while (next_ != EOF && next_ != '\n' && next_ != '"') {
            Take();
        }
        if (next_ == '"') {
            Fetch();
        }
    }

    std::FILE* stream_;
    std::string token_;
    int next_ = 0;
    std::uint64_t fetched_ = 0;  // bytes taken from the stream
    std::uint64_t offset_ = 0;   // bytes before next_
    std::uint64_t line_ = 1;
};

class HeaderParser {
public:
    explicit HeaderParser(std::FILE* stream) : tokens_(stream) {}

    MifHeader Run() {
        bool more = tokens_.Next();
        while (more && tokens_.Offset() <= kSearched) {
            if (Is(tokens_.Token(), "data")) {
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
        if (Is(keyword, "coordsys")) {
            return ReadCoordSys();
        }
        if (Is(keyword, "columns")) {
            return ReadColumns();
        }
        if (Is(keyword, "bounds")) {
            if (ReadBounds()) {
                header_.ownBounds = header_.bounds;
            }
        } else if (Is(keyword, "version") && tokens_.Next()) {
            header_.version = WholeNumber(tokens_.Token());
        } else if (Is(keyword, "charset") && tokens_.Next()) {
            header_.charset = tokens_.AtLineEnd() ? "" : tokens_.Token();
        } else if (Is(keyword, "delimiter") && tokens_.Next()) {
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
            } else if (tokens_.Token() != expected) {
                return false;
            }
        }
        header_.bounds = MifHeader::Bounds{numbers[0], numbers[1], numbers[2], numbers[3]};
        return true;
    }

    // Some writers put a blank behind the minus sign.
    double NumberOrSigned() {
        if (tokens_.Token() == "-" && Advance()) {
            return -Number(tokens_.Token());
        }
        return Number(tokens_.Token());
    }

    bool ReadColumns() {
        if (!tokens_.Next()) {
            return false;
        }
        const int count = tokens_.AtLineEnd() ? 0 : WholeNumber(tokens_.Token());
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
        column.width = words.size() > 2 && words[1] == "(" ? WholeNumber(words[2]) : 0;
        column.decimals = words.size() > 4 && words[3] == "," ? WholeNumber(words[4]) : 0;
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
            if (Is(tokens_.Token(), "bounds")) {
                static_cast<void>(ReadBounds());  // what it reads is in the header
            } else if (Is(tokens_.Token(), "units") && Advance() && !tokens_.AtLineEnd()) {
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
        if (!Advance() || !Is(tokens_.Token(), "earth")) {
            return FinishCoordSys();
        }
        Advance();
        if (tokens_.AtLineEnd()) {
            clauseEnd_ = tokens_.Offset();
            const std::string text = header_.coordSysText;
            if (!Advance()) {
                return false;
            }
            if (!Is(tokens_.Token(), "projection")) {
                header_.coordSysText = text;
                return FinishAtEarth();
            }
            // The clause may break after Earth.
        }
        if (!Is(tokens_.Token(), "projection") || !Advance()) {
            return FinishCoordSys();
        }
        const int code = WholeNumber(tokens_.Token());
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
        const int datum = tokens_.AtLineEnd() ? 0 : WholeNumber(tokens_.Token());
        const int count = datum == 999 ? 4 : datum == 9999 ? 9 : 0;
        for (int i = 0; i <= count; ++i) {
            TakePart();
        }
    }

    bool AtBounds() const { return Is(tokens_.Token(), "bounds") || Is(tokens_.Token(), "affine"); }

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
    constexpr std::array kKnown = {"m",         "meters",      "f",           "feet",
                                   "survey ft", "survey feet", "us survey ft"};
    constexpr std::string_view kEarth = "coordsys earth";
    const std::string& unit = header.unitsText;
    const bool isEarth =
        header.coordSysText.size() >= kEarth.size() &&
        Is(header.coordSysText.substr(0, kEarth.size()), std::string(kEarth).c_str());
    const bool isKnown = std::any_of(kKnown.begin(), kKnown.end(),
                                     [&unit](const char* known) { return Is(unit, known); });
    if (!isEarth || unit.empty() || isKnown || std::strtod(unit.c_str(), nullptr) > 0.0) {
        return {};
    }
    return "the module does not know the unit \"" + unit +
           "\" and takes the coordinates as metres; a number of units per metre in its place is "
           "understood";
}

MifHeader ScanHeader(const std::filesystem::path& path) {
    const auto close = [](std::FILE* stream) { std::fclose(stream); };
    const std::unique_ptr<std::FILE, decltype(close)> stream(
        platform::OpenFile(WidePath(path), platform::OpenMode::ReadBinary), close);
    if (stream == nullptr) {
        throw Failure(PathText(path) + ": can't open: " + std::strerror(errno));
    }
    return HeaderParser(stream.get()).Run();
}

}  // namespace app
