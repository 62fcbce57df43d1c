// Bytes that wait until all of them are known: in memory, and in a private temporary file when they
// are many.
#pragma once

#include "app/base/TempFolder.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace app {

class Spool {
public:
    static constexpr std::size_t kMostInMemory = std::size_t{32} << 20;

    explicit Spool(std::size_t mostInMemory = kMostInMemory) : mostInMemory_(mostInMemory) {}

    // Throws Failure when the temporary folder can't be written.
    void Write(std::string_view bytes) {
        bytes_.append(bytes);
        if (bytes_.size() > mostInMemory_) {
            Spill();
        }
    }

    // The bytes of a number or a plain structure, for Reader::Take.
    template <typename Plain> void Put(const Plain& value) {
        static_assert(std::is_trivially_copyable_v<Plain>);
        Write({reinterpret_cast<const char*>(&value), sizeof value});
    }

    std::uint64_t Size() const { return spilled_ + bytes_.size(); }

    // Gives the bytes back in their order. One reader at a time; each begins anew. Nothing may be
    // written while one is at work.
    class Reader {
    public:
        explicit Reader(Spool& spool);

        bool IsAtEnd() const { return left_ == 0; }

        // Valid until the next call. Throws Failure when there are fewer, or when the temporary
        // file can't be read.
        std::string_view Read(std::size_t count) {
            if (ahead_.size() < count) {
                Fill(count);
            }
            const std::string_view taken = ahead_.substr(0, count);
            ahead_.remove_prefix(count);
            left_ -= count;
            return taken;
        }

        template <typename Plain> Plain Take() {
            static_assert(std::is_trivially_copyable_v<Plain>);
            Plain value;
            std::memcpy(&value, Read(sizeof value).data(), sizeof value);
            return value;
        }

    private:
        void Fill(std::size_t count);

        Spool& spool_;
        std::uint64_t left_;      // bytes that Read has not given yet
        std::string_view ahead_;  // the first of them
        std::uint64_t inFile_;    // those behind ahead_ that are in the file
        std::string buffer_;
    };

private:
    void Spill();
    [[noreturn]] void Fail(const char* action) const;

    std::size_t mostInMemory_;
    std::string bytes_;  // all of them, or those behind the file's
    std::uint64_t spilled_ = 0;
    std::optional<TempFolder> folder_;  // absent until something is spilled
    std::filesystem::path path_;
    std::fstream file_;
};

}  // namespace app
