#include "app/mif/MifHeader.h"

#include "app/base/Errors.h"
#include "app/base/InputFile.h"
#include "app/base/Paths.h"
#include "app/mif/HeaderPass.h"
#include "app/mif/Numbers.h"
#include "app/mif/Units.h"
#include "app/mif/Words.h"

#include <cerrno>
#include <cstring>
#include <string_view>

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
    if (header.ownBounds) {
        text += "Bounds " + PairText(header.ownBounds->minX, header.ownBounds->minY) + " " +
                PairText(header.ownBounds->maxX, header.ownBounds->maxY) + "\n";
    }
    return text + "Data\n";
}

std::string UnitProblem(const MifHeader& header) {
    constexpr std::string_view kEarth = "coordsys earth";
    const std::string& unit = header.unitsText;
    const bool isEarth =
        EqualsIgnoringCase(std::string_view(header.coordSysText).substr(0, kEarth.size()), kEarth);
    const Unit* const known = FindUnit(unit);
    if (!isEarth || unit.empty() || (known != nullptr && known->isKnownToModule) ||
        ReadDouble(unit) > 0.0) {
        return {};
    }
    return "the module does not know the unit \"" + unit +
           "\" and takes the coordinates as metres; a number of units per metre in its place is "
           "understood";
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
