#include "app/page/PageSpool.h"

#include <cstdint>
#include <cstring>

namespace app {

namespace {

// The first byte of a record.
constexpr std::uint8_t kLayer = 1;
constexpr std::uint8_t kFeature = 2;

template <typename Plain> void WriteList(Spool& spool, const std::vector<Plain>& list) {
    spool.Put(list.size());
    spool.Write({reinterpret_cast<const char*>(list.data()), list.size() * sizeof(Plain)});
}

template <typename Plain> void TakeList(Spool::Reader& from, std::vector<Plain>& list) {
    list.resize(from.Take<std::size_t>());
    if (!list.empty()) {
        const std::size_t size = list.size() * sizeof(Plain);
        std::memcpy(list.data(), from.Read(size).data(), size);
    }
}

}  // namespace

void PageSpool::BeginLayer(std::size_t layer) {
    spool_.Put(kLayer);
    spool_.Put(layer);
}

void PageSpool::Add(const PageFeature& feature) {
    spool_.Put(kFeature);
    spool_.Put(feature.number);
    WriteText(feature.properties);
    spool_.Put(feature.members.size());
    for (const PageMember& member : feature.members) {
        Write(member);
    }
}

void PageSpool::Read(const Receiver& receiver) {
    PageFeature feature;
    std::size_t layer = 0;
    Spool::Reader from(spool_);
    while (!from.IsAtEnd()) {
        if (from.Take<std::uint8_t>() == kLayer) {
            layer = from.Take<std::size_t>();
            continue;
        }
        feature.number = from.Take<std::uint64_t>();
        feature.properties = TakeText(from);
        feature.members.resize(from.Take<std::size_t>());
        for (PageMember& member : feature.members) {
            Take(from, member);
        }
        if (!receiver(layer, feature)) {
            return;
        }
    }
}

void PageSpool::Write(const PageMember& member) {
    spool_.Put(member.kind);
    spool_.Put(member.isMulti);
    spool_.Put(member.style);
    WriteText(member.text);
    WriteList(spool_, member.parts);
    WriteList(spool_, member.points);
    WriteList(spool_, member.weights);
}

void PageSpool::Take(Spool::Reader& from, PageMember& member) {
    member.kind = from.Take<GeometryKind>();
    member.isMulti = from.Take<bool>();
    member.style = from.Take<std::uint32_t>();
    member.text = TakeText(from);
    TakeList(from, member.parts);
    TakeList(from, member.points);
    TakeList(from, member.weights);
}

void PageSpool::WriteText(const std::string& text) {
    spool_.Put(text.size());
    spool_.Write(text);
}

std::string PageSpool::TakeText(Spool::Reader& from) {
    return std::string(from.Read(from.Take<std::size_t>()));
}

}  // namespace app
