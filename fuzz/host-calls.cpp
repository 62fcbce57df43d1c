// Calls of a host in any order: the slots of both filters, options, pages, the import dialog and
// objects. Where the input says so, an allocation, the opening of a file, a seek, a write, a
// deletion or one of the host's own operations fails.
//
// Every call is checked against a model of the filter: what it may answer, and which files may
// exist afterwards. The first byte of the input chooses the filter, the second one the files that
// are there before; the rest are the calls. Slots that keep the base's operation are called for
// their answer only.
#include "fuzz/ExportSession.h"
#include "fuzz/ImportSession.h"
#include "standalone/Log.h"

#include <cstdint>

namespace {

constexpr int kMostCalls = 1000;

constexpr char kMap[] = "Version 300\nCharset \"Neutral\"\nDelimiter \",\"\n"
                        "CoordSys Earth Projection 8, 104, \"m\", 9, 0, 0.9996, 500000, 0\n"
                        "Columns 2\n  A Char(9)\n  B Integer\nUnique 1\nData\n\n"
                        "Point 1 2\n Symbol (35,255,12)\nLine 1 2 3 4\n Pen (3,5,255)\n"
                        "Pline Multiple 2\n2\n1 2\n3 4\n2\n5 6\n7 8\n"
                        "Region 1\n3\n0 0\n1 0\n1 1\n Brush (3,1,2)\nArc 0 0 4 2\n10 200\n"
                        "Text \"abc\"\n1 2 3 4\n Font (\"Arial\",3,0,255)\n"
                        "Roundrect 1 2 3 4 5\nEllipse 1 2 3 4\nMultipoint 2\n1 2\n3 4\n"
                        " Symbol (40,255,12,\"Wingdings\",1,30)\nNone\nCollection 1\nPoint 1 1\n";

// The map to import, and files of the names that exports use, or none of these.
void MakeFiles(std::uint8_t choice) {
    fuzz::MemoryFiles& files = fuzz::MemoryFiles::Get();
    files.Clear();
    files.PutFolder(L"folder.mif");
    files.PutFolder(L"barred.mid");
    files.Put(L"map.mif", (choice & 1) != 0 ? std::string(kMap) + "Nonsense\n" : kMap);
    files.Put(L"map.mid", "a,1\nb,2\n\"c\",3\n");
    if ((choice & 2) != 0) {
        for (const wchar_t* path : {L"a.mif", L"a.mid", L"b.mif", L"b.mid", L"b.MID", L"a.MIF",
                                    L"barred.mif", L"folder.mid", L".mid"}) {
            files.Put(path, "an older file");
        }
    }
}

template <class Session> void CallAll(fuzz::Bytes& bytes) {
    Session session;
    for (int calls = 0; calls < kMostCalls && !bytes.IsEmpty(); ++calls) {
        session.CallOnce(bytes);
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    standalone::SetLogSink({});  // swallowed exceptions are expected here
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Bytes bytes(data, size);
    const std::uint8_t filter = bytes.Byte();
    MakeFiles(bytes.Byte());
    if (filter % 3 == 0) {
        CallAll<fuzz::ImportSession>(bytes);
    } else {
        CallAll<fuzz::ExportSession>(bytes);
    }
    return 0;
}
