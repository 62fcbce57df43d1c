#include "tests/check/KeptFindings.h"

#include <fstream>
#include <iterator>

namespace {

class KeepingSink : public app::FindingSink {
public:
    explicit KeepingSink(KeptFindings& kept) : kept_(kept) {}

    void Add(const app::Finding& finding) override {
        const bool isMid = finding.file.extension() == ".mid";
        kept_.names.push_back((isMid ? "mid:" : "") + std::string(finding.code->name) + "@" +
                              std::to_string(finding.line));
        kept_.messages.push_back(finding.message);
        kept_.advice.push_back(finding.advice);
        kept_.objects.push_back(finding.object);
        kept_.errorCount += finding.code->severity == app::Severity::Error ? 1U : 0U;
    }
    void AddEdit(app::FileOfPair, const app::Edit&) override { ++kept_.editCount; }

private:
    KeptFindings& kept_;
};

}  // namespace

KeptFindings FindingsOf(const std::filesystem::path& mif) {
    KeptFindings kept;
    KeepingSink sink(kept);
    static_cast<void>(app::CheckPair(mif, {.maxPerCode = 0}, sink));
    return kept;
}

KeptFindings ImportFindingsOf(const std::filesystem::path& mif) {
    KeptFindings kept;
    KeepingSink sink(kept);
    app::FindingCounts counts{};
    app::CheckByImport(mif, QOLF_MODULE, sink, counts);
    return kept;
}

std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}
