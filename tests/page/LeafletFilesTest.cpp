#include "app/page/LeafletFiles.h"

#include <gtest/gtest.h>

namespace {

constexpr auto kNowhere = std::string_view::npos;

TEST(TheMapLibrary, IsWhole) {
    EXPECT_EQ(app::LeafletScript().substr(0, 10), "!function(");
    EXPECT_NE(app::LeafletScript().find("window.L="), kNowhere);
    EXPECT_NE(app::LeafletStyles().find(".leaflet-control-layers"), kNowhere);
}

TEST(TheMapLibrary, AsksForNoFile) {
    EXPECT_EQ(app::LeafletScript().find("sourceMappingURL"), kNowhere);
    EXPECT_EQ(app::LeafletStyles().find("url(images"), kNowhere);
    EXPECT_NE(app::LeafletStyles().find("url(data:image/png;base64,iVBOR"), kNowhere);
}

TEST(TheMapLibrary, CanNotEndItsElement) {
    EXPECT_EQ(app::LeafletScript().find("</script"), kNowhere);
    EXPECT_EQ(app::LeafletStyles().find("</style"), kNowhere);
}

}  // namespace
