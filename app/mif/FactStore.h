// Keeps the facts of a file's objects until the import comes to them: in order, in little memory.
#pragma once

#include "app/base/Spool.h"
#include "app/mif/ObjectFacts.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace app {

// Equal facts in a row take no room, and what is longer than kMostInMemory goes to a temporary
// file.
class FactStore {
public:
    static constexpr std::size_t kMostInMemory = std::size_t{4} << 20;

    // Throws Failure when the temporary folder has no room.
    void Add(const ObjectFacts& facts);

    // Called once, behind the last Add. Throws Failure.
    void Finish();

    // Hands the facts out again, in their order. The store must outlive it. Several readers take
    // turns: each begins anew.
    class Reader {
    public:
        explicit Reader(FactStore& store) : bytes_(store.spool_) {}

        // The next facts, valid until the ones behind them are asked for; null behind the last.
        const ObjectFacts* Next();

    private:
        void Decode(ObjectFacts& facts);
        std::uint64_t TakeNumber();

        Spool::Reader bytes_;
        std::uint64_t repeats_ = 0;
        ObjectFacts last_;
        std::string clauses_;  // of the record that had new ones last
    };

private:
    void FlushRecord();

    Spool spool_{kMostInMemory};
    std::string record_;       // the last facts
    std::string next_;         // those that are added
    std::uint64_t count_ = 0;  // how often in a row the last facts were added
    std::string clauses_;      // of the last facts that had other clauses than those before
};

}  // namespace app
