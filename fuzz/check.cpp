// What qolf check says about a pair of files, and the copy that it repairs.
#include "app/base/Errors.h"
#include "app/check/PairCheck.h"
#include "app/check/RepairMif.h"
#include "fuzz/FuzzInput.h"

#include <cstdint>
#include <filesystem>

namespace {

class SaidSink : public app::FindingSink {
public:
    void Add(const app::Finding& finding) override {
        fuzz::Require(!finding.message.empty(), "a finding says what it is");
    }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::WritePair(fuzz::TextOf(data, size));
    const std::filesystem::path input = fuzz::PathOf("map.mif");
    const std::filesystem::path fixed = fuzz::PathOf("fixed.mif");
    std::filesystem::remove(fixed);
    SaidSink sink;
    app::CheckPair(input, {}, sink);
    try {
        const app::RepairReport report = app::RepairMif(input, fixed, app::IfExists::Overwrite);
        fuzz::Require((report.count > 0) == std::filesystem::exists(fixed),
                      "a copy is written when there is something to repair");
    } catch (const app::Failure& failure) {
        fuzz::Require(*failure.what() != '\0', "a failure says what it is");
    }
    return 0;
}
