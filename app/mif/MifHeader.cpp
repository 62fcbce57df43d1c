#include "app/mif/MifHeader.h"

#include "app/base/Errors.h"
#include "app/base/InputFile.h"
#include "app/base/Paths.h"
#include "app/mif/HeaderPass.h"
#include "app/mif/Numbers.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace app {
namespace {

std::string PairText(double x, double y) {
    return "(" + NumberAsText(x) + ", " + NumberAsText(y) + ")";
}

}  // namespace

char DelimiterOf(const MifHeader& header) {
    return header.delimiter.empty() ? '\t' : header.delimiter.front();
}

std::string HeaderForModule(const MifHeader& header) {
    std::string text = "Version 300\nCharset \"Neutral\"\n";
    if (!header.coordSys.text.empty() && header.coordSys.isReadByModule) {
        std::string clause = header.coordSys.text;
        std::ranges::replace(clause, '\r', ' ');
        text += clause + "\n" + std::string(header.coordSys.lackingParts, '\n');
    }
    if (header.ownBounds) {
        text += "Bounds " + PairText(header.ownBounds->minX, header.ownBounds->minY) + " " +
                PairText(header.ownBounds->maxX, header.ownBounds->maxY) + "\n";
    }
    return text + "Data\n";
}

MifHeader ScanHeader(const std::filesystem::path& path) {
    const InputFile stream = OpenInput(path);
    if (stream == nullptr) {
        throw Failure(PathText(path) + ": can't open: " + std::strerror(errno));
    }
    StreamSource input(stream.get());
    LineReader lines(input);
    FindingCounter counter;
    MifHeader header;
    PassHeader(lines, counter, TabRewriting::Off, header);
    return header;
}

}  // namespace app
