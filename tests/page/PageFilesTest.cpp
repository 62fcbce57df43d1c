#include "app/page/PageFiles.h"

#include <gtest/gtest.h>

namespace {

constexpr auto kNowhere = std::string_view::npos;

TEST(TheScriptOfPages, HasTheMapLibraryAndItsOwnPart) {
    EXPECT_EQ(app::EmbeddedScript().substr(0, 10), "!function(");
    EXPECT_NE(app::EmbeddedScript().find("const Painter = L.Renderer.extend"), kNowhere);
    EXPECT_TRUE(app::EmbeddedScript().ends_with("})();\n"));
}

TEST(TheStylesOfPages, HaveThoseOfTheMapLibraryAndTheirOwn) {
    EXPECT_NE(app::EmbeddedStyles().find(".leaflet-control-zoom"), kNowhere);
    EXPECT_NE(app::EmbeddedStyles().find(".attributes"), kNowhere);
}

TEST(TheFilesOfPages, AskForNoOtherFile) {
    EXPECT_EQ(app::EmbeddedScript().find("sourceMappingURL"), kNowhere);
    EXPECT_EQ(app::EmbeddedStyles().find("url(images"), kNowhere);
    EXPECT_EQ(app::EmbeddedStyles().find("@import"), kNowhere);
}

TEST(TheFilesOfPages, CanNotEndTheirElement) {
    EXPECT_EQ(app::EmbeddedScript().find("</script"), kNowhere);
    EXPECT_EQ(app::EmbeddedScript().find("<!--"), kNowhere);
    EXPECT_EQ(app::EmbeddedStyles().find("</style"), kNowhere);
    EXPECT_EQ(app::EmbeddedNotice().find("--"), kNowhere);
}

TEST(TheNoticeOfPages, IsTheLicenceOfTheMapLibrary) {
    EXPECT_NE(app::EmbeddedNotice().find("Vladimir Agafonkin"), kNowhere);
    EXPECT_NE(app::EmbeddedNotice().find("Redistributions in binary form"), kNowhere);
    EXPECT_EQ(app::EmbeddedNotice().find("GPL"), kNowhere);
}

TEST(TheHashesOfPages, AreThoseOfAPolicy) {
    EXPECT_TRUE(app::EmbeddedScriptHash().starts_with("sha256-"));
    EXPECT_EQ(app::EmbeddedScriptHash().size(), 7U + 44U);
    EXPECT_EQ(app::EmbeddedStylesHash().size(), 7U + 44U);
    EXPECT_NE(app::EmbeddedScriptHash(), app::EmbeddedStylesHash());
}

}  // namespace
