// MIF/MID pairs made from a seed: every kind of object and clause, every column type, several
// charsets, numbers in many spellings.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace convert_test {

class RandomPair {
public:
    explicit RandomPair(unsigned seed);

    const std::string& Mif() const { return mif_; }
    const std::string& Mid() const { return mid_; }

private:
    struct Letters {
        std::string_view charset;
        std::vector<std::string_view> words;  // as bytes of the charset
    };

    void AddHeader();
    void AddColumns();
    void AddObject(bool isMember);
    void AddLine(bool isMember);
    void AddRegion();
    void AddPoints(bool isMember);
    void AddBoxed();
    void AddText();
    void AddCollection();
    void AddSections(const std::string& keyword, int least);
    void AddVertices(int count);
    void AddRow();
    std::string Value(std::string_view type);
    std::string Date();
    std::string Time();

    void AddPen();
    void AddBrush();
    void AddSymbol();
    void AddFont();
    void Clause(const std::string& text) { mif_ += "    " + text + '\n'; }

    int Pick(int from, int to);
    bool Chance(int percent) { return Pick(1, 100) <= percent; }
    template <typename Item> const Item& OneOf(const std::vector<Item>& items) {
        return items[static_cast<std::size_t>(Pick(0, static_cast<int>(items.size()) - 1))];
    }
    std::string Number();
    std::string Point() { return Number() + ' ' + Number(); }
    std::string Box();
    std::string Color() { return std::to_string(Pick(0, 0xFFFFFF)); }
    std::string Keyword(std::string word);
    std::string Text();  // of letters of the charset, with its quotes doubled

    std::mt19937 random_;
    Letters letters_;
    char delimiter_ = ',';
    std::vector<std::string> types_;
    std::string mif_;
    std::string mid_;
};

}  // namespace convert_test
