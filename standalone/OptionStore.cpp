#include "standalone/OptionStore.h"

#include "standalone/Text.h"
#include "standalone/platform/PrivateFiles.h"

#include <fstream>
#include <utility>

namespace standalone {

namespace {

std::optional<bool> ParseValue(const std::string& text) {
    if (text == "true") {
        return true;
    }
    if (text == "false") {
        return false;
    }
    return std::nullopt;
}

bool FitsALine(const std::wstring& name) {
    return !name.empty() && name.find_first_of(L"\r\n") == std::wstring::npos;
}

}  // namespace

OptionStore::OptionStore() = default;

OptionStore::OptionStore(std::filesystem::path file) : file_(std::move(file)) {
    ReadFile();
}

OptionStore::~OptionStore() = default;

std::filesystem::path OptionStore::UserFile() {
    const std::filesystem::path folder = UserConfigFolder();
    return folder.empty() ? folder : folder / "qolf" / "options.txt";
}

std::optional<bool> OptionStore::Get(const std::wstring& name) const {
    const auto found = entries_.find(name);
    return found == entries_.end() ? std::nullopt : std::optional(found->second.value);
}

bool OptionStore::Set(const std::wstring& name, bool value, bool persistent) {
    const auto [position, isNew] = entries_.try_emplace(name);
    Entry& entry = position->second;
    const bool isChanged = isNew || entry.value != value;
    entry.value = value;
    if (!persistent) {
        entry.isForgotten = true;
        return true;
    }
    if (entry.isForgotten && !isChanged) {
        return true;
    }
    entry.isForgotten = false;
    if (file_.empty() || entry.inFile == value) {
        return true;
    }
    if (!FitsALine(name)) {
        return false;
    }
    const std::optional<bool> previous = std::exchange(entry.inFile, value);
    if (!WriteFile()) {
        entry.inFile = previous;  // the next storing tries again
        return false;
    }
    return true;
}

std::map<std::wstring, bool> OptionStore::All() const {
    std::map<std::wstring, bool> values;
    for (const auto& [name, entry] : entries_) {
        values.emplace(name, entry.value);
    }
    return values;
}

bool OptionStore::Clear() {
    entries_.clear();
    std::error_code error;
    return file_.empty() || !std::filesystem::exists(file_, error) || WriteFile();
}

void OptionStore::ReadFile() {
    std::ifstream stream(file_, std::ios::binary);
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        const std::size_t equals = line.rfind('=');  // a name may have one, a value never
        if (equals == std::string::npos || equals == 0) {
            continue;
        }
        if (const std::optional<bool> value = ParseValue(line.substr(equals + 1))) {
            entries_[Widen(line.substr(0, equals))] = {*value, value, /*isForgotten=*/false};
        }
    }
}

bool OptionStore::WriteFile() const {
    std::string text;
    for (const auto& [name, entry] : entries_) {
        if (entry.inFile) {
            text += Narrow(name) + (*entry.inFile ? "=true\n" : "=false\n");
        }
    }
    return ReplaceContents(file_, text);
}

}  // namespace standalone
