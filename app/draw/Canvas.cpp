#include "app/draw/Canvas.h"

#include "app/base/Paths.h"
#include "app/feature/StyleLooks.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace app {

namespace {

constexpr double kPointsPerInch = 72.0;

}  // namespace

std::optional<PictureFormat> PictureFormatOf(const std::filesystem::path& file) {
    const std::string extension = LowerExtension(file);
    if (extension == ".svg") {
        return PictureFormat::Svg;
    }
    if (extension == ".png") {
        return PictureFormat::Png;
    }
    if (extension == ".pdf") {
        return PictureFormat::Pdf;
    }
    return std::nullopt;
}

Canvas::Canvas(PictureFormat format, PageSize page, ByteSink sink)
    : format_(format), page_(page), sink_(std::move(sink)),
      surface_(MakeSurface(format, page, this)), context_(cairo_create(surface_.get())) {
    ThrowIfBad(cairo_surface_status(surface_.get()));
    ThrowIfBad(cairo_status(context_.get()));
}

Canvas::~Canvas() {
    context_.reset();
    if (!isFinished_) {
        // The library completes a vector picture whether it is wanted or not.
        sink_ = [](std::string_view) {};
    }
    cairo_surface_finish(surface_.get());
}

cairo_surface_t* Canvas::MakeSurface(PictureFormat format, PageSize page, Canvas* canvas) {
    constexpr double kPointsPerPixel = kPointsPerInch / kPixelsPerInch;
    switch (format) {
    case PictureFormat::Svg: {
        cairo_surface_t* const surface =
            cairo_svg_surface_create_for_stream(TakeBytes, canvas, page.width, page.height);
        cairo_svg_surface_set_document_unit(surface, CAIRO_SVG_UNIT_PX);
        return surface;
    }
    case PictureFormat::Pdf: {
        cairo_surface_t* const surface = cairo_pdf_surface_create_for_stream(
            TakeBytes, canvas, page.width * kPointsPerPixel, page.height * kPointsPerPixel);
        // The surface's own unit is the point.
        cairo_surface_set_device_scale(surface, kPointsPerPixel, kPointsPerPixel);
        return surface;
    }
    case PictureFormat::Png:
        break;
    }
    return cairo_image_surface_create(CAIRO_FORMAT_ARGB32, page.width, page.height);
}

cairo_status_t Canvas::TakeBytes(void* canvas, const unsigned char* bytes, unsigned int count) {
    auto& self = *static_cast<Canvas*>(canvas);
    try {
        self.sink_({reinterpret_cast<const char*>(bytes), count});
        return CAIRO_STATUS_SUCCESS;
    } catch (...) {
        // No exception may cross the library; ThrowIfBad throws it on.
        self.sinkError_ = self.sinkError_ ? self.sinkError_ : std::current_exception();
        return CAIRO_STATUS_WRITE_ERROR;
    }
}

void Canvas::ThrowIfBad(cairo_status_t status) const {
    if (sinkError_) {
        std::rethrow_exception(sinkError_);
    }
    if (status != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error(std::string("the picture could not be drawn: ") +
                                 cairo_status_to_string(status));
    }
}

void Canvas::Fill(const shr::Color4b& color) {
    if (color.alpha == 0) {
        return;
    }
    SetColor(context_.get(), color);
    cairo_paint(context_.get());
}

cairo_surface_t* Canvas::Image() const {
    return format_ == PictureFormat::Png ? surface_.get() : nullptr;
}

void Canvas::Finish() {
    isFinished_ = true;
    ThrowIfBad(cairo_status(context_.get()));
    if (format_ == PictureFormat::Png) {
        cairo_surface_flush(surface_.get());
        ThrowIfBad(cairo_surface_write_to_png_stream(surface_.get(), TakeBytes, this));
        return;
    }
    cairo_surface_finish(surface_.get());
    ThrowIfBad(cairo_surface_status(surface_.get()));
}

void SetColor(cairo_t* context, const shr::Color4b& color, double opacity) {
    constexpr double kFull = 255.0;
    cairo_set_source_rgba(context, color.red / kFull, color.green / kFull, color.blue / kFull,
                          color.alpha / kFull * opacity);
}

}  // namespace app
