// Objects decoded from bytes into the export filter, the import of what it wrote, and the pass of
// the command over it, which finds nothing to edit.
#include "app/mif/PairReading.h"
#include "export/MifExportFilter.h"
#include "fuzz/FuzzInput.h"
#include "fuzz/ObjectsFromBytes.h"
#include "host/zeio/IoManager.h"
#include "import/MifImportFilter.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using fuzz::Bytes;

// Sends objects, and counts those that an import must give back.
class Drawing {
public:
    Drawing(mif::MifExportFilter& filter, Bytes& bytes) : filter_(filter), bytes_(bytes) {}

    void SendColumns() {
        zeio::TrNamedIds columns = fuzz::MakeColumns(bytes_);
        names_ = columns.names;
        Send(columns);
    }

    void SendAll() {
        for (int sent = 0; sent < 200 && !bytes_.IsEmpty(); ++sent) {
            SendOne();
        }
    }

    std::size_t expectedObjects() const { return expectedObjects_; }

    // False for what an import refuses, or reads as something else.
    bool isReadable() const { return isReadable_; }

private:
    void SendOne();
    void SendPolygon();
    void SendText();

    template <class Object> void SendGraphics(Object object, std::size_t expected) {
        for (const std::wstring& name : names_) {
            object.attributes.Set(name, bytes_.Text());
        }
        expectedObjects_ += expected;
        Send(object);
    }
    void Send(zeio::TrBase& object) { static_cast<void>(filter_.ExportObject(object)); }
    void Send(zeio::TrBase&& object) { Send(object); }

    mif::MifExportFilter& filter_;
    Bytes& bytes_;
    std::vector<std::wstring> names_;
    std::size_t expectedObjects_ = 0;
    bool isReadable_ = true;
};

void Drawing::SendOne() {
    switch (bytes_.Byte() % 10) {
    case 0: {
        const zeio::TrPolyline polyline = fuzz::MakePolyline(bytes_);
        SendGraphics(polyline, polyline.vertices.empty() ? 0 : 1);
        break;
    }
    case 1:
        SendPolygon();
        break;
    case 2: {
        const zeio::TrMarkerSet markers = fuzz::MakeMarkers(bytes_);
        SendGraphics(markers, markers.positions.size());
        break;
    }
    case 3:
        SendGraphics(fuzz::MakeRectangle(bytes_), 1);
        break;
    case 4:
        SendGraphics(fuzz::MakeEllipse(bytes_), 1);
        break;
    case 5:
        SendText();
        break;
    case 6:
        Send(fuzz::MakeQuestions(bytes_));
        break;
    case 7:
        Send(fuzz::MakePen(bytes_));
        break;
    case 8:
        Send(fuzz::MakeBrush(bytes_));
        break;
    default:
        Send(fuzz::MakeFont(bytes_));
    }
}

void Drawing::SendPolygon() {
    const zeio::TrPolygon polygon = fuzz::MakePolygon(bytes_);
    isReadable_ = isReadable_ && fuzz::RingsWith(polygon, 1) > 0;  // a region without is refused
    SendGraphics(polygon, 1);
}

// A text whose string is empty is read as something else.
void Drawing::SendText() {
    const zeio::TrText text = fuzz::MakeText(bytes_);
    const auto isLost = [](wchar_t character) { return character == L'\r'; };
    isReadable_ = isReadable_ && !std::all_of(text.text.begin(), text.text.end(), isLost);
    SendGraphics(text, 1);
}

void ImportAgain(std::size_t expectedObjects) {
    fuzz::CheckingHost host;
    zeio::IoManager manager(host);
    mif::MifImportFilter filter(manager);
    filter.Import(fuzz::PathOf("out.mif"));
    fuzz::Require(host.warningCount() == 0, "the import of an export does not warn");
    fuzz::Require(host.objectCount() == expectedObjects, "every object comes back");
}

void PassAgain(std::size_t expectedObjects) {
    const app::PairReading reading(fuzz::PathOf("out.mif"));
    // Coordinates that are no numbers make the pass take an object over, and characters of a text
    // that end lines elsewhere make it edit them.
    const std::string written = fuzz::ReadFile("out.mif");
    const bool isPlain = written.find("NAN") == written.npos &&
                         written.find("INF") == written.npos &&
                         std::all_of(written.begin(), written.end(),
                                     [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); });
    fuzz::Require(!reading.Copy().IsCopy() || !isPlain,
                  "the module reads what it wrote without edits");
    fuzz::Require(reading.Pair().objects.Objects() == expectedObjects, "the pass sees each object");
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
        PassAgain(drawing.expectedObjects());
    }
    return 0;
}
