// Texts that are numbers, or nearly so: what every reader of MIF numbers is tested with.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace support {

struct NumberText {
    std::string name;  // letters and digits
    std::string text;
};
inline void PrintTo(const NumberText& row, std::ostream* out) {
    *out << row.text;
}

inline std::vector<NumberText> NumberTexts() {
    return {NumberText{"Empty", ""},
            NumberText{"Integer", "42"},
            NumberText{"Coordinate", "-123.456789"},
            NumberText{"Zero", "0"},
            NumberText{"MinusZero", "-0"},
            NumberText{"MinusZeroPoint", "-0.0"},
            NumberText{"NoDigitBeforeThePoint", ".5"},
            NumberText{"MinusPointFive", "-.5"},
            NumberText{"NoDigitBehindThePoint", "5."},
            NumberText{"Point", "."},
            NumberText{"MinusPoint", "-."},
            NumberText{"Minus", "-"},
            NumberText{"MinusWord", "-x"},
            NumberText{"Plus", "+1.5"},
            NumberText{"PlusAlone", "+"},
            NumberText{"PlusMinus", "+-1"},
            NumberText{"MinusPlus", "-+1"},
            NumberText{"TwoPoints", "1.2.3"},
            NumberText{"Comma", "1,5"},
            NumberText{"TrailingJunk", "12.5km"},
            NumberText{"LeadingBlanks", " \t\n\v\f\r12"},
            NumberText{"BlankBehindTheSign", "- 1"},
            NumberText{"OtherLeadingSpace", "\xA0"
                                            "1"},
            NumberText{"Word", "pline"},
            NumberText{"Exponent", "1e3"},
            NumberText{"UpperExponent", "1E+3"},
            NumberText{"MinusExponent", "12.5e-7"},
            NumberText{"NoExponentDigits", "1e"},
            NumberText{"NoExponentDigitsBehindTheSign", "1e+x"},
            NumberText{"ExponentAlone", "e5"},
            NumberText{"OtherExponentLetter", "1d5"},
            NumberText{"FifteenDigits", "123456789012345"},
            NumberText{"FourteenDecimals", "0.12345678901234"},
            NumberText{"SeventeenDigits", "12345.678901234567"},
            NumberText{"EighteenDigits", "-0.123456789012345678"},
            NumberText{"ManyDigits", "3.14159265358979323846264338327950288419716939937510"},
            NumberText{"HalfWay", "9007199254740993"},
            NumberText{"BarelyMoreThanHalfWay", "9007199254740993.0000000000000000000000000001"},
            NumberText{"Largest", "1.7976931348623157e308"},
            NumberText{"JustTooLarge", "1.7976931348623159e308"},
            NumberText{"TooLarge", "1e309"},
            NumberText{"MinusTooLarge", "-1e999"},
            NumberText{"HugeExponent", "1e99999999999999999999"},
            NumberText{"SmallestNormal", "2.2250738585072014e-308"},
            NumberText{"BelowNormal", "2.2250738585072011e-308"},
            NumberText{"Smallest", "4.9406564584124654e-324"},
            NumberText{"HalfOfSmallest", "2e-324"},
            NumberText{"OverHalfOfSmallest", "3e-324"},
            NumberText{"TooSmall", "1e-400"},
            NumberText{"MinusTooSmall", "-1e-400"},
            NumberText{"TinyExponent", "1e-99999999999999999999"},
            NumberText{"ZeroWithAHugeExponent", "0e999999"},
            NumberText{"ZerosAndAHugeExponent", "0.00e99999"},
            NumberText{"LongAndTooLarge", "1" + std::string(400, '0')},
            NumberText{"LongAndTooLargeWithAPoint", "1" + std::string(400, '0') + ".5"},
            NumberText{"LongAndTooSmall", "0." + std::string(400, '0') + "1"},
            NumberText{"LongButInRange", "0." + std::string(400, '0') + "1e400"},
            NumberText{"LongZerosInFront", std::string(400, '0') + "1.5"},
            NumberText{"Infinity", "inf"},
            NumberText{"MinusInfinity", "-INFINITY"},
            NumberText{"InfinityAndMore", "infinite"},
            NumberText{"PartOfInfinity", "in"},
            NumberText{"Nan", "nan"},
            NumberText{"MinusNan", "-NaN"},
            NumberText{"NanWithAWord", "nan()"},
            NumberText{"Hexadecimal", "0x1F"},
            NumberText{"MinusHexadecimal", "-0X1f.8"},
            NumberText{"HexadecimalExponent", "0x1.8p-3"},
            NumberText{"HexadecimalPoint", "0x.8"},
            NumberText{"HexadecimalWithoutDigits", "0x"},
            NumberText{"HexadecimalJunk", "0xg"},
            NumberText{"HexadecimalPointAlone", "0x."},
            NumberText{"HexadecimalTooLarge", "0x1p99999"},
            NumberText{"HexadecimalTooSmall", "-0x1p-99999"},
            NumberText{"HexadecimalLong", "0x1" + std::string(300, '0') + "p-1200"},
            NumberText{"HexadecimalZero", "-0x0p5"},
            NumberText{"HexadecimalTwoSigns", "0x1p+-8"},
            NumberText{"HexadecimalBadExponent", "0x1p+x"},
            NumberText{"TwoSignsInAnExponent", "1e+-8"}};
}

}  // namespace support
