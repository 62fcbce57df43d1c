// What the fuzz targets share: a place for files, a host that checks what it is handed, and a
// requirement that ends the run as a crash does.
#pragma once

#include "standalone/IoHost.h"
#include "standalone/OptionStore.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fuzz {

// Ends the program when it is not so.
void Require(bool isSo, const char* statement);

std::string_view TextOf(const std::uint8_t* data, std::size_t size);

// The path of a file in the folder of this process, in memory where the system has such a place.
// The folder goes with the process.
std::wstring PathOf(const std::string& name);

// Writes a file there, byte for byte.
void WriteFile(const std::string& name, std::string_view bytes);
std::string ReadFile(const std::string& name);
void RemoveFile(const std::string& name);

// Writes map.mif and map.mid from a text of both with a record separator (0x1E) between them;
// without one there is no map.mid.
void WritePair(std::string_view text);

// Requires of an imported object what each must keep. True for a graphic one.
bool CheckObject(const zeio::TrBase& object);

struct StoreOwner {
    standalone::OptionStore store;
};

// Requires of every imported object what each must keep, and counts.
class CheckingHost : private StoreOwner, public zeio::IoHost {
public:
    CheckingHost() : IoHost(StoreOwner::store) {}

    void ImportObject(zeio::TrBase& object) override;
    int Warning(shr::IError::WarnStyle style, const std::wstring& text) override;

    std::size_t objectCount() const { return objectCount_; }  // graphic objects
    std::size_t warningCount() const { return warningCount_; }
    standalone::OptionStore& optionStore() { return store; }

private:
    std::size_t objectCount_ = 0;
    std::size_t warningCount_ = 0;
};

}  // namespace fuzz
