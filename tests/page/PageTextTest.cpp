#include "app/page/PageText.h"

#include <gtest/gtest.h>

namespace {

std::string PageString(std::string_view text) {
    std::string out = "before:";
    app::AppendPageString(out, text);
    return out.substr(7);
}

TEST(TextOfAPage, IsNoMarkup) {
    EXPECT_EQ(app::HtmlText("<img src=x onerror='a(\"b\")'> & co"),
              "&lt;img src=x onerror=&#39;a(&quot;b&quot;)&#39;&gt; &amp; co");
}

TEST(TextOfAPage, KeepsLettersOfAllScripts) {
    EXPECT_EQ(app::HtmlText("\xD0\xA3\xD0\xBB\xD0\xB8\xD1\x86\xD0\xB0"),
              "\xD0\xA3\xD0\xBB\xD0\xB8\xD1\x86\xD0\xB0");
}

TEST(TextOfAPage, LosesControlCharactersAndTurningMarks) {
    EXPECT_EQ(app::HtmlText("a\x01\x1B"
                            "b\xE2\x80\xAE"
                            "c"),
              "abc");
}

TEST(AStringOfAPage, CanNotEndItsElement) {
    EXPECT_EQ(PageString("</script><!--&"), R"("\u003c/script\u003e\u003c!--\u0026")");
}

TEST(AStringOfAPage, KeepsQuotesAndBackslashes) {
    EXPECT_EQ(PageString("\"a\\\" 'b'"), R"("\"a\\\" 'b'")");
}

TEST(AStringOfAPage, LosesControlCharactersAndTurningMarks) {
    EXPECT_EQ(PageString("a\x01\xE2\x80\xAE"
                         "b"),
              R"("ab")");
}

TEST(AStringOfAPage, EndsInAnEllipsisWhenItIsCut) {
    EXPECT_EQ(PageString(std::string(1500, 'x')), '"' + std::string(1000, 'x') + "\xE2\x80\xA6\"");
    EXPECT_EQ(PageString(std::string(1000, 'x')), '"' + std::string(1000, 'x') + '"');
}

TEST(AColourOfAPage, HasItsAlpha) {
    std::string out;
    app::AppendColor(out, {255, 0, 18, 128});

    EXPECT_EQ(out, "\"#ff001280\"");
}

std::string Rounded(double value, int decimals) {
    std::string out;
    app::AppendRounded(out, value, decimals);
    return out;
}

TEST(ARoundedNumber, HasNoZerosAtItsEnd) {
    EXPECT_EQ(Rounded(24.500000001, 6), "24.5");
    EXPECT_EQ(Rounded(24.1234567, 6), "24.123457");
    EXPECT_EQ(Rounded(1234.5, 0), "1235");
}

TEST(ARoundedNumber, IsNeverMinusZero) {
    EXPECT_EQ(Rounded(-0.0000001, 6), "0");
}

TEST(ARoundedNumber, KeepsANumberThatHasNoSuchDecimals) {
    EXPECT_EQ(Rounded(1e300, 9), "1e+300");
}

}  // namespace
