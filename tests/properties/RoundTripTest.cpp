// What was exported is imported again: geometry to the bit, attributes and styles by the rules of
// the format, and never a warning.
#include "export/MifExportFilter.h"
#include "host/iolib/Styles.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"
#include "tests/properties/RandomDrawing.h"
#include "tests/support/ObjectText.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace property_test {

namespace {

constexpr unsigned kSeeds = 300;

using Lines = std::vector<std::string>;

// A value as a row of the .mid file keeps it: what it can't hold is an underscore, what the
// code page does not have a question mark, and the blanks around it are gone.
std::string ExpectedValue(const std::wstring& value) {
    std::string text;
    for (const wchar_t character : value) {
        const bool isUnsafe = std::wstring_view(L"\"\r\n\t").find(character) != std::wstring::npos;
        const bool isEuro = character == L'€';
        text += isUnsafe           ? '_'
                : isEuro           ? '\x80'
                : character > 0xFF ? '?'
                                   : static_cast<char>(character);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    text.erase(0, text.find_first_not_of(' '));
    return text;
}

shr::CParamList ExpectedAttributes(const RandomDrawing& drawing, const shr::CParamList& sent) {
    shr::CParamList expected;
    for (const std::wstring& column : drawing.columns()) {
        std::wstring value;
        static_cast<void>(sent.Get(column, value));
        expected.Set(column, ExpectedValue(value));
    }
    return expected;
}

zeio::TrPen ExpectedPen(const zeio::TrPen& sent) {
    zeio::TrPen pen = sent;
    pen.color.alpha = 255;
    // Tenths of a point from 10 on; what is not more than that is a width in pixels of no drawing
    // size, the thinnest line.
    const double code = std::floor(sent.width * 72.0 * 10.0 + 10.0);
    pen.isRelative = false;
    pen.width = (code - 10.0) / 10.0 / 72.0;
    return pen;
}

// The pattern that a pattern's code means: several share the code of a solid fill.
zeio::TrBrush::Pattern ExpectedPattern(zeio::TrBrush::Pattern sent) {
    using Pattern = zeio::TrBrush::Pattern;
    switch (sent) {
    case Pattern::Pattern3:
    case Pattern::Pattern4:
    case Pattern::Pattern5:
    case Pattern::Pattern6:
        return Pattern::Solid;
    default:
        return sent;
    }
}

zeio::TrBrush ExpectedBrush(const zeio::TrBrush& sent) {
    zeio::TrBrush brush(ExpectedPattern(sent.pattern));
    brush.fore = {sent.fore.red, sent.fore.green, sent.fore.blue};
    brush.back = sent.back.alpha < 128
                     ? shr::Color4b(sent.back.red, sent.back.green, sent.back.blue)
                     : shr::Color4b(255, 255, 255, 0);
    return brush;
}

// What an import of the drawing's export must hand over, without the styles in front of the first
// pen and brush, which are the filter's own defaults.
class Expectation {
public:
    explicit Expectation(const RandomDrawing& drawing) : drawing_(drawing) {
        for (const auto& object : drawing.objects()) {
            Add(*object);
        }
    }

    const Lines& geometry() const { return geometry_; }
    const Lines& styles() const { return styles_; }

private:
    template <class Class> bool AddAs(const zeio::TrBase& object) {
        if (object.GetTypeId() != Class::GetClassTypeId()) {
            return false;
        }
        AddObject(static_cast<const Class&>(object));
        return true;
    }
    void Add(const zeio::TrBase& object) {
        static_cast<void>(AddAs<zeio::TrPen>(object) || AddAs<zeio::TrBrush>(object) ||
                          AddAs<zeio::TrPolyline>(object) || AddAs<zeio::TrPolygon>(object) ||
                          AddAs<zeio::TrMarkerSet>(object) || AddAs<zeio::TrRectangle>(object) ||
                          AddAs<zeio::TrEllipse>(object));
    }

    void AddObject(const zeio::TrPen& pen) { pen_ = std::make_unique<zeio::TrPen>(pen); }
    void AddObject(const zeio::TrBrush& brush) { brush_ = std::make_unique<zeio::TrBrush>(brush); }
    void AddObject(const zeio::TrPolyline& polyline) {
        AddGraphics(polyline);
        AddPen();
    }
    void AddObject(const zeio::TrPolygon& polygon) {
        AddGraphics(polygon);
        AddPenAndBrush();
    }
    void AddObject(const zeio::TrMarkerSet& markers) {
        for (const shr::Vec3d& position : markers.positions) {
            zeio::TrMarkerSet one(zeio::SymbolStyle::DefaultSymbolSet, 0.0, L"ZEI Default Symbols",
                                  0);
            one.positions = {position};
            one.attributes = markers.attributes;
            AddGraphics(one);
        }
    }
    // Corners come in order; both radii are their mean.
    void AddObject(const zeio::TrRectangle& sent) {
        zeio::TrRectangle rectangle = sent;
        Order(rectangle);
        AddGraphics(rectangle);
        AddPenAndBrush();
    }
    void AddObject(const zeio::TrEllipse& sent) {
        zeio::TrEllipse ellipse = sent;
        Order(ellipse);
        AddGraphics(ellipse);
        AddPenAndBrush();
    }

    template <class Box> static void Order(Box& box) {
        std::tie(box.x1, box.x2) = std::minmax({box.x1, box.x2});
        std::tie(box.y1, box.y2) = std::minmax({box.y1, box.y2});
    }
    template <class Object> void AddGraphics(const Object& sent) {
        Object object = sent;
        object.attributes = ExpectedAttributes(drawing_, sent.attributes);
        geometry_.push_back(support::DescribeObject(object));
    }
    void AddPen() {
        styles_.push_back(pen_ == nullptr ? "any pen"
                                          : support::DescribeObject(ExpectedPen(*pen_)));
    }
    void AddPenAndBrush() {
        AddPen();
        styles_.push_back(brush_ == nullptr ? "any brush"
                                            : support::DescribeObject(ExpectedBrush(*brush_)));
    }

    const RandomDrawing& drawing_;
    std::unique_ptr<zeio::TrPen> pen_;      // null until the first one
    std::unique_ptr<zeio::TrBrush> brush_;  // null until the first one
    Lines geometry_;
    Lines styles_;
};

class RoundTrip {
public:
    explicit RoundTrip(const RandomDrawing& drawing) {
        mif::MifExportFilter exportFilter(manager_);
        exportFilter.BeginExport(path_);
        for (const auto& object : drawing.objects()) {
            exportFilter.ExportObject(*object);
        }
        exportFilter.EndExport();
        host_.ForgetCalls();
        mif::MifImportFilter importFilter(manager_);
        importFilter.Import(path_);
    }

    // The graphic objects but the texts, whose box is not kept.
    Lines Geometry() const {
        Lines lines;
        for (const std::string& line : host_.ImportedObjects()) {
            if (!IsAnyOf(line, {"Pen", "Brush", "Font", "Text", "NamedIds", "CRS"})) {
                lines.push_back(line);
            }
        }
        return lines;
    }

    // The pens and brushes but those of texts.
    Lines Styles() const {
        Lines lines;
        bool isOfText = false;
        for (const std::string& line : host_.ImportedObjects()) {
            isOfText = (isOfText || IsAnyOf(line, {"Font"})) && !IsAnyOf(line, {"Text"});
            if (!isOfText && IsAnyOf(line, {"Pen", "Brush"})) {
                lines.push_back(line);
            }
        }
        return lines;
    }

    std::vector<std::wstring> Texts() const {
        std::vector<std::wstring> texts;
        for (const zeio::TrText* text : host_.Received<zeio::TrText>()) {
            texts.push_back(text->text);
        }
        return texts;
    }

    Lines Warnings() const { return host_.CallsStartingWith("Warning"); }

private:
    static bool IsAnyOf(const std::string& line, std::initializer_list<std::string_view> kinds) {
        return std::any_of(kinds.begin(), kinds.end(), [&line](std::string_view kind) {
            return line.starts_with(std::string(kind) + ' ');
        });
    }

    support::TemporaryFolder folder_;
    support::RecordingHost host_;
    zeio::IoManager manager_{host_};
    std::wstring path_ = folder_.PathOf("drawing.mif");
};

// The styles that were expected in place of any pen and any brush.
Lines WithoutFreeOnes(Lines received, const Lines& expected) {
    for (std::size_t i = 0; i < std::min(received.size(), expected.size()); ++i) {
        received[i] = expected[i].starts_with("any") ? expected[i] : received[i];
    }
    return received;
}

std::vector<std::wstring> TextsOf(const RandomDrawing& drawing) {
    std::vector<std::wstring> texts;
    for (const auto& object : drawing.objects()) {
        if (object->GetTypeId() == zeio::TrText::GetClassTypeId()) {
            texts.push_back(static_cast<const zeio::TrText&>(*object).text);
        }
    }
    return texts;
}

class AnyDrawing : public testing::TestWithParam<unsigned> {
protected:
    RandomDrawing drawing_{GetParam()};
    RoundTrip trip_{drawing_};
    Expectation expectation_{drawing_};
};

}  // namespace

TEST_P(AnyDrawing, ComesBackToTheBit) {
    EXPECT_EQ(trip_.Geometry(), expectation_.geometry());
    EXPECT_EQ(WithoutFreeOnes(trip_.Styles(), expectation_.styles()), expectation_.styles());
    EXPECT_EQ(trip_.Texts(), TextsOf(drawing_));
    EXPECT_THAT(trip_.Warnings(), testing::IsEmpty());
}
INSTANTIATE_TEST_SUITE_P(, AnyDrawing, testing::Range(1U, kSeeds + 1));

}  // namespace property_test
