#include "fuzz/FuzzInput.h"

#include "host/zeio/TrObjects.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <numeric>
#include <unistd.h>

namespace fuzz {

namespace {

namespace fs = std::filesystem;

class Folder {
public:
    Folder()
        : path_((fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path()) /
                ("qolf-fuzz-" + std::to_string(getpid()))) {
        fs::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

const fs::path& FolderPath() {
    static const Folder folder;
    return folder.path();
}

template <class Class> const Class* As(const zeio::TrBase& object) {
    return object.GetTypeId() == Class::GetClassTypeId() ? static_cast<const Class*>(&object)
                                                         : nullptr;
}

void CheckPolygon(const zeio::TrPolygon& polygon) {
    std::size_t vertices = 0;
    for (const std::int32_t size : polygon.partSizes) {
        Require(size > 0, "a ring has vertices");
        vertices += static_cast<std::size_t>(size);
    }
    Require(vertices == polygon.vertices.size(), "the rings have the polygon's vertices");
}

}  // namespace

void Require(bool isSo, const char* statement) {
    if (!isSo) {
        std::fprintf(stderr, "not so: %s\n", statement);
        std::abort();
    }
}

std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

std::wstring PathOf(const std::string& name) {
    return (FolderPath() / name).wstring();
}

void WriteFile(const std::string& name, std::string_view bytes) {
    std::ofstream stream(FolderPath() / name, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string ReadFile(const std::string& name) {
    std::ifstream stream(FolderPath() / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void RemoveFile(const std::string& name) {
    std::error_code ignored;
    fs::remove(FolderPath() / name, ignored);
}

void WritePair(std::string_view text) {
    constexpr char kSeparator = '\x1E';
    const std::size_t separator = text.rfind(kSeparator);
    WriteFile("map.mif", text.substr(0, separator));
    if (separator == std::string_view::npos) {
        RemoveFile("map.mid");
    } else {
        WriteFile("map.mid", text.substr(separator + 1));
    }
}

bool CheckObject(const zeio::TrBase& object) {
    if (const auto* polyline = As<zeio::TrPolyline>(object)) {
        // A ring of one vertex becomes a polyline of one when areas become curves.
        Require(!polyline->vertices.empty(), "a polyline has a vertex");
        return true;
    }
    if (const auto* polygon = As<zeio::TrPolygon>(object)) {
        CheckPolygon(*polygon);
        return true;
    }
    if (const auto* markers = As<zeio::TrMarkerSet>(object)) {
        Require(!markers->positions.empty(), "a marker set has a position");
        return true;
    }
    if (const auto* text = As<zeio::TrText>(object)) {
        Require(!text->text.empty(), "a text has characters");
        return true;
    }
    return As<zeio::TrRectangle>(object) != nullptr || As<zeio::TrEllipse>(object) != nullptr;
}

void CheckingHost::ImportObject(zeio::TrBase& object) {
    objectCount_ += CheckObject(object) ? 1 : 0;
}

int CheckingHost::Warning(shr::IError::WarnStyle /*style*/, const std::wstring& /*text*/) {
    ++warningCount_;
    return 0;
}

}  // namespace fuzz
