#include "app/mif/OddNumbers.h"

#include "app/mif/Numbers.h"
#include "app/mif/Words.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace app {
namespace {

constexpr std::size_t kMostWords = 256;

// A part of a line between blanks, with its place in the file. Quotes have no meaning.
struct Word {
    std::string text;
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

std::vector<Word> WordsOf(std::string_view text, std::uint64_t offset) {
    std::vector<Word> words;
    std::size_t pos = 0;
    while (pos < text.size() && words.size() < kMostWords) {
        const std::size_t first = text.find_first_not_of(" \t\r", pos);
        if (first == std::string_view::npos) {
            break;
        }
        pos = std::min(text.find_first_of(" \t\r", first), text.size());
        words.push_back(
            {std::string(text.substr(first, pos - first)), offset + first, offset + pos});
    }
    return words;
}

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

void ReportGaps(const JoinedWords& joined, const Place& place, FindingCounter& report) {
    for (const auto& [begin, end] : joined.gaps) {
        report.Add(FindingCode::BlankAfterMinus, place,
                   "a blank is between a minus sign and its digits; the reader takes the sign "
                   "as 0");
        report.Change(place.file, {.begin = begin,
                                   .end = end,
                                   .text = {},
                                   .code = FindingCode::BlankAfterMinus,
                                   .line = place.line,
                                   .what = "the blank after the minus sign goes"});
    }
}

// The words with full stops for decimal commas, which are reported.
std::vector<Word> WithoutDecimalCommas(std::vector<Word> words, const Place& place,
                                       FindingCounter& report) {
    for (Word& word : words) {
        if (!HasDecimalComma(word.text)) {
            continue;
        }
        const std::size_t comma = word.text.find(',');
        report.Add(FindingCode::DecimalComma, place,
                   Quoted(word.text) + " has a decimal comma; the reader cuts it there");
        // Counted from the end: blanks behind the minus are not in the text.
        const std::uint64_t at = word.end - (word.text.size() - comma);
        word.text[comma] = '.';
        report.Change(place.file, {.begin = at,
                                   .end = at + 1,
                                   .text = ".",
                                   .code = FindingCode::DecimalComma,
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

// Twice as many whole numbers as are wanted ("1,5,2,5"): each two are one with a decimal comma.
bool AreHalves(const std::vector<Word>& parts, std::size_t count) {
    return parts.size() == 2 * count && std::ranges::all_of(parts, [&](const Word& part) {
               const bool isFraction = (&part - parts.data()) % 2 == 1;
               return isFraction ? IsDigits(part.text) : IsWholeNumber(part.text);
           });
}

std::vector<Word> JoinHalves(const std::vector<Word>& parts) {
    std::vector<Word> joined;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        joined.push_back({parts[i].text + "." + parts[i + 1].text, parts[i].begin, parts[i].end});
    }
    return joined;
}

double NumberOf(const Word& word, const Place& place, FindingCounter& report) {
    const double number = ReadDouble(word.text);
    if (!IsDecimalNumber(word.text)) {
        report.Add(FindingCode::NumberUnreadable, place,
                   Quoted(word.text) + " is no number; the reader takes " + NumberAsText(number));
    } else if (!std::isfinite(number)) {
        report.Add(FindingCode::NumberUnreadable, place, Quoted(word.text) + " is too large");
    }
    return number;
}

}  // namespace

std::size_t CountNumbers(std::string_view text) {
    const std::vector<Word> words = JoinMinus(WordsOf(text, 0)).words;
    std::size_t count = 0;
    for (const Word& word : words) {
        count += HasDecimalComma(word.text) ? 1 : SplitAtCommas({word}).size();
    }
    return count;
}

std::vector<double> ReadOddNumbers(std::string_view text, std::uint64_t offset, std::size_t count,
                                   const Place& place, FindingCounter& report) {
    const JoinedWords joined = JoinMinus(WordsOf(text, offset));
    ReportGaps(joined, place, report);
    std::vector<Word> words = joined.words.size() >= count
                                  ? WithoutDecimalCommas(joined.words, place, report)
                                  : joined.words;
    const bool hasCommas = std::ranges::any_of(
        words, [](const Word& word) { return word.text.find(',') != std::string::npos; });
    if (hasCommas) {
        report.Add(FindingCode::CommaInNumbers, place,
                   "commas are between the numbers; the reader takes each as 0");
        words = SplitAtCommas(words);
        words = AreHalves(words, count) ? JoinHalves(words) : words;
    }
    std::vector<double> numbers(count, 0.0);
    for (std::size_t i = 0; i < std::min(count, words.size()); ++i) {
        numbers[i] = NumberOf(words[i], place, report);
    }
    if (words.size() < count) {
        report.Add(FindingCode::NumberMissing, place,
                   Counted(words.size(), "number", "numbers") + " where " + std::to_string(count) +
                       " are needed; the reader takes the others as 0");
    } else if (words.size() > count && !hasCommas) {
        report.Add(FindingCode::RestIgnored, place,
                   "more than " + Counted(count, "number", "numbers") + ", from " +
                       Quoted(words[count].text) + " on; the reader skips the rest");
    }
    return numbers;
}

}  // namespace app
