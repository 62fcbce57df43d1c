#include "app/mif/NumberLines.h"

#include "app/mif/ByteClasses.h"
#include "app/mif/Numbers.h"

#include <bit>
#include <cstring>

namespace app {
namespace {

static_assert(std::endian::native == std::endian::little, "the first byte is the lowest bit");

// Vectors of the compiler: every system's own vector instructions, or plain ones.
using Bytes = unsigned char __attribute__((vector_size(16)));
using Truths = signed char __attribute__((vector_size(16)));  // -1 for true
using Halves = std::uint64_t __attribute__((vector_size(16)));

constexpr std::size_t kBlockBytes = 64;

// A bit for each of the 16 bytes.
std::uint64_t BitsOf(Truths truths) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    constexpr std::uint64_t kGather = 0x0002040810204081U;  // moves the high bits side by side
    const auto halves = reinterpret_cast<Halves>(truths);
    return ((halves[0] & kHighBits) * kGather >> 56) |
           ((halves[1] & kHighBits) * kGather >> 56 << 8);
}

// What the bytes of a block are, a bit for each.
struct Block {
    std::uint64_t feeds = 0;
    std::uint64_t letters = 0;  // what words are made of: neither blanks nor control characters
    std::uint64_t plain = 0;    // what plain lines are made of but carriage returns
};

Bytes PartAt(const char* bytes, unsigned part) {
    Bytes at;
    std::memcpy(&at, bytes + part * sizeof at, sizeof at);
    return at;
}

Block BlockAt(const char* bytes) {
    Block block;
    for (unsigned part = 0; part < kBlockBytes / sizeof(Bytes); ++part) {
        const Bytes at = PartAt(bytes, part);
        const auto letters = at > 0x20;
        const auto isExponent = (at | 0x20) == 'e';
        const auto isNumber =
            (at - '+' <= static_cast<unsigned char>('9' - '+')) & (at != ',') & (at != '/');
        const auto isBlank = (at == ' ') | (at == '\t');
        const auto feeds = at == '\n';
        const unsigned shift = part * sizeof at;
        block.feeds |= BitsOf(feeds) << shift;
        block.letters |= BitsOf(letters) << shift;
        block.plain |= BitsOf(isNumber | isBlank | feeds | isExponent) << shift;
    }
    return block;
}

std::uint64_t ReturnsAt(const char* bytes) {
    std::uint64_t returns = 0;
    for (unsigned part = 0; part < kBlockBytes / sizeof(Bytes); ++part) {
        returns |= BitsOf(PartAt(bytes, part) == '\r') << part * sizeof(Bytes);
    }
    return returns;
}

// Whether exactly so many bits are set.
bool HasBits(std::uint64_t bits, unsigned count) {
    for (; count > 0; --count) {
        if (bits == 0) {
            return false;
        }
        bits &= bits - 1;
    }
    return bits == 0;
}

// Counts lines block by block.
class LineCounter {
public:
    LineCounter(std::uint64_t most, unsigned words) : most_(most), words_(words) {}

    // Takes the next block, which begins at `base`. False when no line behind it can count.
    bool Take(const char* bytes, std::size_t base) {
        const Block block = BlockAt(bytes);
        const std::uint64_t starts = block.letters & ~(block.letters << 1 | endsInWord_);
        std::uint64_t strange = ~block.plain;
        if ((strange | endsWithReturn_) != 0) {
            strange = WithoutReturns(strange, bytes, block.feeds);
        }
        std::uint64_t left = ~std::uint64_t{0};
        for (std::uint64_t feeds = block.feeds; feeds != 0; feeds &= feeds - 1) {
            const std::uint64_t line = left & (feeds ^ (feeds - 1));
            if ((strange & line) != 0 || wordsSeen_ > words_ ||
                !HasBits(starts & line, words_ - wordsSeen_)) {
                return false;
            }
            wordsSeen_ = 0;
            left &= ~line;
            run_.bytes = base + static_cast<std::size_t>(std::countr_zero(feeds)) + 1;
            if (++run_.lines == most_) {
                return false;
            }
        }
        wordsSeen_ += static_cast<unsigned>(std::popcount(starts & left));
        endsInWord_ = block.letters >> 63;
        return (strange & left) == 0;
    }

    const NumberLineRun& Run() const { return run_; }

private:
    // What is strange apart from the carriage returns before line feeds. One alone is a line end of
    // another kind.
    std::uint64_t WithoutReturns(std::uint64_t strange, const char* bytes, std::uint64_t feeds) {
        constexpr std::uint64_t kLast = std::uint64_t{1} << 63;
        const std::uint64_t returns = ReturnsAt(bytes);
        strange &= ~(returns & (feeds >> 1 | kLast));
        strange |= endsWithReturn_ & ~feeds;
        endsWithReturn_ = returns >> 63;
        return strange;
    }

    std::uint64_t most_;
    unsigned words_;
    NumberLineRun run_;
    unsigned wordsSeen_ = 0;            // of the line that the block before ended in
    std::uint64_t endsInWord_ = 0;      // 1 when that block ended in a word
    std::uint64_t endsWithReturn_ = 0;  // 1 when it ended with a carriage return
};

}  // namespace

NumberLineRun CountNumberLines(std::string_view text, std::uint64_t most, unsigned words) {
    LineCounter counter(most, words);
    std::size_t base = 0;
    if (most == 0) {
        return {};
    }
    for (; base + kBlockBytes <= text.size(); base += kBlockBytes) {
        if (!counter.Take(text.data() + base, base)) {
            return counter.Run();
        }
    }
    // What is left, filled up with bytes that no plain line holds.
    char last[kBlockBytes];
    std::memset(last, 'x', sizeof last);
    std::memcpy(last, text.data() + base, text.size() - base);
    static_cast<void>(counter.Take(last, base));
    return counter.Run();
}

bool HoldsNumbers(std::string_view text, unsigned words) {
    unsigned found = 0;
    bool isInWord = false;
    if (text.ends_with('\r')) {
        text.remove_suffix(1);
    }
    for (const char byte : text) {
        if (IsByte(byte, kNumberByte)) {
            found += isInWord ? 0 : 1;
            isInWord = true;
        } else if (IsByte(byte, kBlankByte)) {
            isInWord = false;
        } else {
            return false;
        }
    }
    return found == words;
}

void ReadNumberLines(std::string_view text, std::vector<shr::Vec2d>& points) {
    const char* at = text.data();
    const char* const end = at + text.size();
    const auto next = [&] {
        while (at != end && !IsByte(*at, kNumberByte)) {
            ++at;
        }
        const char* const begin = at;
        while (at != end && IsByte(*at, kNumberByte)) {
            ++at;
        }
        return ReadDouble({begin, static_cast<std::size_t>(at - begin)});
    };
    while (true) {
        while (at != end && !IsByte(*at, kNumberByte)) {
            ++at;
        }
        if (at == end) {
            return;
        }
        const double x = next();
        points.push_back({x, next()});
    }
}

}  // namespace app
