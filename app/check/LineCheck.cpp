#include "app/check/LineCheck.h"

#include "app/base/Utf8.h"
#include "app/mif/MifTokens.h"

#include <string_view>
#include <vector>

namespace app {

void LineCheck::See(const MifLine& line) {
    const Place place{file_, line.number, object_};
    if (line.raw.find('\0') != std::string_view::npos) {
        report_.Add(FindingCode::NulByte, place,
                    "the line holds a NUL byte; the reader stops there");
    }
    if (line.isCut) {
        report_.Add(FindingCode::LineTooLong, place, "the line is longer than 1 MiB");
    }
    SeeLineEnd(line, place);
    SeeCharacters(line, place);
}

CharsetTester& LineCheck::Tester() {
    if (tester_ == nullptr || testerName_ != charset_) {
        testerName_ = charset_;
        tester_ = std::make_unique<CharsetTester>(charset_);
    }
    return *tester_;
}

void LineCheck::SeeLineEnd(const MifLine& line, const Place& place) {
    if (line.lineEnd == LineEnd::LoneCr) {
        if (!isReturnReported_) {
            isReturnReported_ = true;
            report_.Add(FindingCode::LoneCarriageReturn, place,
                        "the line ends with a carriage return alone; the reader takes the "
                        "next line as its continuation");
        }
        report_.Change(file_, {.begin = line.end,
                               .end = line.next,
                               .text = "\n",
                               .code = FindingCode::LoneCarriageReturn,
                               .line = line.number,
                               .what = "the carriage return becomes a line end"});
    }
    if (line.lineEnd == LineEnd::None) {
        SeeMissingEnd(line, place);
    }
    lastLineEnd_ = line.lineEnd;
}

void LineCheck::SeeMissingEnd(const MifLine& line, const Place& place) {
    const std::vector<MifToken> tokens = TokensOf(line.raw, line.begin, 2);
    const bool isLost = file_ == FileOfPair::Mif && tokens.size() == 1 && tokens.front().Is("none");
    const FindingCode code =
        isLost ? FindingCode::LastObjectLost : FindingCode::FinalLineEndMissing;
    report_.Add(code, place, "the last line has no line end");
    report_.Change(file_, {.begin = line.end,
                           .end = line.end,
                           .text = LineEndText(lastLineEnd_),
                           .code = code,
                           .line = line.number,
                           .what = "a line end is put behind the last line"});
}

void LineCheck::SeeCharacters(const MifLine& line, const Place& place) {
    if (IsAscii(line.raw)) {
        return;
    }
    CharsetTester& tester = Tester();
    const CharsetVerdict verdict = tester.Test(line.raw);
    if (verdict == CharsetVerdict::NotInCharset) {
        report_.Add(FindingCode::OutsideCharset, place,
                    "the line holds bytes that are no characters of " + charset_);
    } else if (verdict == CharsetVerdict::LooksLikeUtf8 && !isUtf8Reported_) {
        isUtf8Reported_ = true;
        report_.Add(FindingCode::LooksLikeUtf8, place,
                    "the charset is " + charset_ + ", but the line is valid UTF-8");
    } else if (tester.Kind() == CharsetKind::Neutral && !isNeutralReported_) {
        isNeutralReported_ = true;
        report_.Add(FindingCode::NeutralBytes, place,
                    "the line holds letters beyond ASCII, and the charset is Neutral");
    }
}

}  // namespace app
