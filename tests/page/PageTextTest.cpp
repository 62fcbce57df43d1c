#include "app/page/PageText.h"

#include <gtest/gtest.h>

namespace {

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

TEST(JsonOfAPage, CanNotEndItsElement) {
    EXPECT_EQ(app::JsonForScript(R"({"a":"</script><!--&"})"),
              R"({"a":"\u003c/script\u003e\u003c!--\u0026"})");
}

TEST(JsonOfAPage, StaysAsItIsWithoutMarkup) {
    EXPECT_EQ(app::JsonForScript(R"({"a":[1,2.5,"\\u003c"]})"), R"({"a":[1,2.5,"\\u003c"]})");
}

}  // namespace
