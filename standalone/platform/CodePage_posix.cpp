#include "standalone/platform/CodePage.h"

#include "host/platform/Utf8.h"

#include <cerrno>
#include <cstdint>
#include <iconv.h>
#include <map>
#include <memory>

namespace standalone {

namespace {

constexpr const char* kWide = "WCHAR_T";
constexpr std::intptr_t kNoConverter = -1;  // what iconv_open gives on failure
constexpr std::size_t kFailed = static_cast<std::size_t>(-1);

class Converter {
public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    ~Converter() {
        if (IsOpen()) {
            iconv_close(handle_);
        }
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool IsOpen() const { return reinterpret_cast<std::intptr_t>(handle_) != kNoConverter; }

    // Back to the initial shift state.
    void Reset() { iconv(handle_, nullptr, nullptr, nullptr, nullptr); }

    // Converts as much of input as it can and appends the result to output. 0 when all of it was
    // taken, else errno: EILSEQ or EINVAL, with input at what can't be converted.
    int Append(std::string_view& input, std::string& output);

    // Appends what leads back to the initial shift state.
    void Finish(std::string& output);

private:
    iconv_t handle_;
};

int Converter::Append(std::string_view& input, std::string& output) {
    // iconv takes its input through a pointer to non-const, but does not write there.
    char* next = const_cast<char*>(input.data());
    std::size_t left = input.size();
    while (left > 0) {
        char buffer[1024];
        char* end = buffer;
        std::size_t space = sizeof buffer;
        const std::size_t result = iconv(handle_, &next, &left, &end, &space);
        const int error = result == kFailed ? errno : 0;
        output.append(buffer, sizeof buffer - space);
        if (error != 0 && error != E2BIG) {
            input.remove_prefix(input.size() - left);
            return error;
        }
    }
    input = {};
    return 0;
}

void Converter::Finish(std::string& output) {
    char buffer[64];
    char* end = buffer;
    std::size_t space = sizeof buffer;
    if (iconv(handle_, nullptr, nullptr, &end, &space) != kFailed) {
        output.append(buffer, sizeof buffer - space);
    }
}

struct Converters {
    explicit Converters(const std::string& name)
        : decoder(kWide, name.c_str()), encoder(name.c_str(), kWide) {}

    bool AreOpen() const { return decoder.IsOpen() && encoder.IsOpen(); }

    Converter decoder;
    Converter encoder;
};

// A converter has a state, so each thread keeps its own.
Converters& ConvertersFor(const std::string& name) {
    thread_local std::map<std::string, std::unique_ptr<Converters>> known;
    std::unique_ptr<Converters>& converters = known[name];
    if (!converters) {
        converters = std::make_unique<Converters>(name);
    }
    return *converters;
}

std::string_view AsBytes(std::wstring_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

std::wstring FromBytes(const std::string& bytes) {
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(wchar_t));
    return text;
}

}  // namespace

bool HasCodePage(const std::string& name) {
    return !name.empty() && ConvertersFor(name).AreOpen();
}

std::wstring DecodeCodePage(const std::string& name, std::string_view bytes) {
    constexpr wchar_t replacement = platform::kReplacementCharacter;
    Converters& converters = ConvertersFor(name);
    if (!converters.AreOpen()) {
        std::wstring text;
        for (const char byte : bytes) {
            text +=
                static_cast<unsigned char>(byte) < 0x80 ? static_cast<wchar_t>(byte) : replacement;
        }
        return text;
    }
    converters.decoder.Reset();
    std::string wide;
    while (converters.decoder.Append(bytes, wide) != 0) {
        wide += AsBytes({&replacement, 1});
        bytes.remove_prefix(1);
    }
    // Some decoders hold a character back until they know that nothing combines with it.
    converters.decoder.Finish(wide);
    return FromBytes(wide);
}

std::string EncodeCodePage(const std::string& name, std::wstring_view text) {
    constexpr wchar_t questionMark = L'?';
    Converters& converters = ConvertersFor(name);
    std::string result;
    if (!converters.AreOpen()) {
        for (const wchar_t character : text) {
            result += character >= 0 && character < 0x80 ? static_cast<char>(character) : '?';
        }
        return result;
    }
    converters.encoder.Reset();
    std::string_view rest = AsBytes(text);
    while (converters.encoder.Append(rest, result) != 0) {
        std::string_view substitute = AsBytes({&questionMark, 1});
        static_cast<void>(converters.encoder.Append(substitute, result));  // every code page has it
        rest.remove_prefix(sizeof(wchar_t));
    }
    converters.encoder.Finish(result);
    return result;
}

}  // namespace standalone
