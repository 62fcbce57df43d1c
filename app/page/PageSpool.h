// Keeps the features of a page between the reading and the writing, so that every file is read
// once.
#pragma once

#include "app/base/Spool.h"
#include "app/page/PageFeature.h"

#include <cstddef>
#include <functional>
#include <string>

namespace app {

class PageSpool {
public:
    // What follows belongs to this layer.
    void BeginLayer(std::size_t layer);

    // Throws Failure when the temporary folder has no room.
    void Add(const PageFeature& feature);

    // Receives what was added, in its order. False ends the reading.
    using Receiver = std::function<bool(std::size_t layer, const PageFeature& feature)>;

    // Gives everything back, as often as wanted.
    void Read(const Receiver& receiver);

private:
    void Write(const PageMember& member);
    static void Take(Spool::Reader& from, PageMember& member);
    void WriteText(const std::string& text);
    static std::string TakeText(Spool::Reader& from);

    Spool spool_;
};

}  // namespace app
