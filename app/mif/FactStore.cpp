#include "app/mif/FactStore.h"

#include <cstring>
#include <utility>

namespace app {
namespace {

// What the first byte of a record holds beside the kind.
enum Flag : unsigned char {
    kKindBits = 0x0F,
    kIsMultiple = 0x10,
    kIsOwn = 0x20,
    kHasNewClauses = 0x40,
    kHasMore = 0x80,  // a second byte follows
};
enum MoreFlag : unsigned char {
    kHasNoClauses = 1,
    kHasText = 2,
    kHasNumbers = 4,
    kHasPoints = 8,
    kHasMembers = 16,
};

void PutNumber(std::string& to, std::uint64_t number) {
    while (number >= 0x80) {
        to += static_cast<char>(number | 0x80);
        number >>= 7;
    }
    to += static_cast<char>(number);
}

void PutBytes(std::string& to, const void* bytes, std::size_t size) {
    to.append(static_cast<const char*>(bytes), size);
}

unsigned char MoreOf(const ObjectFacts& facts) {
    return static_cast<unsigned char>(
        (facts.clauses.empty() ? kHasNoClauses : 0) |
        (facts.kind == ObjectKind::Text ? kHasText : 0) | (facts.hasNumbers ? kHasNumbers : 0) |
        (facts.points.empty() ? 0 : kHasPoints) | (facts.members.empty() ? 0 : kHasMembers));
}

// `clauses` are those of the record before; they are not written again.
void Encode(std::string& to, const ObjectFacts& facts, std::string& clauses) {
    const unsigned char more = MoreOf(facts);
    const bool hasNewClauses = !facts.clauses.empty() && facts.clauses != clauses;
    to += static_cast<char>(static_cast<unsigned char>(facts.kind) |
                            (facts.isMultiple ? kIsMultiple : 0) | (facts.isOwn ? kIsOwn : 0) |
                            (hasNewClauses ? kHasNewClauses : 0) | (more != 0 ? kHasMore : 0));
    if (more != 0) {
        to += static_cast<char>(more);
    }
    if (facts.isMultiple) {
        PutNumber(to, facts.handedOver);
    }
    if (hasNewClauses) {
        clauses = facts.clauses;
        PutNumber(to, clauses.size());
        to += clauses;
    }
    if ((more & kHasText) != 0) {
        PutNumber(to, facts.text.size());
        to += facts.text;
    }
    if ((more & kHasNumbers) != 0) {
        PutBytes(to, facts.numbers.data(), sizeof facts.numbers);
    }
    if ((more & kHasPoints) != 0) {
        PutNumber(to, facts.points.size());
        PutBytes(to, facts.points.data(), facts.points.size() * sizeof(shr::Vec2d));
        PutNumber(to, facts.partSizes.size());
        for (const std::size_t size : facts.partSizes) {
            PutNumber(to, size);
        }
    }
    if ((more & kHasMembers) != 0) {
        PutNumber(to, facts.members.size());
        for (const ObjectFacts& member : facts.members) {
            Encode(to, member, clauses);
        }
    }
}

}  // namespace

void FactStore::Add(const ObjectFacts& facts) {
    next_.clear();
    Encode(next_, facts, clauses_);
    if (count_ > 0 && next_ == record_) {
        ++count_;
        return;
    }
    FlushRecord();
    std::swap(record_, next_);
    count_ = 1;
}

void FactStore::FlushRecord() {
    if (count_ == 0) {
        return;
    }
    std::string count;
    PutNumber(count, count_);
    spool_.Write(count);
    spool_.Write(record_);
}

void FactStore::Finish() {
    FlushRecord();
    count_ = 0;
}

const ObjectFacts* FactStore::Reader::Next() {
    if (repeats_ == 0) {
        if (bytes_.IsAtEnd()) {
            return nullptr;
        }
        repeats_ = TakeNumber();
        Decode(last_);
    }
    --repeats_;
    return &last_;
}

void FactStore::Reader::Decode(ObjectFacts& facts) {
    const auto first = bytes_.Take<unsigned char>();
    const auto more = (first & kHasMore) != 0 ? bytes_.Take<unsigned char>() : 0;
    facts.kind = static_cast<ObjectKind>(first & kKindBits);
    facts.isMultiple = (first & kIsMultiple) != 0;
    facts.isOwn = (first & kIsOwn) != 0;
    facts.handedOver = facts.isMultiple ? TakeNumber() : 1;
    const bool isForModule = !facts.isOwn && facts.kind != ObjectKind::None &&
                             facts.kind != ObjectKind::Collection &&
                             facts.kind != ObjectKind::Skipped;
    facts.handedOver = isForModule ? facts.handedOver : 0;
    if ((first & kHasNewClauses) != 0) {
        clauses_ = bytes_.Read(TakeNumber());
    }
    facts.clauses = (more & kHasNoClauses) != 0 ? std::string() : clauses_;
    facts.text = (more & kHasText) != 0 ? std::string(bytes_.Read(TakeNumber())) : std::string();
    facts.hasNumbers = (more & kHasNumbers) != 0;
    if (facts.hasNumbers) {
        facts.numbers = bytes_.Take<decltype(facts.numbers)>();
    }
    facts.points.clear();
    facts.partSizes.clear();
    if ((more & kHasPoints) != 0) {
        const std::size_t count = TakeNumber();
        facts.points.resize(count);
        std::memcpy(facts.points.data(), bytes_.Read(count * sizeof(shr::Vec2d)).data(),
                    count * sizeof(shr::Vec2d));
        facts.partSizes.resize(TakeNumber());
        for (std::size_t& size : facts.partSizes) {
            size = TakeNumber();
        }
    }
    facts.members.clear();
    if ((more & kHasMembers) != 0) {
        facts.members.resize(TakeNumber());
        for (ObjectFacts& member : facts.members) {
            Decode(member);
        }
    }
}

std::uint64_t FactStore::Reader::TakeNumber() {
    std::uint64_t number = 0;
    for (unsigned shift = 0;; shift += 7) {
        const auto byte = bytes_.Take<unsigned char>();
        number |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
        if (byte < 0x80) {
            return number;
        }
    }
}

}  // namespace app
