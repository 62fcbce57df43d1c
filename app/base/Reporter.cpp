#include "app/base/Reporter.h"

#include "app/base/platform/System.h"

#include <algorithm>
#include <cmath>

namespace app {
namespace {

constexpr std::chrono::milliseconds kFirstShown{500};
constexpr std::chrono::milliseconds kRedrawn{100};
constexpr int kBarWidth = 30;

constexpr std::string_view kRed = "\033[1;31m";
constexpr std::string_view kYellow = "\033[1;33m";
constexpr std::string_view kCyan = "\033[36m";
constexpr std::string_view kPlain = "\033[0m";

// "1:05" or "2:03:09".
std::string Duration(double seconds) {
    const long long whole = std::llround(seconds);
    char text[48];
    if (whole >= 3600) {
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60,
                      whole % 60);
    } else {
        std::snprintf(text, sizeof text, "%lld:%02lld", whole / 60, whole % 60);
    }
    return text;
}

// "12.3 MB/s", "340 kB/s" or "25 files/s".
std::string Rate(double perSecond, ProgressUnit unit) {
    char text[48];
    if (unit == ProgressUnit::Files) {
        std::snprintf(text, sizeof text, perSecond < 10.0 ? "%.1f files/s" : "%.0f files/s",
                      perSecond);
    } else if (perSecond < 1e6) {
        std::snprintf(text, sizeof text, "%.0f kB/s", perSecond / 1e3);
    } else {
        std::snprintf(text, sizeof text, "%.1f MB/s", perSecond / 1e6);
    }
    return text;
}

// Returns how many bytes of a UTF-8 sequence follow its first one.
int BytesBehind(unsigned char first) {
    if (first < 0xC0) {
        return 0;
    }
    return first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
}

void AppendVisible(std::string& text, unsigned char byte) {
    static constexpr char kDigits[] = "0123456789abcdef";
    text += {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]};
}

}  // namespace

std::string TerminalText(std::string_view utf8) {
    std::string text;
    int behind = 0;  // bytes to come of the sequence under way
    for (std::size_t at = 0; at < utf8.size(); ++at) {
        const auto byte = static_cast<unsigned char>(utf8[at]);
        const auto next = static_cast<unsigned char>(at + 1 < utf8.size() ? utf8[at + 1] : 0);
        const bool isHigh = byte >= 0x80 && byte < 0xA0;
        if ((byte < 0x20 && byte != '\n' && byte != '\t') || byte == 0x7F ||
            (isHigh && behind == 0)) {
            AppendVisible(text, byte);
            behind = 0;
        } else if (byte == 0xC2 && next >= 0x80 && next < 0xA0) {
            AppendVisible(text, next);
            behind = 0;
            ++at;
        } else {
            const bool isContinuation = byte >= 0x80 && byte < 0xC0 && behind > 0;
            behind = isContinuation ? behind - 1 : BytesBehind(byte);
            text += utf8[at];
        }
    }
    return text;
}

Reporter::Reporter(std::FILE* stream, bool isTerminal, bool useColor)
    : stream_(stream), useColor_(useColor), showProgress_(isTerminal) {}

void Reporter::Error(std::string_view text) {
    Line("error", kRed, text);
}

void Reporter::Warning(std::string_view text) {
    if (verbosity_ >= Verbosity::Normal) {
        Line("warning", kYellow, text);
    }
}

void Reporter::Note(std::string_view text) {
    if (verbosity_ >= Verbosity::Normal) {
        Line("note", kCyan, text);
    }
}

void Reporter::Detail(std::string_view text) {
    if (verbosity_ == Verbosity::Verbose) {
        Line("detail", "", text);
    }
}

void Reporter::Line(std::string_view kind, std::string_view color, std::string_view text) {
    ClearBar();
    while (!text.empty() && text.back() == '\n') {
        text.remove_suffix(1);
    }
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string line = "qolf: ";
        const bool isColored = useColor_ && !color.empty();
        line.append(isColored ? color : "").append(kind).append(isColored ? kPlain : "");
        line.append(": ").append(TerminalText(text.substr(begin, end - begin))).append("\n");
        Put(line);
        begin = end + 1;
    }
}

void Reporter::Put(const std::string& text) {
    if (kept_ != nullptr) {
        *kept_ += text;
    } else {
        static_cast<void>(WriteToStream(stream_, text));  // there is no other place to say so
        std::fflush(stream_);
    }
}

void Reporter::StartProgress(std::string_view title, double total, ProgressUnit unit) {
    title_ = TerminalText(title);
    total_ = total;
    unit_ = unit;
    isRunning_ = true;
    started_ = Clock::now();
    drawn_ = started_;
}

void Reporter::Progress(double fraction) {
    if (!isRunning_ || !showProgress_ || kept_ != nullptr || verbosity_ == Verbosity::Quiet) {
        return;
    }
    const Clock::time_point now = Clock::now();
    if (now - started_ < kFirstShown || now - drawn_ < kRedrawn) {
        return;
    }
    DrawBar(fraction, now);
}

void Reporter::DrawBar(double fraction, Clock::time_point now) {
    const double seconds = std::chrono::duration<double>(now - started_).count();
    std::string line = "\r" + title_ + " ";
    if (fraction >= 0.0) {
        const double share = std::clamp(fraction, 0.0, 1.0);
        const int full = static_cast<int>(share * kBarWidth);
        line += "[" + std::string(static_cast<std::size_t>(full), '#') +
                std::string(static_cast<std::size_t>(kBarWidth - full), '.') + "] " +
                std::to_string(static_cast<int>(share * 100.0)) + "%";
        if (share > 0.02) {
            line += total_ > 0.0 ? ", " + Rate(share * total_ / seconds, unit_) : "";
            line += ", " + Duration(seconds * (1.0 - share) / share) + " left";
        }
    } else {
        line += "... " + Duration(seconds);
    }
    line += "\033[K";
    Put(line);
    drawn_ = now;
    isDrawn_ = true;
}

void Reporter::EndProgress() {
    ClearBar();
    isRunning_ = false;
}

void Reporter::ClearBar() {
    if (isDrawn_) {
        Put("\r\033[K");
        isDrawn_ = false;
    }
}

}  // namespace app
