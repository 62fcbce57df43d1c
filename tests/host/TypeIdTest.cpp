#include "host/zeio/IoPropertyPage.h"
#include "host/zeio/TrObjects.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

namespace {

struct TypeRow {
    std::wstring name;
    const shr::CTypeInfo* type;
    const shr::CTypeInfo* base;
};

template <typename Class> TypeRow Row(const wchar_t* name, const shr::CTypeInfo* base) {
    return {name, Class::GetClassTypeId(), base};
}

std::vector<TypeRow> Rows() {
    const shr::CTypeInfo* base = zeio::TrBase::GetClassTypeId();
    const shr::CTypeInfo* graphics = zeio::TrGraphics::GetClassTypeId();
    return {Row<zeio::TrPolyline>(L"TrPolyline", graphics),
            Row<zeio::TrPolygon>(L"TrPolygon", graphics),
            Row<zeio::TrMarkerSet>(L"TrMarkerSet", graphics),
            Row<zeio::TrRectangle>(L"TrRectangle", graphics),
            Row<zeio::TrEllipse>(L"TrEllipse", graphics),
            Row<zeio::TrText>(L"TrText", graphics),
            Row<zeio::TrPen>(L"TrPen", base),
            Row<zeio::TrBrush>(L"TrBrush", base),
            Row<zeio::TrFont>(L"TrFont", base),
            Row<zeio::TrCRS>(L"TrCRS", base),
            Row<zeio::TrNamedIds>(L"TrNamedIds", base),
            Row<zeio::TrInitGraphicsImp>(L"TrInitGraphicsImp", base),
            Row<zeio::TrInitGraphicsExp>(L"TrInitGraphicsExp", base)};
}

class TypeRecord : public testing::TestWithParam<TypeRow> {};

TEST_P(TypeRecord, CarriesItsNameAndItsBase) {
    EXPECT_EQ(GetParam().type->Name(), GetParam().name);
    EXPECT_EQ(GetParam().type->Base(), GetParam().base);
}
INSTANTIATE_TEST_SUITE_P(, TypeRecord, testing::ValuesIn(Rows()), [](const auto& row) {
    return std::string(row.param.name.begin(), row.param.name.end());
});

TEST(TypeRecords, DifferFromClassToClass) {
    std::set<const shr::CTypeInfo*> types;
    for (const TypeRow& row : Rows()) {
        types.insert(row.type);
    }

    EXPECT_EQ(types.size(), Rows().size());
}

TEST(TypeRecords, AreTheSameAtEveryQuestion) {
    EXPECT_EQ(zeio::TrPen::GetClassTypeId(), zeio::TrPen::GetClassTypeId());
}

TEST(TypeRecords, MakeObjectsOfTheirClass) {
    void* made = zeio::TrEllipse::GetClassTypeId()->Create()();
    const std::unique_ptr<zeio::TrBase> object(static_cast<zeio::TrBase*>(made));

    EXPECT_EQ(object->GetTypeId(), zeio::TrEllipse::GetClassTypeId());
}

TEST(TypeRecords, MakeNothingOfAClassThatNeedsArguments) {
    EXPECT_EQ(zeio::TrInitGraphicsImp::GetClassTypeId()->Create(), nullptr);
}

TEST(TypeRecords, OfPropertyPagesHaveNoBase) {
    EXPECT_EQ(zeio::IoPropertyPage::GetClassTypeId()->Name(), L"IoPropertyPage");
    EXPECT_EQ(zeio::IoPropertyPage::GetClassTypeId()->Base(), nullptr);
}

TEST(AnObject, AnswersItsOwnTypeThroughItsBase) {
    const zeio::TrMarkerSet markers(zeio::SymbolStyle::TrueTypeFont, 1.0, L"Symbols", 3);
    const zeio::TrBase& object = markers;

    EXPECT_EQ(object.GetTypeId(), zeio::TrMarkerSet::GetClassTypeId());
}

}  // namespace
