// The constructors that filters call, the fields that they read and write, and the assignments of
// pens, brushes, fonts and coordinate systems. Nothing else can be copied.
#pragma once

#include "host/gcs/CSDef.h"
#include "host/shr/CParamList.h"
#include "host/shr/CTypeInfo.h"
#include "host/shr/Color4b.h"
#include "host/shr/Geometry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zeio {

class TrBase {
public:
    TrBase(const TrBase&) = delete;
    TrBase& operator=(const TrBase&) = delete;

    virtual ~TrBase();
    virtual const shr::CTypeInfo* GetTypeId() const;

protected:
    TrBase();
};

class TrGraphics : public TrBase {
public:
    enum class FT_COORDSYS : int { World = 0 };

    shr::CParamList attributes;

protected:
    TrGraphics();
};

class TrPolyline : public TrGraphics {
public:
    TrPolyline();
    static const shr::CTypeInfo* GetClassTypeId();

    std::vector<shr::Vec3d> vertices;
};

class TrPolygon : public TrGraphics {
public:
    TrPolygon();
    static const shr::CTypeInfo* GetClassTypeId();

    std::vector<shr::Vec3d> vertices;
    std::vector<std::int32_t> partSizes;
};

enum class SymbolStyle : int { TrueTypeFont = 0, DefaultSymbolSet = 1 };

class TrMarkerSet : public TrGraphics {
public:
    TrMarkerSet(SymbolStyle style, double markerSize, const std::wstring& font, int index);
    static const shr::CTypeInfo* GetClassTypeId();

    SymbolStyle symbolStyle;
    double size;
    std::wstring fontName;
    int symbolIndex;
    std::vector<shr::Vec3d> positions;
};

class TrRectangle : public TrGraphics {
public:
    TrRectangle();
    static const shr::CTypeInfo* GetClassTypeId();

    double x1;
    double y1;
    double x2;
    double y2;
    double radiusX;
    double radiusY;
};

class TrEllipse : public TrGraphics {
public:
    TrEllipse();
    static const shr::CTypeInfo* GetClassTypeId();

    double x1;
    double y1;
    double x2;
    double y2;
};

class TrText : public TrGraphics {
public:
    enum class Justify : int { Left = 0, Centre = 1, Right = 2 };

    TrText(const std::wstring& initialText, const shr::Vec3d& initialPosition);
    static const shr::CTypeInfo* GetClassTypeId();

    std::wstring text;
    shr::Vec3d position;
    shr::Box2d box;
    Justify justify;
    int align;
    shr::Mat4d transform;
};

class TrPen : public TrBase {
public:
    enum class Style : std::uint16_t { Undefined = 0, Solid = 1, NoLine = 2, CustomDash = 3 };

    TrPen(Style penStyle, const shr::Color4b& penColor, double penWidth);
    TrPen& operator=(const TrPen&);
    static const shr::CTypeInfo* GetClassTypeId();

    Style style;
    shr::Color4b color;
    bool isRelative;
    double width;
    std::vector<float> dashes;
};

class TrBrush : public TrBase {
public:
    enum class Pattern : int {
        None = 1,
        Solid = 2,
        Horizontal = 7,
        Vertical = 8,
        BackwardDiagonal = 9,
        ForwardDiagonal = 10,
        Cross = 11,
        DiagonalCross = 12,
    };

    explicit TrBrush(Pattern brushPattern);
    TrBrush& operator=(const TrBrush&);
    static const shr::CTypeInfo* GetClassTypeId();

    Pattern pattern;
    shr::Color4b fore;
    shr::Color4b back;
};

class TrFont : public TrBase {
public:
    static constexpr std::uint16_t kWeightMask = 0x000F;
    static constexpr std::uint16_t kBoldFrom = 6;
    static constexpr std::uint16_t kItalic = 0x0010;
    static constexpr std::uint16_t kUnderline = 0x0020;

    explicit TrFont(const std::wstring& face);
    TrFont& operator=(const TrFont&);
    static const shr::CTypeInfo* GetClassTypeId();

    std::wstring faceName;
    std::uint16_t flags;
    double height;
    double widthDivisor;
};

class TrCRS : public TrBase {
public:
    TrCRS();
    TrCRS& operator=(const TrCRS&);
    static const shr::CTypeInfo* GetClassTypeId();

    virtual void SetCS(const gcs::CSDef* definition);
    const gcs::CSDef* GetCS() const;
};

class TrNamedIds : public TrBase {
public:
    TrNamedIds();
    static const shr::CTypeInfo* GetClassTypeId();

    std::vector<std::wstring> names;
};

class TrInitGraphicsImp : public TrBase {
public:
    TrInitGraphicsImp(const shr::Vec3d& minCorner, const shr::Vec3d& maxCorner,
                      TrGraphics::FT_COORDSYS coordinateKind);
    static const shr::CTypeInfo* GetClassTypeId();
};

// Made by the host only.
class TrInitGraphicsExp : public TrBase {
public:
    static const shr::CTypeInfo* GetClassTypeId();

    std::uint8_t codes[4];
    std::uint32_t capabilities;
    double scale;
    double unitsPerPoint;
    shr::Box3d extent;

private:
    TrInitGraphicsExp();
};

}  // namespace zeio
