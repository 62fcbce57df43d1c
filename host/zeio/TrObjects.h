// The translation objects that pass between filters and host.
//
// An object is of class C exactly when GetTypeId() is the pointer that C::GetClassTypeId()
// returns. World coordinates unless a field says otherwise. Whoever made an object owns it; who
// receives one copies what it needs before returning. A host may also move parts out of the objects
// of an import; a filter leaves those of an export as they are.
//
// A pen, brush or font applies to the graphic objects behind it, until the next one of its kind.
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

    // Returns the record of the object's own class; never null.
    virtual const shr::CTypeInfo* GetTypeId() const = 0;

    // Returns the class's record, the base of all others. Each class below has one likewise.
    static const shr::CTypeInfo* GetClassTypeId();
};

// The base of what is drawn.
class QOLF_HOST_API TrGraphics : public TrBase {
public:
    // What the coordinates of an import are: in this system always the world's.
    enum class FT_COORDSYS : int { World = 0 };

    ~TrGraphics() override;
    static const shr::CTypeInfo* GetClassTypeId();

    // The object's row of values: column name (TrNamedIds) to text. Empty when it has no row.
    shr::CParamList attributes;
};

// A line through its vertices in order; not closed unless the last vertex is the first.
class QOLF_HOST_API TrPolyline : public TrGraphics {
public:
    TrPolyline();
    ~TrPolyline() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::vector<shr::Vec3d> vertices;
};

// An area of one or more rings. Which of them are holes is not said; a ring may end where it begins
// or leave that to the reader.
class QOLF_HOST_API TrPolygon : public TrGraphics {
public:
    TrPolygon();
    ~TrPolygon() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::vector<shr::Vec3d> vertices;

    // Vertices per ring, ring after ring; empty means one ring of all vertices. Filters take counts
    // that don't fit the list as far as they do.
    std::vector<std::int32_t> partSizes;
};

// Where a marker's symbol is from: a character of a font, or the host's own set.
enum class SymbolStyle : int { TrueTypeFont = 0, DefaultSymbolSet = 1 };

// The same symbol at one or more positions.
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
    int symbolIndex;  // the character's number less 32, or the symbol's in the set
    std::vector<shr::Vec3d> positions;
};

// A rectangle along the axes by two opposite corners, in any order.
class QOLF_HOST_API TrRectangle : public TrGraphics {
public:
    TrRectangle();
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

// The ellipse in a bounding rectangle, which is given as that of TrRectangle.
class QOLF_HOST_API TrEllipse : public TrGraphics {
public:
    TrEllipse();
    ~TrEllipse() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    double x1 = 0.0;
    double y1 = 0.0;
    double x2 = 0.0;
    double y2 = 0.0;
};

// One line of text at a position, drawn with the last TrFont in the colour of the last TrBrush.
class QOLF_HOST_API TrText : public TrGraphics {
public:
    enum class Justify : int { Left = 0, Centre = 1, Right = 2 };

    TrText();
    TrText(std::wstring initialText, const shr::Vec3d& initialPosition);
    ~TrText() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::wstring text;
    shr::Vec3d position;                   // where the text begins, and what it is turned about
    shr::Box2d box{0.0, 0.0, -1.0, -1.0};  // of the text before it is turned; empty until it is set
    Justify justify = Justify::Left;
    int align = 0;         // the vertical alignment; import sets 1
    shr::Mat4d transform;  // turns the text about its position
};

// How lines are drawn.
class QOLF_HOST_API TrPen : public TrBase {
public:
    // Undefined is what an export filter starts with. Other values are allowed and mean "dashed".
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

// How areas are filled; texts take their colour from it.
class QOLF_HOST_API TrBrush : public TrBase {
public:
    // The hatches are drawn in the fore colour. Patterns 3 to 6 are the host's own.
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
    shr::Color4b back{255, 255, 255, 0};  // between the lines of a hatch; alpha 0: nothing there
};

// How texts are drawn.
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

// The coordinate system of what follows. An import sends one at most, before the objects; without
// one the coordinates are those of a plane.
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

    // Returns the definition, null when there is none. Valid until SetCS, or until the object goes.
    const gcs::CSDef* GetCS() const { return definition_.get(); }

private:
    std::unique_ptr<gcs::CSDef> definition_;
};

// The attribute columns, in order. Comes before the objects that have values in them; without one
// there are no columns.
class QOLF_HOST_API TrNamedIds : public TrBase {
public:
    TrNamedIds();
    ~TrNamedIds() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::vector<std::wstring> names;
};

// The first object of an import. A filter that does not know the extent sends two equal corners.
class QOLF_HOST_API TrInitGraphicsImp : public TrBase {
public:
    TrInitGraphicsImp(const shr::Vec3d& minCorner, const shr::Vec3d& maxCorner,
                      TrGraphics::FT_COORDSYS coordinateKind);
    ~TrInitGraphicsImp() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    shr::Vec3d min;  // corners of the drawing's extent
    shr::Vec3d max;
    TrGraphics::FT_COORDSYS kind;
};

// The first object of an export: the host fills in what it knows and hands it over, and the filter
// writes its answers into it.
class QOLF_HOST_API TrInitGraphicsExp : public TrBase {
public:
    TrInitGraphicsExp();
    ~TrInitGraphicsExp() override;
    const shr::CTypeInfo* GetTypeId() const override;
    static const shr::CTypeInfo* GetClassTypeId();

    std::uint8_t codes[4] = {0, 0, 0, 0};  // the filter's answer

    // The filter's answer: bit 0 when texts are wanted, bit 1 when markers are. A host asks them
    // before it sends any. The other bits are always the same.
    std::uint32_t capabilities = 0;

    double scale = 0.0;          // 0: not stated
    double unitsPerPoint = 0.0;  // world units per typographic point; 0: not stated
    shr::Box3d extent;           // of the drawing; min above max: not known
};

}  // namespace zeio
