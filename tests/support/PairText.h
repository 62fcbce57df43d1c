// A MIF/MID pair cut into its parts by the simplest means, so that two pairs can be compared by
// what they say. It knows well-formed files only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace support {

struct PairText {
    std::string version;
    std::string charset;
    std::string delimiter;
    std::string clause;                // with one blank or none where there were any
    std::vector<std::string> others;   // header lines of other kinds
    std::vector<std::string> columns;  // "name type", types in lower case without blanks
    // "point 1 2 | symbol 34 255 9": keywords in lower case, numbers in their shortest form,
    // clauses in the order of the alphabet. Members of a collection follow it.
    std::vector<std::string> objects;
    std::vector<std::vector<std::string>> rows;  // values without quotes, numbers as above
};

PairText PairTextOf(std::string_view mif, std::string_view mid);

// Two lines for each part, object and row that differs: "object 1: none", "  becomes point 1 2"; ""
// for equal pairs. The versions are not compared.
std::string DifferenceOf(const PairText& left, const PairText& right);

}  // namespace support
