#include "app/formats/mif/ReadClauses.h"

#include "app/base/Utf8.h"
#include "app/mif/Clauses.h"
#include "app/mif/MifTokens.h"
#include "app/mif/Numbers.h"

#include <algorithm>
#include <array>
#include <vector>

namespace app {
namespace {

// The values of one clause: its tokens without the commas and parentheses.
class Values {
public:
    void Add(const MifToken& token) { tokens_.push_back(token); }

    std::size_t Count() const { return tokens_.size(); }
    bool IsQuoted(std::size_t at) const { return at < Count() && tokens_[at].IsQuoted(); }
    bool Is(std::size_t at, std::string_view word) const {
        return at < Count() && tokens_[at].Is(word);
    }
    std::string_view Text(std::size_t at) const {
        return at < Count() ? tokens_[at].text : std::string_view();
    }
    int Whole(std::size_t at) const { return ReadInt(Text(at)); }
    double Number(std::size_t at) const { return ReadDouble(Text(at)); }
    std::uint32_t Color(std::size_t at) const { return static_cast<std::uint32_t>(Whole(at)); }
    std::string Name(std::size_t at) const { return Utf8FromNarrow(WithoutReturns(Text(at))); }

private:
    std::vector<MifToken> tokens_;
};

void TakePen(const Values& values, ClauseValues& to) {
    to.style.pen = Pen{values.Whole(0), values.Whole(1), values.Color(2)};
}

void TakeBrush(const Values& values, ClauseValues& to) {
    Brush brush{values.Whole(0), values.Color(1)};
    if (values.Count() > 2) {
        brush.back = values.Color(2);
    }
    to.style.brush = brush;
}

void TakeSymbol(const Values& values, ClauseValues& to) {
    Symbol symbol;
    symbol.color = values.Color(1);
    symbol.size = values.Count() > 2 ? values.Whole(2) : symbol.size;
    if (values.IsQuoted(0)) {
        symbol.form = Symbol::Form::Bitmap;
        symbol.name = values.Name(0);
        symbol.styleBits = values.Whole(3);
    } else {
        symbol.shape = values.Whole(0);
        if (values.Count() > 3) {
            symbol.form = Symbol::Form::FontCharacter;
            symbol.name = values.Name(3);
            symbol.styleBits = values.Whole(4);
            symbol.rotationDegrees = values.Number(5);
        }
    }
    to.style.symbol = symbol;
}

void TakeFont(const Values& values, ClauseValues& to) {
    Font font{values.Name(0), values.Whole(1), values.Whole(2), values.Color(3)};
    if (values.Count() > 4) {
        font.back = values.Color(4);
    }
    to.style.font = font;
}

void TakeAngle(const Values& values, ClauseValues& to) {
    to.angleDegrees = values.Number(0);
}

void TakeJustify(const Values& values, ClauseValues& to) {
    to.justify = values.Is(0, "center")  ? Justify::Center
                 : values.Is(0, "right") ? Justify::Right
                                         : Justify::Left;
}

void TakeSpacing(const Values& values, ClauseValues& to) {
    to.lineSpacing = values.Number(0);
}

// Label Line Simple x y, Label Line Arrow x y
void TakeLabel(const Values& values, ClauseValues& to) {
    if (values.Count() >= 4) {
        to.labelLine = LabelLine{values.Is(1, "arrow"), {values.Number(2), values.Number(3)}};
    }
}

void TakeSmooth(const Values& /*values*/, ClauseValues& to) {
    to.isSmooth = true;
}

void TakeCenter(const Values& values, ClauseValues& to) {
    if (values.Count() >= 2) {
        to.center = shr::Vec2d{values.Number(0), values.Number(1)};
    }
}

struct ClauseRow {
    std::string_view keyword;
    void (*take)(const Values& values, ClauseValues& to);
};
constexpr std::array kClauses = {
    ClauseRow{"pen", TakePen},         ClauseRow{"brush", TakeBrush},
    ClauseRow{"symbol", TakeSymbol},   ClauseRow{"font", TakeFont},
    ClauseRow{"angle", TakeAngle},     ClauseRow{"justify", TakeJustify},
    ClauseRow{"spacing", TakeSpacing}, ClauseRow{"label", TakeLabel},
    ClauseRow{"smooth", TakeSmooth},   ClauseRow{"center", TakeCenter},
};

// "Justify Center" and "Label Line Arrow" hold words that could begin clauses.
bool BeginsClause(const MifToken& token, bool isAtLineStart, std::string_view last) {
    const bool takesWord = EqualsIgnoringCase(last, "justify");
    return token.kind == TokenKind::Word && IsClauseKeyword(token.text) &&
           (isAtLineStart || !takesWord);
}

}  // namespace

ClauseValues ReadClauses(std::string_view clauses) {
    ClauseValues result;
    std::string_view keyword;
    Values values;
    const auto finish = [&] {
        const auto* const row = std::ranges::find_if(
            kClauses, [&](const ClauseRow& r) { return EqualsIgnoringCase(r.keyword, keyword); });
        if (row != kClauses.end()) {
            row->take(values, result);
        }
        values = {};
        keyword = {};
    };
    MifTokens tokens(clauses);
    bool isAtLineStart = true;
    for (MifToken token = tokens.Next(); token.kind != TokenKind::End; token = tokens.Next()) {
        if (BeginsClause(token, isAtLineStart, keyword)) {
            finish();
            keyword = token.text;
        } else if (token.kind == TokenKind::Word || token.IsQuoted()) {
            values.Add(token);
        }
        isAtLineStart = token.IsLineEnd();
    }
    finish();
    return result;
}

const ClauseValues& ClauseReader::Read(const std::string& clauses) {
    if (lastValues_ != nullptr && clauses == last_) {
        return *lastValues_;
    }
    if (known_.size() == kMostEntries) {
        known_.clear();
    }
    const auto [at, isNew] = known_.try_emplace(clauses);
    if (isNew) {
        at->second = ReadClauses(clauses);
    }
    last_ = clauses;
    lastValues_ = &at->second;
    return *lastValues_;
}

}  // namespace app
