#include "app/check/NumberLine.h"

#include "app/mif/Numbers.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace app::check {
namespace {

bool StartsNumber(std::string_view text) {
    return !text.empty() && ((text[0] >= '0' && text[0] <= '9') || text[0] == '.');
}

struct JoinedWords {
    std::vector<Word> words;
    std::vector<std::pair<std::uint64_t, std::uint64_t>> gaps;  // blanks behind a minus
};

JoinedWords JoinMinus(const std::vector<Word>& words) {
    JoinedWords joined;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i].text == "-" && i + 1 < words.size() && StartsNumber(words[i + 1].text)) {
            joined.gaps.emplace_back(words[i].end, words[i + 1].begin);
            joined.words.push_back({"-" + words[i + 1].text, words[i].begin, words[i + 1].end});
            ++i;
        } else {
            joined.words.push_back(words[i]);
        }
    }
    return joined;
}

void ReportGaps(const JoinedWords& joined, const Place& place, Report& report) {
    for (const auto& [begin, end] : joined.gaps) {
        report.Add(Code::BlankAfterMinus, place,
                   "a blank stands between a minus sign and its digits; the reader takes the sign "
                   "as 0");
        report.Change(place.file, {.begin = begin,
                                   .end = end,
                                   .text = {},
                                   .code = Code::BlankAfterMinus,
                                   .line = place.line,
                                   .what = "the blank after the minus sign goes"});
    }
}

// The words with full stops for decimal commas, which are reported.
std::vector<Word> WithoutCommas(const JoinedWords& joined, const Place& place, Report& report) {
    std::vector<Word> words = joined.words;
    for (Word& word : words) {
        if (!HasDecimalComma(word.text)) {
            continue;
        }
        const std::size_t comma = word.text.find(',');
        report.Add(Code::DecimalComma, place,
                   Quoted(word.text) + " has a decimal comma; the reader cuts it there");
        // Counted from the end: blanks behind the minus are not in the text.
        const std::uint64_t at = word.end - (word.text.size() - comma);
        word.text[comma] = '.';
        report.Change(place.file, {.begin = at,
                                   .end = at + 1,
                                   .text = ".",
                                   .code = Code::DecimalComma,
                                   .line = place.line,
                                   .what = "the decimal comma becomes a full stop"});
    }
    return words;
}

std::vector<Word> SplitAtCommas(const std::vector<Word>& words) {
    std::vector<Word> parts;
    for (const Word& word : words) {
        std::size_t begin = 0;
        while (begin <= word.text.size()) {
            const std::size_t end = std::min(word.text.find(',', begin), word.text.size());
            if (end > begin) {
                parts.push_back({word.text.substr(begin, end - begin), word.begin, word.end});
            }
            begin = end + 1;
        }
    }
    return parts;
}

}  // namespace

std::vector<Word> WordsOf(const MifLine& line, std::uint64_t from) {
    std::vector<Word> words;
    std::size_t pos = static_cast<std::size_t>(from - line.begin);
    const std::string_view raw = line.raw;
    while (pos < raw.size() && words.size() < LineReader::kMaxTokens) {
        const std::size_t first = raw.find_first_not_of(" \t\r", pos);
        if (first == std::string_view::npos) {
            break;
        }
        pos = std::min(raw.find_first_of(" \t\r", first), raw.size());
        words.push_back(
            {std::string(raw.substr(first, pos - first)), line.begin + first, line.begin + pos});
    }
    return words;
}

std::size_t CountNumbers(const MifLine& line, std::uint64_t from) {
    return JoinMinus(WordsOf(line, from)).words.size();
}

std::vector<double> ReadNumbers(const MifLine& line, std::uint64_t from, std::size_t count,
                                const Place& place, Report& report) {
    const JoinedWords joined = JoinMinus(WordsOf(line, from));
    ReportGaps(joined, place, report);
    std::vector<Word> words =
        joined.words.size() >= count ? WithoutCommas(joined, place, report) : joined.words;
    const bool hasCommas = std::ranges::any_of(
        words, [](const Word& word) { return word.text.find(',') != std::string::npos; });
    if (hasCommas) {
        report.Add(Code::CommaInNumbers, place,
                   "commas stand between the numbers; the reader takes each as 0");
        words = SplitAtCommas(words);
    }
    std::vector<double> numbers(count, 0.0);
    for (std::size_t i = 0; i < std::min(count, words.size()); ++i) {
        if (!IsDecimalNumber(words[i].text)) {
            report.Add(Code::NumberUnreadable, place,
                       Quoted(words[i].text) + " is no number; the reader takes " +
                           NumberAsText(ReadDouble(words[i].text)));
        }
        numbers[i] = ReadDouble(words[i].text);
        if (IsDecimalNumber(words[i].text) && !std::isfinite(numbers[i])) {
            report.Add(Code::NumberUnreadable, place, Quoted(words[i].text) + " is too large");
        }
    }
    if (words.size() < count) {
        report.Add(Code::NumberMissing, place,
                   Counted(words.size(), "number", "numbers") + " where " + std::to_string(count) +
                       " are needed; the reader takes the others as 0");
    } else if (words.size() > count && !hasCommas) {
        report.Add(Code::RestIgnored, place,
                   "more than " + Counted(count, "number", "numbers") + ", from " +
                       Quoted(words[count].text) + " on; the reader skips the rest");
    }
    return numbers;
}

}  // namespace app::check
