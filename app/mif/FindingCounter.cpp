#include "app/mif/FindingCounter.h"

#include <utility>

namespace app {

FindingCounter::FindingCounter(FindingSink& sink, std::filesystem::path mif,
                               std::filesystem::path mid, std::uint64_t maxPerCode)
    : sink_(&sink), mif_(std::move(mif)), mid_(std::move(mid)), maxPerCode_(maxPerCode) {}

void FindingCounter::Add(FindingCode code, const Place& place, std::string message,
                         std::string advice) {
    FindingCount& count = counts_[static_cast<std::size_t>(code)];
    if (count.found++ == 0) {
        count.first = place;
    }
    if (place.object != 0 && place.object != count.lastObject) {
        ++count.objects;
        count.lastObject = place.object;
        count.kinds |= 1U << static_cast<unsigned>(kind_);
    }
    if (sink_ == nullptr || (maxPerCode_ != 0 && count.reported == maxPerCode_)) {
        return;
    }
    ++count.reported;
    const FindingInfo& info = InfoOf(code);
    sink_->Add({.code = &info,
                .file = place.file == FileOfPair::Mif ? mif_ : mid_,
                .line = place.line,
                .object = place.object,
                .message = std::move(message),
                .advice = advice.empty() ? info.advice : std::move(advice),
                .isCaredFor = info.readBy == ReadByCommand::Yes});
}

}  // namespace app
