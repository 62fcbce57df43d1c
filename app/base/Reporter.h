// What the command says on stderr: errors, warnings, notes and the progress bar.
#pragma once

#include <chrono>
#include <cstdio>
#include <string>
#include <string_view>

namespace app {

// Text for a terminal: control characters but tabs and line feeds, which could drive it, become
// visible ("\\x1b"). Those above 0x7F are looked for as UTF-8 and as single bytes.
std::string TerminalText(std::string_view utf8);

// What a rate counts.
enum class ProgressUnit { Bytes, Files };

// From the least to the most. BarOnly is for what another pass has said already.
enum class Verbosity { Quiet, BarOnly, Normal, Verbose };

// Errors are always written, warnings and notes unless quiet, details only when verbose. Every
// line has the form "qolf: warning: text"; line breaks inside a text start new lines of that form.
// Texts are shown as TerminalText gives them.
class Reporter {
public:
    // stream stays the caller's. isTerminal allows the progress bar; useColor allows colours.
    Reporter(std::FILE* stream, bool isTerminal, bool useColor);

    void SetVerbosity(Verbosity verbosity) { verbosity_ = verbosity; }
    Verbosity GetVerbosity() const { return verbosity_; }

    // Whether a progress bar may be shown at all. Initially when stream is a terminal.
    void SetProgress(bool isWanted) { showProgress_ = isWanted; }

    void Error(std::string_view text);
    void Warning(std::string_view text);
    void Note(std::string_view text);
    void Detail(std::string_view text);

    // Starts a bar. total is the whole of the work, for the rate that the bar shows; 0 shows none.
    void StartProgress(std::string_view title, double total = 0.0,
                       ProgressUnit unit = ProgressUnit::Bytes);

    // Moves the bar: a fraction from 0 to 1, or a negative one when it is not known. The bar
    // appears once a run has lasted half a second and is redrawn at most ten times a second.
    void Progress(double fraction);
    void EndProgress();

private:
    using Clock = std::chrono::steady_clock;

    void Line(std::string_view kind, std::string_view color, std::string_view text);
    void DrawBar(double fraction, Clock::time_point now);
    void ClearBar();

    std::FILE* stream_;
    bool useColor_;
    bool showProgress_;
    Verbosity verbosity_ = Verbosity::Normal;
    std::string title_;
    double total_ = 0.0;  // 0 shows no rate
    ProgressUnit unit_ = ProgressUnit::Bytes;
    bool isRunning_ = false;
    bool isDrawn_ = false;
    Clock::time_point started_;
    Clock::time_point drawn_;
};

}  // namespace app
