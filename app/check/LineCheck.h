// Checks what holds for every line of both files of a pair: characters and line ends.
#pragma once

#include "app/check/CharsetCheck.h"
#include "app/mif/FindingCounter.h"
#include "app/mif/LineReader.h"

#include <cstdint>
#include <memory>
#include <string>

namespace app {

class LineCheck {
public:
    // All must outlive the check. The charset may become known while the lines come; `object` is
    // the one that is under check.
    LineCheck(FileOfPair file, FindingCounter& report, const std::string& charset,
              const std::uint64_t& object)
        : file_(file), report_(report), charset_(charset), object_(object) {}

    void See(const MifLine& line);

    // Of the charset as it is now.
    CharsetTester& Tester();

private:
    void SeeLineEnd(const MifLine& line, const Place& place);
    void SeeMissingEnd(const MifLine& line, const Place& place);
    void SeeCharacters(const MifLine& line, const Place& place);

    FileOfPair file_;
    FindingCounter& report_;
    const std::string& charset_;
    const std::uint64_t& object_;
    std::unique_ptr<CharsetTester> tester_;
    std::string testerName_;
    LineEnd lastLineEnd_ = LineEnd::Lf;
    bool isReturnReported_ = false;
    bool isUtf8Reported_ = false;
    bool isNeutralReported_ = false;
};

}  // namespace app
