// The translation objects that pass between filters and host.
//
// An object is of class C exactly when GetTypeId() is the pointer that C::GetClassTypeId()
// returns. World coordinates unless a field says otherwise. Whoever made an object owns it; who
// receives one copies what it needs before returning.
#pragma once

#include "host/gcs/CSDef.h"
#include "host/platform/Export.h"
#include "host/shr/CParamList.h"
#include "host/shr/CTypeInfo.h"
#include "host/shr/Color4b.h"
#include "host/shr/Geometry.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zeio {

class QOLF_HOST_API TrBase {
public:
    virtual ~TrBase();
    virtual const shr::CTypeInfo* GetTypeId() const = 0;

    static const shr::CTypeInfo* GetClassTypeId();
};

// The base of what is drawn.
class QOLF_HOST_API TrGraphics : public TrBase {
public:
    // What the coordinates of an import are.
    enum class FT_COORDSYS : int { World = 0 };

    ~TrGraphics() override;
    static const shr::CTypeInfo* GetClassTypeId();

    shr::CParamList attributes;
};

class QOLF_HOST_API TrPolyline : public TrGraphics {
public:
    ~TrPolyline() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::vector<shr::Vec3d> vertices;
};

class QOLF_HOST_API TrPolygon : public TrGraphics {
public:
    ~TrPolygon() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::vector<shr::Vec3d> vertices;

    // Vertices per ring, ring after ring; empty means one ring of all vertices.
    std::vector<std::int32_t> partSizes;
};

enum class SymbolStyle : int { TrueTypeFont = 0, DefaultSymbolSet = 1 };

class QOLF_HOST_API TrMarkerSet : public TrGraphics {
public:
    TrMarkerSet();  // the default symbol set, size 0, no font, symbol 0
    TrMarkerSet(SymbolStyle style, double markerSize, std::wstring font, int index);
    ~TrMarkerSet() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    SymbolStyle symbolStyle;
    double size;  // world units; 0 is the host's own size
    std::wstring fontName;
    int symbolIndex;
    std::vector<shr::Vec3d> positions;
};

class QOLF_HOST_API TrRectangle : public TrGraphics {
public:
    ~TrRectangle() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    double x1 = 0.0;
    double y1 = 0.0;
    double x2 = 0.0;
    double y2 = 0.0;
    double radiusX = 0.0;  // of the corners; both 0 is a plain rectangle
    double radiusY = 0.0;
};

// The ellipse in a bounding rectangle.
class QOLF_HOST_API TrEllipse : public TrGraphics {
public:
    ~TrEllipse() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    double x1 = 0.0;
    double y1 = 0.0;
    double x2 = 0.0;
    double y2 = 0.0;
};

class QOLF_HOST_API TrText : public TrGraphics {
public:
    enum class Justify : int { Left = 0, Centre = 1, Right = 2 };

    TrText();
    TrText(std::wstring initialText, const shr::Vec3d& initialPosition);
    ~TrText() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::wstring text;
    shr::Vec3d position;
    shr::Box2d box{0.0, 0.0, -1.0, -1.0};  // empty until it is set
    Justify justify = Justify::Left;
    int align = 0;  // the vertical alignment; import sets 1
    shr::Mat4d transform;
};

class QOLF_HOST_API TrPen : public TrBase {
public:
    enum class Style : std::uint16_t { Undefined = 0, Solid = 1, NoLine = 2, CustomDash = 3 };

    TrPen();  // style 0, colour (0, 0, 0, 0), width 0
    TrPen(Style penStyle, const shr::Color4b& penColor, double penWidth);
    ~TrPen() override;
    TrPen(const TrPen&);
    TrPen& operator=(const TrPen&);
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    Style style;
    shr::Color4b color;
    bool isRelative = true;     // width in world units; else in inches
    double width;               // 0 is the thinnest line
    std::vector<float> dashes;  // for CustomDash: dash, gap, dash, ...
};

class QOLF_HOST_API TrBrush : public TrBase {
public:
    enum class Pattern : int {
        None = 1,
        Solid = 2,
        Pattern3 = 3,
        Pattern4 = 4,
        Pattern5 = 5,
        Pattern6 = 6,
        Horizontal = 7,
        Vertical = 8,
        BackwardDiagonal = 9,
        ForwardDiagonal = 10,
        Cross = 11,
        DiagonalCross = 12,
    };

    TrBrush();  // pattern None
    explicit TrBrush(Pattern brushPattern);
    ~TrBrush() override;
    TrBrush(const TrBrush&);
    TrBrush& operator=(const TrBrush&);
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    Pattern pattern;
    shr::Color4b fore{0, 0, 0, 255};
    shr::Color4b back{255, 255, 255, 0};
};

class QOLF_HOST_API TrFont : public TrBase {
public:
    static constexpr std::uint16_t kWeightMask = 0x000F;
    static constexpr std::uint16_t kBoldFrom = 6;  // weight classes of 6 and more are bold
    static constexpr std::uint16_t kItalic = 0x0010;
    static constexpr std::uint16_t kUnderline = 0x0020;

    TrFont();
    explicit TrFont(std::wstring face);
    ~TrFont() override;
    TrFont(const TrFont&);
    TrFont& operator=(const TrFont&);
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::wstring faceName;      // empty: the system's default variable-pitch face
    std::uint16_t flags = 4;    // weight class and style bits above
    double height = 0.0;        // world units; 0 means 1
    double widthDivisor = 0.0;  // character width is height / divisor; 0 means height x 0.7
};

// The coordinate system of what follows.
class QOLF_HOST_API TrCRS : public TrBase {
public:
    TrCRS();
    ~TrCRS() override;
    TrCRS(const TrCRS&);
    TrCRS& operator=(const TrCRS&);
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    // Keeps a copy of the definition; null takes it away.
    virtual void SetCS(const gcs::CSDef* definition);

    const gcs::CSDef* GetCS() const { return definition_.get(); }  // null: none

private:
    std::unique_ptr<gcs::CSDef> definition_;
};

// The attribute columns, in order.
class QOLF_HOST_API TrNamedIds : public TrBase {
public:
    ~TrNamedIds() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::vector<std::wstring> names;
};

// The first object of an import.
class QOLF_HOST_API TrInitGraphicsImp : public TrBase {
public:
    TrInitGraphicsImp(const shr::Vec3d& minCorner, const shr::Vec3d& maxCorner,
                      TrGraphics::FT_COORDSYS coordinateKind);
    ~TrInitGraphicsImp() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    shr::Vec3d min;
    shr::Vec3d max;
    TrGraphics::FT_COORDSYS kind;
};

// The first object of an export: the host's questions, and the filter's answers.
class QOLF_HOST_API TrInitGraphicsExp : public TrBase {
public:
    TrInitGraphicsExp();
    ~TrInitGraphicsExp() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::uint8_t codes[4] = {0, 0, 0, 0};  // the filter's answer
    std::uint32_t capabilities = 0;        // the filter's answer
    double scale = 0.0;                    // 0: not stated
    double unitsPerPoint = 0.0;            // world units per typographic point; 0: not stated
    shr::Box3d extent;                     // of the drawing; min above max: not known
};

}  // namespace zeio
