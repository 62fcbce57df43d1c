// Keeps the facts of a file's objects until the import comes to them: in order, in little memory.
#pragma once

#include "app/base/TempFolder.h"
#include "app/mif/ObjectFacts.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace app {

// Equal facts in a row take no room, and what is longer than kMostInMemory goes to a private
// temporary file.
class FactStore {
public:
    static constexpr std::size_t kMostInMemory = std::size_t{4} << 20;

    FactStore();
    ~FactStore();
    FactStore(const FactStore&) = delete;
    FactStore& operator=(const FactStore&) = delete;

    // Throws Failure when the temporary folder has no room.
    void Add(const ObjectFacts& facts);

    // Called once, behind the last Add. Throws Failure.
    void Finish();

    // Hands the facts out again, in their order. The store must outlive it. Several readers take
    // turns: each begins anew.
    class Reader {
    public:
        explicit Reader(FactStore& store);

        // The next facts, valid until the ones behind them are asked for; null behind the last.
        const ObjectFacts* Next();

    private:
        void Decode(ObjectFacts& facts);
        std::uint64_t TakeNumber();
        std::string_view TakeBytes(std::size_t count);
        bool IsAtEnd();
        void Fill(std::size_t wanted);

        FactStore& store_;
        std::string buffer_;      // bytes of the file that were read ahead
        std::string_view bytes_;  // what is left of them, or of the memory
        std::uint64_t left_ = 0;  // bytes behind them in the file
        std::uint64_t repeats_ = 0;
        ObjectFacts last_;
        std::string clauses_;  // of the record that had new ones last
    };

private:
    void FlushRecord();
    void Spill();

    std::string bytes_;        // all records, or those that are not in the file yet
    std::string record_;       // the last facts
    std::string next_;         // those that are added
    std::uint64_t count_ = 0;  // how often in a row the last facts were added
    std::string clauses_;      // of the last facts that had other clauses than those before
    std::uint64_t spilled_ = 0;
    std::optional<TempFolder> folder_;  // absent until something is spilled
    std::filesystem::path path_;
    std::FILE* file_ = nullptr;
};

}  // namespace app
