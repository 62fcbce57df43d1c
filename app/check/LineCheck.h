// Checks what holds for every line of both files of a pair: characters and line ends.
#pragma once

#include "app/check/CharsetCheck.h"
#include "app/mif/FindingCounter.h"
#include "app/mif/LineReader.h"

#include <cstdint>
#include <memory>
#include <string>

namespace app {

// Looks at each line of one file once, before it is read as something. Reports lone carriage
// returns, a missing last line end, NUL bytes, and characters that the charset does not have.
class LineCheck {
public:
    // All must outlive the check. The charset may become known while the lines come; `object` is
    // the one that is under check.
    LineCheck(FileOfPair file, FindingCounter& report, const std::string& charset,
              const std::uint64_t& object)
        : file_(file), report_(report), charset_(charset), object_(object) {}

    // Called once per line, in the file's order.
    void See(const MifLine& line);

    // Returns the tester of the charset as it is known by now.
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
