#include "host/zeio/TrObjects.h"

#include <utility>

namespace zeio {

namespace {

// Makes an object for a type record, which knows no classes.
template <typename Object> void* Create() {
    return static_cast<TrBase*>(new Object);
}

}  // namespace

TrBase::~TrBase() = default;

const shr::CTypeInfo* TrBase::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrBase", nullptr, nullptr);
    return &type;
}

TrGraphics::~TrGraphics() = default;

const shr::CTypeInfo* TrGraphics::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrGraphics", nullptr, TrBase::GetClassTypeId());
    return &type;
}

TrPolyline::TrPolyline() = default;

TrPolyline::~TrPolyline() = default;

const shr::CTypeInfo* TrPolyline::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrPolyline::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrPolyline", &Create<TrPolyline>,
                                     TrGraphics::GetClassTypeId());
    return &type;
}

TrPolygon::TrPolygon() = default;

TrPolygon::~TrPolygon() = default;

const shr::CTypeInfo* TrPolygon::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrPolygon::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrPolygon", &Create<TrPolygon>,
                                     TrGraphics::GetClassTypeId());
    return &type;
}

TrMarkerSet::TrMarkerSet() : TrMarkerSet(SymbolStyle::DefaultSymbolSet, 0.0, {}, 0) {}

TrMarkerSet::TrMarkerSet(SymbolStyle style, double markerSize, std::wstring font, int index)
    : symbolStyle(style), size(markerSize), fontName(std::move(font)), symbolIndex(index) {}

TrMarkerSet::~TrMarkerSet() = default;

const shr::CTypeInfo* TrMarkerSet::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrMarkerSet::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrMarkerSet", &Create<TrMarkerSet>,
                                     TrGraphics::GetClassTypeId());
    return &type;
}

TrRectangle::TrRectangle() = default;

TrRectangle::~TrRectangle() = default;

const shr::CTypeInfo* TrRectangle::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrRectangle::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrRectangle", &Create<TrRectangle>,
                                     TrGraphics::GetClassTypeId());
    return &type;
}

TrEllipse::TrEllipse() = default;

TrEllipse::~TrEllipse() = default;

const shr::CTypeInfo* TrEllipse::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrEllipse::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrEllipse", &Create<TrEllipse>,
                                     TrGraphics::GetClassTypeId());
    return &type;
}

TrText::TrText() = default;

TrText::TrText(std::wstring initialText, const shr::Vec3d& initialPosition)
    : text(std::move(initialText)), position(initialPosition) {}

TrText::~TrText() = default;

const shr::CTypeInfo* TrText::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrText::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrText", &Create<TrText>, TrGraphics::GetClassTypeId());
    return &type;
}

TrPen::TrPen() : TrPen(Style::Undefined, shr::Color4b(0U), 0.0) {}

TrPen::TrPen(Style penStyle, const shr::Color4b& penColor, double penWidth)
    : style(penStyle), color(penColor), width(penWidth) {}

TrPen::TrPen(const TrPen&) = default;

TrPen& TrPen::operator=(const TrPen&) = default;

TrPen::~TrPen() = default;

const shr::CTypeInfo* TrPen::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrPen::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrPen", &Create<TrPen>, TrBase::GetClassTypeId());
    return &type;
}

TrBrush::TrBrush() : TrBrush(Pattern::None) {}

TrBrush::TrBrush(Pattern brushPattern) : pattern(brushPattern) {}

TrBrush::TrBrush(const TrBrush&) = default;

TrBrush& TrBrush::operator=(const TrBrush&) = default;

TrBrush::~TrBrush() = default;

const shr::CTypeInfo* TrBrush::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrBrush::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrBrush", &Create<TrBrush>, TrBase::GetClassTypeId());
    return &type;
}

TrFont::TrFont() = default;

TrFont::TrFont(std::wstring face) : faceName(std::move(face)) {}

TrFont::TrFont(const TrFont&) = default;

TrFont& TrFont::operator=(const TrFont&) = default;

TrFont::~TrFont() = default;

const shr::CTypeInfo* TrFont::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrFont::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrFont", &Create<TrFont>, TrBase::GetClassTypeId());
    return &type;
}

TrCRS::TrCRS() = default;

TrCRS::TrCRS(const TrCRS& other)
    : TrBase(other), definition_(other.definition_ ? other.definition_->Clone() : nullptr) {}

TrCRS& TrCRS::operator=(const TrCRS& other) {
    if (this != &other) {
        TrBase::operator=(other);
        TrCRS::SetCS(other.GetCS());
    }
    return *this;
}

void TrCRS::SetCS(const gcs::CSDef* definition) {
    definition_ = definition == nullptr ? nullptr : definition->Clone();
}

TrCRS::~TrCRS() = default;

const shr::CTypeInfo* TrCRS::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrCRS::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrCRS", &Create<TrCRS>, TrBase::GetClassTypeId());
    return &type;
}

TrNamedIds::TrNamedIds() = default;

TrNamedIds::~TrNamedIds() = default;

const shr::CTypeInfo* TrNamedIds::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrNamedIds::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrNamedIds", &Create<TrNamedIds>, TrBase::GetClassTypeId());
    return &type;
}

TrInitGraphicsImp::TrInitGraphicsImp(const shr::Vec3d& minCorner, const shr::Vec3d& maxCorner,
                                     TrGraphics::FT_COORDSYS coordinateKind)
    : min(minCorner), max(maxCorner), kind(coordinateKind) {}

TrInitGraphicsImp::~TrInitGraphicsImp() = default;

const shr::CTypeInfo* TrInitGraphicsImp::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrInitGraphicsImp::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrInitGraphicsImp", nullptr, TrBase::GetClassTypeId());
    return &type;
}

TrInitGraphicsExp::TrInitGraphicsExp() = default;

TrInitGraphicsExp::~TrInitGraphicsExp() = default;

const shr::CTypeInfo* TrInitGraphicsExp::GetTypeId() const {
    return GetClassTypeId();
}

const shr::CTypeInfo* TrInitGraphicsExp::GetClassTypeId() {
    static const shr::CTypeInfo type(L"TrInitGraphicsExp", &Create<TrInitGraphicsExp>,
                                     TrBase::GetClassTypeId());
    return &type;
}

}  // namespace zeio
