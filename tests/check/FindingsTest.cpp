// The findings of the broken files in tests/data/check: what is wrong is in each file's name.
#include "tests/check/KeptFindings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace {

struct FindingRow {
    std::string file;                   // without .mif
    std::vector<std::string> findings;  // name@line, mid: before those of the .mid file
};

void PrintTo(const FindingRow& row, std::ostream* out) {
    *out << row.file;
}

// Letters, digits and underscores only, as the names of tests have to be.
std::string RowName(std::string file) {
    std::ranges::replace(file, '-', '_');
    std::ranges::replace(file, '/', '_');
    return file;
}

const std::vector<FindingRow>& Rows() {
    static const std::vector<FindingRow> rows = {
        FindingRow{"affine", {"affine-ignored@4"}},
        FindingRow{"albers-without-azimuth", {"albers-displaced@4", "coordsys-bounds-ignored@4"}},
        FindingRow{"albers-at-the-end-of-its-line", {"albers-displaced@4", "line-lost@4"}},
        FindingRow{"new-zealand-map-grid", {"nzmg-displaced@4"}},
        FindingRow{"earth-alone", {"coordsys-kind-ignored@4", "line-lost@4"}},
        FindingRow{"data-swallowed", {"data-swallowed@6"}},
        FindingRow{"coordsys-layout", {"coordsys-kind-ignored@4"}},
        FindingRow{"more-parameters-than-taken", {"coordsys-rest-ignored@4"}},
        FindingRow{"second-charset", {"clause-repeated@4"}},
        FindingRow{"two-clauses-on-a-line", {"header-rest-ignored@1"}},
        FindingRow{"number-too-large", {"number-unreadable@9"}},
        FindingRow{"empty-text-on-its-own-line", {"text-empty@10"}},
        FindingRow{"japanese", {}},
        FindingRow{"mid-in-capitals", {"mid-name-case@0"}},
        FindingRow{"empty-field-and-quotes-under-tab",
                   {"delimiter-missing@8", "final-line-end-missing@11",
                    "mid:empty-field-under-tab@1", "mid:final-line-end-missing@2"}},
        FindingRow{"arc", {"arc-misplaced@9"}},
        FindingRow{"azimuthal-range", {"range-ignored@4"}},
        FindingRow{"bad-bounds", {"bounds-unreadable@5", "outside-bounds@10"}},
        FindingRow{"bad-styles",
                   {"style-unreadable@10", "style-incomplete@11", "clause-without-effect@12"}},
        FindingRow{"blank-after-minus", {"blank-after-minus@9", "blank-after-minus@9"}},
        FindingRow{"bounds-on-coordsys-line",
                   {"coordsys-bounds-ignored@4", "blank-in-ignored-bounds@4"}},
        FindingRow{"byte-order-mark", {"byte-order-mark@1"}},
        FindingRow{"clause-on-object-line", {"clause-on-object-line@9"}},
        FindingRow{"clean-crlf", {}},
        FindingRow{"column-name-with-blank", {"column-name-cut@6"}},
        FindingRow{"numbers-on-next-line", {"numbers-on-next-line@9"}},
        FindingRow{"clean-longitude-latitude", {}},
        FindingRow{"clean-none", {}},
        FindingRow{"clean-region", {}},
        FindingRow{"collection-nested", {"collection-nested@10", "mid:collection-takes-rows@0"}},
        FindingRow{"collection-takes-rows", {"mid:collection-takes-rows@0"}},
        FindingRow{"columns-one-off", {"column-count@5"}},
        FindingRow{"columns-swallowed", {"line-swallowed@4"}},
        FindingRow{"commas-between-numbers", {"comma-in-numbers@9"}},
        FindingRow{"count-no-number", {"count-invalid@9"}},
        FindingRow{"count-on-next-line", {"count-on-next-line@9"}},
        FindingRow{"decimal-comma-in-value", {"mid:decimal-comma-in-value@1"}},
        FindingRow{"decimal-commas", {"decimal-comma@10", "decimal-comma@10", "decimal-comma@11"}},
        FindingRow{"doubled-quote", {"mid:doubled-quote@1"}},
        FindingRow{"doubled-vertex", {"duplicate-vertices@9"}},
        FindingRow{"empty-delimiter", {"delimiter-empty@3"}},
        FindingRow{"empty-field-under-default-tab",
                   {"delimiter-missing@7", "mid:empty-field-under-tab@1"}},
        FindingRow{"empty-field-under-tab",
                   {"mid:empty-field-under-tab@1", "mid:decimal-comma-in-value@2"}},
        FindingRow{"empty-line-in-object", {"empty-line-in-object@11"}},
        FindingRow{"empty-row", {"mid:row-empty@2"}},
        FindingRow{"empty-text", {"text-empty@9"}},
        FindingRow{"empty", {"file-unreadable@0"}},
        FindingRow{"fractional-angle", {"angle-truncated@11"}},
        FindingRow{"line-break-in-value", {"mid:line-break-in-value@1"}},
        FindingRow{"lone-carriage-returns",
                   {"lone-carriage-return@1", "mid:lone-carriage-return@1"}},
        FindingRow{"long-delimiter", {"delimiter-ignored@3"}},
        FindingRow{"long-row", {"mid:row-too-long@1"}},
        FindingRow{"neutral-with-accents", {"mid:neutral-bytes@1"}},
        FindingRow{"no-comma-after-projection", {"coordsys-malformed@4"}},
        FindingRow{"no-coordsys", {"coordsys-missing@6"}},
        FindingRow{"no-data-line", {"data-missing@5", "mid:mid-missing@0"}},
        FindingRow{"no-final-line-end", {"final-line-end-missing@9"}},
        FindingRow{"no-mid", {"mid:mid-missing@0"}},
        FindingRow{"no-objects", {"no-objects@0"}},
        FindingRow{"no-version", {"version-missing@6"}},
        FindingRow{"none-without-line-end", {"last-object-lost@9"}},
        FindingRow{"nul-byte", {"nul-byte@10", "clause-without-effect@10"}},
        FindingRow{"number-missing", {"number-missing@9"}},
        FindingRow{"number-unreadable", {"number-unreadable@9"}},
        FindingRow{"object-without-row", {"mid:object-without-row@0"}},
        FindingRow{"one-vertex-line", {"one-vertex-line@9"}},
        FindingRow{"outside-bounds", {"outside-bounds@10"}},
        FindingRow{"text-outside-bounds", {"outside-bounds@10", "outside-bounds@12"}},
        FindingRow{"outside-charset", {"mid:outside-charset@1"}},
        FindingRow{"outside-earth", {"outside-earth@10"}},
        FindingRow{"parameters-missing", {"parameters-missing@4"}},
        FindingRow{"projection-affine-and-bounds-lambert", {"projection-unknown@4"}},
        FindingRow{"projection-double-stereographic", {"projection-unknown@4"}},
        FindingRow{"projection-extended-transverse-mercator", {"projection-unknown@4"}},
        FindingRow{"projection-finnish-transverse-mercator", {"projection-unknown@4"}},
        FindingRow{"projection-transverse-mercator-with-bounds",
                   {"projection-unknown@4", "coordsys-bounds-ignored@4"}},
        FindingRow{"repeated-column", {"column-repeated@7"}},
        FindingRow{"rest-after-numbers", {"rest-ignored@9"}},
        FindingRow{"reversed-bounds", {"bounds-reversed@5"}},
        FindingRow{"ring-count-one-too-large", {"count-mismatch@10"}},
        FindingRow{"ring-count-one-too-small", {"count-mismatch@10"}},
        FindingRow{"ring-count-two-too-large", {"count-mismatch@10"}},
        FindingRow{"ring-without-area", {"ring-too-small@10"}},
        FindingRow{"row-without-object", {"mid:row-without-object@0"}},
        FindingRow{"rows-without-columns", {"mid:rows-without-columns@0"}},
        FindingRow{"section-count-one-too-large", {"count-mismatch@9"}},
        FindingRow{"self-crossing-ring", {"ring-crosses-itself@10"}},
        FindingRow{"self-touching-ring", {"ring-touches-itself@10"}},
        FindingRow{"short-row", {"mid:row-too-short@1"}},
        FindingRow{"trailing-delimiter", {"mid:row-trailing-delimiter@1"}},
        FindingRow{"unclosed-quote-in-row", {"mid:row-quote-unclosed@1", "mid:row-too-short@1"}},
        FindingRow{"unclosed-ring", {"ring-not-closed@10"}},
        FindingRow{"unclosed-text", {"quote-unclosed@9"}},
        FindingRow{"unique-and-transform", {"unique-clause@5", "transform-ignored@6"}},
        FindingRow{"unit-as-number", {"unit-is-number@4"}},
        FindingRow{"unit-in-kilometres", {"unit-ignored@4"}},
        FindingRow{"unknown-charset", {"charset-unknown@2"}},
        FindingRow{"unknown-column-type", {"column-type@6"}},
        FindingRow{"unknown-datum", {"datum-unknown@4"}},
        FindingRow{"unknown-ellipsoid", {"ellipsoid-unknown@4"}},
        FindingRow{"unknown-header-line", {"header-line-skipped@5"}},
        FindingRow{"unknown-object", {"object-unknown@9"}},
        FindingRow{"utf-16", {"utf-16@1"}},
        FindingRow{"utf-8-under-latin-1", {"mid:looks-like-utf-8@1"}},
        FindingRow{"values-of-wrong-type",
                   {"mid:value-too-wide@2", "mid:value-not-of-type@2", "mid:value-not-of-type@2",
                    "mid:value-not-of-type@2", "mid:value-not-of-type@2", "mid:value-too-wide@2",
                    "mid:value-not-of-type@2", "mid:value-not-of-type@2", "mid:value-not-of-type@2",
                    "mid:value-not-of-type@2"}},
        FindingRow{"version-1200", {"version-unsupported@1"}},
        FindingRow{"version-3000", {"version-invalid@1"}},
        FindingRow{"version-only",
                   {"header-incomplete@2", "charset-missing@2", "coordsys-missing@2"}},
    };
    return rows;
}

class ACheckOf : public testing::TestWithParam<FindingRow> {};

TEST_P(ACheckOf, TheFileFindsExactlyThis) {
    const std::filesystem::path file =
        std::filesystem::path(QOLF_TEST_DATA) / "check" / (GetParam().file + ".mif");

    const KeptFindings kept = FindingsOf(file);

    EXPECT_EQ(kept.names, GetParam().findings);
}

INSTANTIATE_TEST_SUITE_P(, ACheckOf, testing::ValuesIn(Rows()),
                         [](const auto& row) { return RowName(row.param.file); });

TEST(TheBrokenFiles, AreAllInTheTable) {
    std::set<std::string> files;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(QOLF_TEST_DATA) / "check")) {
        if (entry.path().extension() == ".mif") {
            files.insert(entry.path().stem().string());
        }
    }

    std::set<std::string> listed;
    for (const FindingRow& row : Rows()) {
        listed.insert(row.file);
    }

    EXPECT_EQ(files, listed);
}

TEST(TheBrokenFiles, HaveEveryFindingButThoseOfTestsOfTheirOwn) {
    std::set<std::string> found = {"file-unreadable", "line-too-long",         "header-too-long",
                                   "ring-not-tested", "module-warning",        "module-error",
                                   "unit-missing",    "parameter-out-of-range"};
    for (const FindingRow& row : Rows()) {
        for (const std::string& finding : row.findings) {
            const std::size_t first = finding.starts_with("mid:") ? 4 : 0;
            found.insert(finding.substr(first, finding.find('@') - first));
        }
    }

    std::set<std::string> all;
    for (const app::FindingInfo& info : app::AllFindings()) {
        if (std::string(info.id).starts_with("MIF-")) {
            all.insert(info.name);
        }
    }

    EXPECT_EQ(found, all);
}

class ACheckOfTheCleanSample : public testing::TestWithParam<std::string> {};

TEST_P(ACheckOfTheCleanSample, FindsNothing) {
    const KeptFindings kept =
        FindingsOf(std::filesystem::path(QOLF_SAMPLES) / (GetParam() + ".mif"));

    EXPECT_THAT(kept.names, testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, ACheckOfTheCleanSample,
                         testing::Values("island", "island-places", "island-ways"),
                         [](const auto& row) { return RowName(row.param); });

class ACheckOfTheRealSample : public testing::TestWithParam<std::string> {};

TEST_P(ACheckOfTheRealSample, FindsNoErrors) {
    const KeptFindings kept =
        FindingsOf(std::filesystem::path(QOLF_SAMPLES) / (GetParam() + ".mif"));

    EXPECT_EQ(kept.errorCount, 0U) << testing::PrintToString(kept.names);
}

INSTANTIATE_TEST_SUITE_P(, ACheckOfTheRealSample,
                         testing::Values("objects", "styles", "real/cyrillic",
                                         "real/field_types_v900", "real/lambert_ntf",
                                         "real/nonearth_mix", "real/osm_places", "real/osm_water",
                                         "real/utm_ridge"));

}  // namespace
