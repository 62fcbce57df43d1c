// Objects decoded from bytes into the export filter, and the import of what it wrote.
#include "export/MifExportFilter.h"
#include "fuzz/FuzzInput.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

// Takes values off the front of the bytes; zeros when they are used up.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

    bool IsEmpty() const { return left_ == 0; }

    std::uint8_t Byte() {
        if (left_ == 0) {
            return 0;
        }
        --left_;
        return *data_++;
    }

    double Number() {
        double value = 0.0;
        std::uint8_t raw[sizeof value];
        for (std::uint8_t& byte : raw) {
            byte = Byte();
        }
        std::memcpy(&value, raw, sizeof value);
        return value;
    }

    // Without what the clauses of texts and fonts do not escape: quotes and line ends.
    std::wstring Text() {
        std::wstring text(Byte() % 16, L'x');
        for (wchar_t& character : text) {
            const wchar_t wide = static_cast<wchar_t>(Byte() + (Byte() % 4) * 256);
            const bool isUnsafe = wide == L'"' || wide == L'\n' || wide == 0;
            character = isUnsafe ? L'_' : wide;
        }
        return text;
    }

    shr::Color4b Color() { return {Byte(), Byte(), Byte(), Byte()}; }

    std::vector<shr::Vec3d> Vertices() {
        std::vector<shr::Vec3d> vertices(Byte() % 20);
        for (shr::Vec3d& vertex : vertices) {
            vertex.x = Number();
            vertex.y = Number();
        }
        return vertices;
    }

private:
    const std::uint8_t* data_;
    std::size_t left_;
};

// Sends objects, and counts those that an import must give back.
class Drawing {
public:
    Drawing(mif::MifExportFilter& filter, Bytes& bytes) : filter_(filter), bytes_(bytes) {}

    void SendColumns() {
        zeio::TrNamedIds columns;
        columns.names.resize(bytes_.Byte() % 5);
        for (std::wstring& name : columns.names) {
            name = bytes_.Text();
        }
        names_ = columns.names;
        Send(columns);
    }

    void SendAll() {
        for (int sent = 0; sent < 200 && !bytes_.IsEmpty(); ++sent) {
            SendOne();
        }
    }

    std::size_t expectedObjects() const { return expectedObjects_; }

    // Without a text whose string is empty, which is read as something else.
    bool isReadable() const { return isReadable_; }

private:
    void SendOne();
    void SendPolygon();
    void SendBox();
    void SendText();
    void SendStyle();
    void SendQuestions();

    template <class Object> void SendGraphics(Object& object, std::size_t expected) {
        for (const std::wstring& name : names_) {
            object.attributes.Set(name, bytes_.Text());
        }
        expectedObjects_ += expected;
        Send(object);
    }
    void Send(zeio::TrBase& object) { static_cast<void>(filter_.ExportObject(object)); }

    mif::MifExportFilter& filter_;
    Bytes& bytes_;
    std::vector<std::wstring> names_;
    std::size_t expectedObjects_ = 0;
    bool isReadable_ = true;
};

void Drawing::SendOne() {
    switch (bytes_.Byte() % 8) {
    case 0: {
        zeio::TrPolyline polyline;
        polyline.vertices = bytes_.Vertices();
        SendGraphics(polyline, polyline.vertices.empty() ? 0 : 1);
        break;
    }
    case 1:
        SendPolygon();
        break;
    case 2: {
        zeio::TrMarkerSet markers;
        markers.positions = bytes_.Vertices();
        SendGraphics(markers, markers.positions.size());
        break;
    }
    case 3:
        SendBox();
        break;
    case 4:
        SendText();
        break;
    case 5:
        SendQuestions();
        break;
    default:
        SendStyle();
    }
}

// Part sizes are whatever the bytes say: negative ones and too large ones too.
void Drawing::SendPolygon() {
    zeio::TrPolygon polygon;
    polygon.vertices = bytes_.Vertices();
    polygon.partSizes.resize(bytes_.Byte() % 5);
    std::size_t covered = 0;
    for (std::int32_t& size : polygon.partSizes) {
        size = static_cast<std::int8_t>(bytes_.Byte());
        covered += static_cast<std::size_t>(std::max(size, 0));
    }
    const bool hasRing = !polygon.vertices.empty() && (polygon.partSizes.empty() || covered > 0);
    isReadable_ = isReadable_ && hasRing;  // a region without rings is refused
    SendGraphics(polygon, 1);
}

void Drawing::SendBox() {
    zeio::TrRectangle rectangle;
    rectangle.x1 = bytes_.Number();
    rectangle.y1 = bytes_.Number();
    rectangle.x2 = bytes_.Number();
    rectangle.y2 = bytes_.Number();
    if (bytes_.Byte() % 2 == 0) {
        zeio::TrEllipse ellipse;
        ellipse.x1 = rectangle.x1;
        ellipse.y2 = rectangle.y2;
        SendGraphics(ellipse, 1);
        return;
    }
    rectangle.radiusX = bytes_.Number();
    SendGraphics(rectangle, 1);
}

void Drawing::SendText() {
    zeio::TrText text(bytes_.Text(), {bytes_.Number(), bytes_.Number(), 0.0});
    text.transform.RotateZ(bytes_.Number());
    const auto isLost = [](wchar_t character) { return character == L'\r'; };
    isReadable_ = isReadable_ && !std::all_of(text.text.begin(), text.text.end(), isLost);
    SendGraphics(text, 1);
}

void Drawing::SendStyle() {
    if (bytes_.Byte() % 2 == 0) {
        zeio::TrPen pen(static_cast<zeio::TrPen::Style>(bytes_.Byte()), bytes_.Color(),
                        bytes_.Number());
        pen.isRelative = bytes_.Byte() % 2 == 0;
        pen.dashes.resize(bytes_.Byte() % 8);
        for (float& dash : pen.dashes) {
            dash = static_cast<float>(bytes_.Byte());
        }
        Send(pen);
        return;
    }
    zeio::TrBrush brush(static_cast<zeio::TrBrush::Pattern>(bytes_.Byte()));
    brush.fore = bytes_.Color();
    brush.back = bytes_.Color();
    Send(brush);
    zeio::TrFont font(bytes_.Text());
    font.height = bytes_.Number();
    font.widthDivisor = bytes_.Number();
    font.flags = bytes_.Byte();
    Send(font);
}

void Drawing::SendQuestions() {
    zeio::TrInitGraphicsExp questions;
    questions.scale = bytes_.Number();
    questions.unitsPerPoint = bytes_.Number();
    questions.extent = {bytes_.Number(), bytes_.Number(), 0.0,
                        bytes_.Number(), bytes_.Number(), 0.0};
    Send(questions);
}

void ImportAgain(std::size_t expectedObjects) {
    fuzz::CheckingHost host;
    zeio::IoManager manager(host);
    mif::MifImportFilter filter(manager);
    filter.Import(fuzz::PathOf("out.mif"));
    fuzz::Require(host.warningCount() == 0, "the import of an export does not warn");
    fuzz::Require(host.objectCount() == expectedObjects, "every object comes back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::CheckingHost host;
    zeio::IoManager manager(host);
    mif::MifExportFilter filter(manager);
    Bytes bytes(data, size);
    Drawing drawing(filter, bytes);
    static_cast<void>(filter.BeginExport(fuzz::PathOf("out.mif")));
    drawing.SendColumns();
    drawing.SendAll();
    const bool isWritten = filter.EndExport() == zeio::ExportStatus::Done;
    fuzz::Require(isWritten || drawing.expectedObjects() == 0, "objects make a file");
    if (isWritten && drawing.isReadable()) {
        ImportAgain(drawing.expectedObjects());
    }
    return 0;
}
