#include "app/check/Report.h"

#include <utility>

namespace app::check {

Report::Report(FindingSink& sink, std::filesystem::path mif, std::filesystem::path mid,
               std::uint64_t maxPerCode)
    : sink_(sink), mif_(std::move(mif)), mid_(std::move(mid)), maxPerCode_(maxPerCode) {}

void Report::Add(Code code, const Place& place, std::string message, std::string advice) {
    CodeCount& count = counts_[static_cast<std::size_t>(code)];
    ++count.found;
    if (maxPerCode_ != 0 && count.reported == maxPerCode_) {
        return;
    }
    ++count.reported;
    const CodeInfo& info = InfoOf(code);
    sink_.Add({.code = &info,
               .file = place.file == PairFile::Mif ? mif_ : mid_,
               .line = place.line,
               .object = place.object,
               .message = std::move(message),
               .advice = advice.empty() ? info.advice : std::move(advice)});
}

std::string Counted(std::uint64_t count, const char* one, const char* many) {
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

}  // namespace app::check
