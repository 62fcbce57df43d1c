#include "standalone/IoHost.h"

#include "host/platform/Stdio.h"

#include <array>
#include <optional>
#include <string_view>

namespace zeio {

namespace {

constexpr std::array<std::wstring_view, 4> kTrueWords = {L"1", L"true", L"yes", L"on"};
constexpr std::array<std::wstring_view, 4> kFalseWords = {L"0", L"false", L"no", L"off"};

std::wstring_view Trimmed(std::wstring_view text) {
    constexpr std::wstring_view blanks = L" \t";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::wstring_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool AreEqualNoCase(std::wstring_view left, std::wstring_view right) {
    return left.size() == right.size() &&
           platform::CompareNoCase(left.data(), right.data(), left.size()) == 0;
}

std::optional<bool> ParseValue(std::wstring_view text) {
    for (std::size_t i = 0; i < kTrueWords.size(); ++i) {
        if (AreEqualNoCase(text, kTrueWords[i])) {
            return true;
        }
        if (AreEqualNoCase(text, kFalseWords[i])) {
            return false;
        }
    }
    return std::nullopt;
}

// The value that one "name=value" or "name" gives to a name; empty when it gives it none.
std::optional<bool> ParsePair(std::wstring_view pair, std::wstring_view name) {
    const std::size_t equals = pair.find(L'=');
    if (!AreEqualNoCase(Trimmed(pair.substr(0, equals)), Trimmed(name))) {
        return std::nullopt;
    }
    return equals == std::wstring_view::npos ? true : ParseValue(Trimmed(pair.substr(equals + 1)));
}

}  // namespace

IoHost::IoHost(standalone::OptionStore& store) : store_(store) {}

IoHost::~IoHost() = default;

bool IoHost::GetOption(const std::wstring& name, bool& value, bool /*persistent*/) {
    const std::optional<bool> stored = store_.Get(name);
    value = stored.value_or(value);
    return stored.has_value();
}

void IoHost::SetOption(const std::wstring& name, bool value, bool persistent) {
    // An option that can't be stored still holds for this run, which is all that a filter needs.
    static_cast<void>(store_.Set(name, value, persistent));
}

bool IoHost::GetStringOption(const std::wstring& options, const std::wstring& name, bool& value) {
    std::optional<bool> found;
    std::wstring_view rest = options;
    while (!rest.empty()) {
        const std::size_t end = rest.find(L';');
        if (const std::optional<bool> given = ParsePair(rest.substr(0, end), name)) {
            found = given;
        }
        rest = end == std::wstring_view::npos ? std::wstring_view() : rest.substr(end + 1);
    }
    value = found.value_or(value);
    return found.has_value();
}

int IoHost::Warning(shr::IError::WarnStyle /*style*/, const std::wstring& /*text*/) {
    return 0;
}

void IoHost::ProgressStart(const std::wstring& /*title*/, bool /*canCancel*/,
                           bool /*hasProportion*/) {}

void IoHost::ProgressProportion(double /*fraction*/) {}

void IoHost::ProgressIndeterminate() {}

void IoHost::ProgressMessage(const std::wstring& /*text*/) {}

void IoHost::ProgressEnd() {}

void IoHost::ImportObject(TrBase& /*object*/) {}

void IoHost::ShowHelp(const std::wstring& /*topic*/, const std::wstring& /*anchor*/) {}

HWND IoHost::ParentWindow() const {
    return nullptr;
}

HINSTANCE IoHost::ModuleInstance() const {
    return nullptr;
}

}  // namespace zeio
