#include "app/diff/FeatureRecord.h"

#include "app/base/Errors.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <variant>

namespace app {
namespace {

class RecordWriter {
public:
    template <typename Plain> void Put(const Plain& value) {
        static_assert(std::is_trivially_copyable_v<Plain>);
        bytes_.append(reinterpret_cast<const char*>(&value), sizeof value);
    }

    void PutText(std::string_view text) {
        Put(text.size());
        bytes_.append(text);
    }

    template <typename Plain> void PutAll(const std::vector<Plain>& values) {
        Put(values.size());
        bytes_.append(reinterpret_cast<const char*>(values.data()), values.size() * sizeof(Plain));
    }

    void PutGeometry(const Geometry& geometry) {
        Put(geometry.kind);
        PutAll(geometry.points);
        PutAll(geometry.partSizes);
        Put(geometry.box);
        for (const double number :
             {geometry.radiusX, geometry.radiusY, geometry.startDegrees, geometry.endDegrees,
              geometry.placement.angleDegrees, geometry.placement.height}) {
            Put(number);
        }
        PutText(geometry.placement.text);
        Put(geometry.placement.justify);
    }

    void PutValue(const Value& value) {
        Put(value.index());
        std::visit(
            [this](const auto& held) {
                using Held = std::decay_t<decltype(held)>;
                if constexpr (std::is_same_v<Held, std::string>) {
                    PutText(held);
                } else if constexpr (!std::is_same_v<Held, std::monostate>) {
                    Put(held);
                }
            },
            value);
    }

    std::string Take() { return std::move(bytes_); }

private:
    std::string bytes_;
};

class RecordReader {
public:
    explicit RecordReader(std::string_view bytes) : rest_(bytes) {}

    std::string_view Bytes(std::size_t count) {
        if (count > rest_.size()) {
            throw Failure("a temporary file is not what was written");
        }
        const std::string_view bytes = rest_.substr(0, count);
        rest_.remove_prefix(count);
        return bytes;
    }

    template <typename Plain> Plain Take() {
        Plain value;
        std::memcpy(&value, Bytes(sizeof value).data(), sizeof value);
        return value;
    }

    std::string TakeText() { return std::string(Bytes(Take<std::size_t>())); }

    template <typename Plain> std::vector<Plain> TakeAll() {
        const auto count = Take<std::size_t>();
        const std::string_view bytes = Bytes(count > rest_.size() ? count : count * sizeof(Plain));
        std::vector<Plain> values(count);
        if (count > 0) {
            std::memcpy(values.data(), bytes.data(), bytes.size());
        }
        return values;
    }

    Geometry TakeGeometry() {
        Geometry geometry;
        geometry.kind = Take<GeometryKind>();
        geometry.points = TakeAll<shr::Vec2d>();
        geometry.partSizes = TakeAll<std::size_t>();
        geometry.box = Take<shr::Box2d>();
        for (double* const number :
             {&geometry.radiusX, &geometry.radiusY, &geometry.startDegrees, &geometry.endDegrees,
              &geometry.placement.angleDegrees, &geometry.placement.height}) {
            *number = Take<double>();
        }
        geometry.placement.text = TakeText();
        geometry.placement.justify = Take<Justify>();
        return geometry;
    }

    Value TakeValue() {
        switch (Take<std::size_t>()) {
        case 0:
            return std::monostate();
        case 1:
            return TakeText();
        case 2:
            return Take<std::int64_t>();
        case 3:
            return Take<double>();
        default:
            return Take<bool>();
        }
    }

private:
    std::string_view rest_;
};

static_assert(
    std::is_same_v<Value, std::variant<std::monostate, std::string, std::int64_t, double, bool>>);

}  // namespace

std::string RecordOf(const Feature& feature) {
    RecordWriter writer;
    writer.Put(feature.number);
    writer.PutGeometry(feature.geometry);
    writer.Put(feature.members.size());
    for (const Geometry& member : feature.members) {
        writer.PutGeometry(member);
    }
    writer.Put(feature.values.size());
    for (const Value& value : feature.values) {
        writer.PutValue(value);
    }
    return writer.Take();
}

Feature FeatureOf(std::string_view record) {
    RecordReader reader(record);
    Feature feature;
    feature.number = reader.Take<std::uint64_t>();
    feature.geometry = reader.TakeGeometry();
    const auto members = reader.Take<std::size_t>();
    for (std::size_t i = 0; i < members; ++i) {
        feature.members.push_back(reader.TakeGeometry());
    }
    const auto values = reader.Take<std::size_t>();
    for (std::size_t i = 0; i < values; ++i) {
        feature.values.push_back(reader.TakeValue());
    }
    return feature;
}

}  // namespace app
