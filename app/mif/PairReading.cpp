#include "app/mif/PairReading.h"

namespace app {

class PairReading::Recorder : public PassSink {
public:
    explicit Recorder(PairReading& reading) : reading_(reading) {}

    void TakeHeader(const MifHeader& header) override {
        if (!header.isReadByModule) {
            Cut(0, header.dataOffset, HeaderForModule(header));
        }
    }
    void Take(const ObjectFacts& facts) override { reading_.facts_.Add(facts); }
    void Cut(std::uint64_t begin, std::uint64_t end, std::string_view text) override {
        reading_.copy_.Cut(begin, end, text);
    }

private:
    PairReading& reading_;
};

PairReading::PairReading(const std::filesystem::path& mif) : copy_(mif) {
    Recorder recorder(*this);
    pair_ = PassPair(mif, recorder);
    facts_.Finish();
    copy_.Finish();
}

bool PairReading::HasRowPerMember() const {
    const MifCounts& objects = pair_.objects;
    const std::uint64_t collections = objects.Of(ObjectKind::Collection);
    return collections > 0 && pair_.rows && *pair_.rows != objects.Objects() &&
           *pair_.rows == objects.Objects() - collections + objects.members;
}

bool PairReading::HasRowForSkipped() const {
    return !pair_.rows || *pair_.rows != pair_.objects.Objects();
}

}  // namespace app
