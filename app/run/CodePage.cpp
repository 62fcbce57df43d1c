#include "app/run/CodePage.h"

#include "app/base/Errors.h"
#include "app/mif/Charsets.h"
#include "standalone/Text.h"

namespace app {

bool AreLettersBelieved(const MifHeader& header, const std::string& encoding) {
    const Charset* const declared = FindCharset(header.charset);
    return !encoding.empty() || (declared != nullptr && declared->isMultiByte);
}

void SetEncoding(const std::string& encoding) {
    if (!standalone::SetCodePage0(encoding)) {
        throw UsageError("--encoding " + encoding + ": the system knows no such encoding");
    }
}

void SetCodePageFor(const MifHeader& header, const std::string& encoding, bool areLettersUtf8,
                    const std::string& name, Reporter& reporter) {
    if (!encoding.empty()) {
        SetEncoding(encoding);
        return;
    }
    CodePageChoice choice = CodePageOf(header);
    if (areLettersUtf8 && !AreLettersBelieved(header, encoding) && choice.codePage != "UTF-8") {
        choice = CodePageOfCharset("UTF-8");
        reporter.Note(name + ": the letters beyond ASCII are UTF-8, not " +
                      (header.charset.empty() ? "the charset that files without a Charset have"
                                              : header.charset) +
                      "; read so (--encoding names another)");
    }
    if (!choice.warning.empty()) {
        reporter.Warning(name + ": " + choice.warning);
    }
    if (!standalone::SetCodePage0(choice.codePage)) {
        reporter.Warning(name + ": the system can't read " + choice.codePage +
                         "; taken as Windows-1252");
        static_cast<void>(standalone::SetCodePage0(std::string(kDefaultCodePage)));
    }
}

}  // namespace app
