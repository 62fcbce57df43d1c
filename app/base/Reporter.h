// What the command says on stderr: errors, warnings, notes and the progress bar.
#pragma once

#include <chrono>
#include <cstdio>
#include <string>
#include <string_view>

namespace app {

// Returns the text with all control characters but tabs and line feeds made visible ("\\x1b"): they
// could drive the terminal. Those above 0x7F are found as UTF-8 characters and as single bytes.
std::string TerminalText(std::string_view utf8);

// What the rate of a progress bar counts.
enum class ProgressUnit { Bytes, Files };

// What is shown, from the least to the most. BarOnly shows the progress bar and errors: it is for a
// second pass whose warnings the first pass has given already.
enum class Verbosity { Quiet, BarOnly, Normal, Verbose };

// Writes messages of four kinds. Errors are always shown, warnings and notes unless quiet, details
// only when verbose. Every line has the form "qolf: warning: text"; a line break in a text begins
// another line of that form. Control characters are made visible (TerminalText).
class Reporter {
public:
    // `stream` stays the caller's and must outlive the reporter. `isTerminal` allows the progress
    // bar, `useColor` allows colours.
    Reporter(std::FILE* stream, bool isTerminal, bool useColor);

    // Appends the lines to `kept`, which stays the caller's and must outlive the reporter. There is
    // no progress bar.
    explicit Reporter(std::string& kept) : kept_(&kept) {}

    void SetVerbosity(Verbosity verbosity) { verbosity_ = verbosity; }
    Verbosity GetVerbosity() const { return verbosity_; }

    // Allows or forbids the progress bar. At first it is allowed on a terminal.
    void SetProgress(bool isWanted) { showProgress_ = isWanted; }

    void Error(std::string_view text);
    void Warning(std::string_view text);
    void Note(std::string_view text);
    void Detail(std::string_view text);

    // Starts a bar. `total` is all the work in the unit, from which the bar makes its rate; with 0
    // it shows no rate.
    void StartProgress(std::string_view title, double total = 0.0,
                       ProgressUnit unit = ProgressUnit::Bytes);

    // Moves the bar to a fraction from 0 to 1; a negative fraction means that it is not known. The
    // bar appears half a second after its start and is redrawn at most ten times a second.
    void Progress(double fraction);
    void EndProgress();

    // Clears the bar, which the next progress draws again: call it before another stream writes to
    // the same terminal.
    void HideProgress() { ClearBar(); }

private:
    using Clock = std::chrono::steady_clock;

    void Put(const std::string& text);
    void Line(std::string_view kind, std::string_view color, std::string_view text);
    void DrawBar(double fraction, Clock::time_point now);
    void ClearBar();

    std::FILE* stream_ = nullptr;  // null when the lines are kept
    std::string* kept_ = nullptr;
    bool useColor_ = false;
    bool showProgress_ = false;
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
