// The drawing surface of one picture file.
#pragma once

#include "app/draw/Viewport.h"
#include "host/shr/Color4b.h"

#include <cairo.h>

#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace app {

enum class PictureFormat { Svg, Png, Pdf };

// By the extension, in any case; nothing for another one.
std::optional<PictureFormat> PictureFormatOf(const std::filesystem::path& file);

// Takes the bytes of a picture, in order; may throw.
using ByteSink = std::function<void(std::string_view)>;

class Canvas {
public:
    // The sink gets the picture in Finish(), for the vector formats partly before. Throws
    // std::runtime_error when there can be no page of that size.
    Canvas(PictureFormat format, PageSize page, ByteSink sink);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    // Covers the whole page; a transparent colour leaves it as it is.
    void Fill(const shr::Color4b& color);

    // Draws in page coordinates, pixels.
    cairo_t* Context() const { return context_.get(); }

    PageSize Page() const { return page_; }

    // Null for the vector formats.
    cairo_surface_t* Image() const;

    // Completes the picture. Throws what the sink threw, and std::runtime_error when drawing
    // failed. Without it the sink may have been given a part of the picture.
    void Finish();

private:
    struct Close {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
        void operator()(cairo_t* context) const { cairo_destroy(context); }
    };

    static cairo_surface_t* MakeSurface(PictureFormat format, PageSize page, Canvas* canvas);
    static cairo_status_t TakeBytes(void* canvas, const unsigned char* bytes, unsigned int count);
    void ThrowIfBad(cairo_status_t status) const;

    PictureFormat format_;
    PageSize page_;
    ByteSink sink_;
    std::exception_ptr sinkError_;  // what the sink threw first; the library gives up then
    bool isFinished_ = false;
    std::unique_ptr<cairo_surface_t, Close> surface_;
    std::unique_ptr<cairo_t, Close> context_;
};

// Keeps a context's settings and gives them back at the end of the block.
class SavedState {
public:
    explicit SavedState(cairo_t* context) : context_(context) { cairo_save(context_); }
    ~SavedState() { cairo_restore(context_); }
    SavedState(const SavedState&) = delete;
    SavedState& operator=(const SavedState&) = delete;

private:
    cairo_t* context_;
};

void SetColor(cairo_t* context, const shr::Color4b& color, double opacity = 1.0);

}  // namespace app
