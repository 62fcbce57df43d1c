#include "tests/support/MutatedText.h"

#include <iterator>

namespace support {

const std::string_view kHeaderToMutate =
    "Version 650\r\nCharset \"WindowsLatin1\"\nDelimiter \";\"\nUnique 1\nIndex 2\n"
    "CoordSys Earth Projection 7, 9999, 10, 1, 2, 3, 4, 5, 6, 7, 8, \"m\", 9, 0, 5, 1, 2, 3\n"
    "CoordSys Earth\n  Projection 3, 104, \"survey ft\", 1, 2, 3, 4, 5, 6\n"
    "CoordSys Nonearth Units \"m\" Bounds (0, 0) (1, 1)\nBounds (-1.5e3,2) (3,4)\n"
    "Transform 1 1 0 0\nColumns 3\n  ID Integer\n  NAME Char(20)\n  \"A\" Decimal(8,2)\n"
    "Data\n\nPline 2\n1 2\n3 4\n    Pen (1,2,0)\n";

namespace {

// A few changes of the text: bytes replaced, dropped, repeated, keywords put somewhere, an end.
std::string Mutate(std::string_view original, std::mt19937& random) {
    static constexpr std::string_view kPieces[] = {"\"",
                                                   "\n",
                                                   "\r",
                                                   ",",
                                                   "(",
                                                   ")",
                                                   "\t",
                                                   "Columns 2147483647\n",
                                                   "Version ",
                                                   "Data\n",
                                                   "CoordSys Earth Projection 1, 104\n",
                                                   "-2147483648",
                                                   "1e999",
                                                   "Delimiter \"\"\n"};
    std::string text(original);
    for (unsigned change = random() % 8; change-- > 0 && !text.empty();) {
        const std::size_t place = random() % text.size();
        switch (random() % 5) {
        case 0:
            text[place] = static_cast<char>(random());
            break;
        case 1:
            text.erase(place, random() % 20);
            break;
        case 2:
            text.insert(place, text.substr(random() % text.size(), random() % 40));
            break;
        case 3:
            text.insert(place, kPieces[random() % std::size(kPieces)]);
            break;
        default:
            text.resize(random() % 4 == 0 ? place : text.size());
        }
    }
    return text;
}

std::string RandomBytes(std::mt19937& random) {
    std::string text(random() % 400, '\0');
    for (char& character : text) {
        character = static_cast<char>(random());
    }
    return text;
}

}  // namespace

std::string MutatedText(std::string_view original, std::mt19937& random) {
    return random() % 10 == 0 ? RandomBytes(random) : Mutate(original, random);
}

}  // namespace support
