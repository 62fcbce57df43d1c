#include "app/feature/Values.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using app::ColumnKind;

struct KindRow {
    std::string name;
    std::string text;
    ColumnKind kind;
};
class KindOfText : public testing::TestWithParam<KindRow> {};

TEST_P(KindOfText, Is) {
    EXPECT_EQ(app::KindOfText(GetParam().text), GetParam().kind);
}

INSTANTIATE_TEST_SUITE_P(
    , KindOfText,
    testing::Values(KindRow{"ADate", "2026-01-31", ColumnKind::Date},
                    KindRow{"AMonthThatIsNone", "2026-13-01", ColumnKind::Char},
                    KindRow{"ADayThatIsNone", "2026-01-00", ColumnKind::Char},
                    KindRow{"ADateWithBlanks", "2026-01-31 ", ColumnKind::Char},
                    KindRow{"ATime", "23:59:59", ColumnKind::Time},
                    KindRow{"ATimeWithMilliseconds", "00:00:00.125", ColumnKind::Time},
                    KindRow{"ATimeWithMicroseconds", "00:00:00.125001", ColumnKind::Char},
                    KindRow{"ATimeWithoutSeconds", "23:59", ColumnKind::Char},
                    KindRow{"AnHourThatIsNone", "24:00:00", ColumnKind::Char},
                    KindRow{"AMoment", "2026-01-31T10:11:12", ColumnKind::DateTime},
                    KindRow{"AMomentOfTheWorld", "2026-01-31T10:11:12.5Z", ColumnKind::DateTime},
                    KindRow{"AMomentOfAnotherZone", "2026-01-31T10:11:12+02:00", ColumnKind::Char},
                    KindRow{"AMomentWithABlank", "2026-01-31 10:11:12", ColumnKind::Char},
                    KindRow{"ANumber", "20260131", ColumnKind::Char},
                    KindRow{"Nothing", "", ColumnKind::Char}),
    [](const auto& row) { return row.param.name; });

}  // namespace
