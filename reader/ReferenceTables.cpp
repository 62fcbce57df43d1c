// For the module, quirk for quirk: every row that files and hosts rely on, in its order.
#include "reader/ReferenceTables.h"

#include "host/platform/Stdio.h"
#include "host/shr/Text.h"

#include <algorithm>

namespace mif {

namespace {

using Method = gcs::ProjectionMethod;

// In the flag columns T is a parameter that the clause carries, o one that it doesn't.
constexpr bool T = true;
constexpr bool o = false;

}  // namespace

// clang-format off
// Kept: code 8 stands twice. Reading always takes its first row; the second serves the writer,
// which looks for the method. Codes 28, 29 and 2003 repeat the method of an earlier row: they are
// read, and never written.
constexpr std::array<ProjectionRow, kProjectionRowCount> kProjectionTable =
    std::to_array<ProjectionRow>({
    // from, code, longitude, latitude, parallels 1 and 2, azimuth, scale, easting, northing, range
    { 300,    1, o, o, o, o, o, o, o, o, o, Method::LongitudeLatitude},
    { 300,    3, T, T, T, T, o, o, T, T, o, Method::LambertConformalConic},
    { 300,    4, T, T, o, o, o, o, o, o, T, Method::LambertAzimuthalEqualArea},
    { 300,    5, T, o, T, o, o, o, o, o, T, Method::AzimuthalEquidistant},
    { 300,    6, T, T, T, T, o, o, T, T, o, Method::EquidistantConic},
    { 300,    7, T, T, o, o, T, T, T, T, o, Method::HotineObliqueMercator},
    { 300,    8, T, T, o, o, o, T, T, T, o, Method::TransverseMercator},
    { 300,    8, T, T, o, o, o, T, T, T, o, Method::GaussKrueger},
    { 300,    9, T, T, T, T, T, o, T, T, o, Method::AlbersEqualAreaConic},
    { 300,   10, T, o, o, o, o, o, o, o, o, Method::Mercator},
    { 300,   11, T, o, o, o, o, o, o, o, o, Method::MillerCylindrical},
    { 300,   12, T, o, o, o, o, o, o, o, o, Method::Robinson},
    { 300,   13, T, o, o, o, o, o, o, o, o, Method::Mollweide},
    { 300,   14, T, o, o, o, o, o, o, o, o, Method::EckertIV},
    { 300,   15, T, o, o, o, o, o, o, o, o, Method::EckertVI},
    { 300,   16, T, o, o, o, o, o, o, o, o, Method::Sinusoidal},
    { 300,   18, o, o, o, o, o, o, T, T, o, Method::NewZealandMapGrid},
    { 300,   20, T, T, o, o, o, T, T, T, o, Method::Stereographic},
    { 550,   27, T, T, o, o, o, o, T, T, o, Method::Polyconic},
    { 600,   28, T, o, T, o, o, o, o, o, T, Method::AzimuthalEquidistant},
    { 650,   29, T, o, T, o, o, o, o, o, T, Method::LambertAzimuthalEqualArea},
    { 650,   30, T, T, o, o, o, o, T, T, o, Method::CassiniSoldner},
    {1050,   33, T, o, T, o, o, o, T, T, o, Method::EquidistantCylindrical},
    {1050, 2003, T, T, T, T, o, o, T, T, o, Method::LambertConformalConic},
});

constexpr std::array<EllipsoidRow, kEllipsoidRowCount> kEllipsoidTable =
    std::to_array<EllipsoidRow>({
    {300,  9, L"Airy 1930", 6377563.396, 299.3249646},
    {300, 13, L"Airy 1930 (modified for Ireland 1965)", 6377340.189, 299.3249646},
    {300,  2, L"Australian", 6378160.0, 298.25},
    {300, 10, L"Bessel 1841", 6377397.155, 299.1528128},
    {300, 14, L"Bessel 1841 (modified for Schwarzeck)", 6377483.865, 299.1528128},
    {300, 35, L"Bessel 1841 (modified for NGO 1948)", 6377492.0176, 299.15281},
    {300, 36, L"Clarke 1858", 6378293.639, 294.26068},
    {300,  7, L"Clarke 1866", 6378206.4, 294.9786982},
    {300,  8, L"Clarke 1866 (modified for Michigan)", 6378450.047484481, 294.9786982},
    {300,  6, L"Clarke 1880", 6378249.145, 293.465},
    {300, 15, L"Clarke 1880 (modified for Arc 1950)", 6378249.145326, 293.4663076},
    {300, 30, L"Clarke 1880 (modified for IGN)", 6378249.2, 293.4660213},
    {300, 37, L"Clarke 1880 (modified for Jamaica)", 6378249.136, 293.46631},
    {300, 16, L"Clarke 1880 (modified for Merchich)", 6378249.2, 293.46598},
    {300, 38, L"Clarke 1880 (modified for Palestine)", 6378300.79, 293.46623},
    {300, 11, L"Everest 1830", 6377276.345, 300.8017},
    {300, 40, L"Everest 1830 (modified for Kalianpur)", 6377301.243, 300.80174},
    {300, 17, L"Everest 1830 (modified for Kertau)", 6377304.063, 300.8017},
    {300, 48, L"Everest 1830 (modified for West Malaysia)", 6377295.664, 300.8017},
    {300, 39, L"Everest 1830 (modified for Timbalai)", 6377298.556, 300.8017},
    {300, 18, L"Fischer 1960", 6378166.0, 298.3},
    {300, 19, L"Fischer 1960 (modified for South Asia)", 6378155.0, 298.3},
    {300, 20, L"Fischer 1968", 6378150.0, 298.3},
    {300, 21, L"GRS 67", 6378160.0, 298.247167427},
    {300,  0, L"GRS 80", 6378137.0, 298.257222101},
    {300,  5, L"Hayford", 6378388.0, 297.0},
    {300, 22, L"Helmert 1906", 6378200.0, 298.3},
    {300, 23, L"Hough", 6378270.0, 297.0},
    {300, 31, L"IAG 75", 6378140.0, 298.257222},
    {300, 41, L"Indonesian", 6378160.0, 298.247},
    {300,  4, L"International 1924", 6378388.0, 297.0},
    {300,  3, L"Krassovsky", 6378245.0, 298.3},
    {300, 32, L"MERIT 83", 6378137.0, 298.257},
    {300, 33, L"New International 1967", 6378157.5, 298.25},
    {300, 42, L"NWL 9D", 6378145.0, 298.25},
    {300, 43, L"NWL 10D", 6378135.0, 298.26},
    {300, 44, L"OSU86F", 6378136.2, 298.25722},
    {300, 45, L"OSU91A", 6378136.3, 298.25722},
    {300, 46, L"Plessis 1817", 6376523.0, 308.64},
    {300, 24, L"South American", 6378160.0, 298.25},
    {300, 12, L"Sphere", 6370997.0, 0.0},
    {300, 47, L"Struve 1860", 6378297.0, 294.73},
    {300, 34, L"Walbeck", 6376896.0, 302.78},
    {300, 25, L"War Office", 6378300.583, 296.0},
    {300, 26, L"WGS 60", 6378165.0, 298.3},
    {300, 27, L"WGS 66", 6378145.0, 298.25},
    {300,  1, L"WGS 72", 6378135.0, 298.26},
    {300, 49, L"Irish (WOFO)", 6377542.178, 299.325},
    {300, 50, L"Everest (Pakistan)", 6377309.613, 300.8017},
    {300, 52, L"PZ90 (Russia)", 6378136.0, 298.257839303},
    {300, 51, L"ATS 77 (Average Terrestrial System 1977)", 6378135.0, 298.257},
    {300, 53, L"Xian 1980", 6378140.0, 298.25},
    {300, 28, L"WGS 84", 6378137.0, 298.257223563},
});

// Kept: tokens that stand under two codes, codes with several tokens, a doubled prefix and a token
// that ends in a comma. Searches take the first row, and the known datums have none with a comma:
// files with code 113 are read as having an unknown datum.
constexpr std::array<DatumRow, kDatumRowCount> kDatumTable = std::to_array<DatumRow>({
    {300,    1, "DATUM_ADINDAN_MEAN"},
    {300,    2, "DATUM_AFGOOYE_SOMALIA"},
    {300,    3, "DATUM_AIN_EL_ABD_BAHRAIN"},
    {300,    4, "DATUM_ANNA_ASTRO_1965"},
    {300,    5, "DATUM_ARC50_MEAN"},
    {300,    6, "DATUM_ARC60_MEAN"},
    {300,    7, "DATUM_ASCENSION"},
    {300,    8, "DATUM_ASTRO_BEACON"},
    {300,    9, "DATUM_ASTRO_B4"},
    {300,   10, "DATUM_ASTRO_DOS"},
    {300,   11, "DATUM_ASTRONOMIC_1952"},
    {300,   12, "DATUM_AUSTRALIAN_1966"},
    {300,   13, "DATUM_AUSTRALIAN_1984"},
    {300,  110, "DATUM_BELGIUM"},
    {300,   14, "DATUM_BELLEVUE"},
    {300,   15, "DATUM_BERMUDA"},
    {300,   16, "DATUM_BOGOTA"},
    {300,   17, "DATUM_CAMPO_INCH"},
    {300,   18, "DATUM_CANTON_ASTRO"},
    {300,   19, "DATUM_CAPE"},
    {300,   20, "DATUM_CAPE_CANAVERAL"},
    {300,   21, "DATUM_CARTHAGE"},
    {300,   22, "DATUM_CHATHAM"},
    {300,   23, "DATUM_CHUA_ASTRO"},
    {300,   24, "DATUM_CORREGO_ALEGRE"},
    {300, 1000, "DATUM_DHDN"},
    {300,   25, "DATUM_DJAKARTA"},
    {300,   26, "DATUM_DOS"},
    {300,   27, "DATUM_EASTER_ISLAND"},
    {300,   28, "DATUM_ED50"},
    {300,   29, "DATUM_ED79_MEAN"},
    {300,  108, "DATUM_ED87"},
    {300,   30, "DATUM_GANDAJIKA"},
    {300,   31, "DATUM_GEODETIC49"},
    {300,   33, "DATUM_GRS80EUREF89_BURSA"},
    {300,   34, "DATUM_GUAM"},
    {300,   35, "DATUM_GUX"},
    {300,   36, "DATUM_PROV_SO_CHILEAN"},
    {300,   37, "DATUM_HJORSEY"},
    {300,   38, "DATUM_HONG_KONG"},
    {300,   39, "DATUM_HU_TZU_SHAN"},
    {300,   40, "DATUM_INDIAN_1975"},
    {300,   41, "DATUM_INDIAN_BANG"},
    {300,   42, "DATUM_DATUM_HJORSEY"},
    {300,   43, "DATUM_ISTS_073_ASTRO"},
    {300,   44, "DATUM_JOHNSTON_ISLAND"},
    {300,   45, "DATUM_KANDAWALA"},
    {300,   46, "DATUM_KERGUELEN_ISLAND"},
    {300,   47, "DATUM_KERTAU"},
    {300,   48, "DATUM_LC5"},
    {300,   49, "DATUM_LIBERIA"},
    {300,  113, "DATUM_DLX,"},
    {300,   50, "DATUM_LUZON_PHILIPPINES"},
    {300,   51, "DATUM_LUZON_MINDANAO"},
    {300,   52, "DATUM_MAHE"},
    {300,   53, "DATUM_MARCO_ASTRO"},
    {300,   54, "DATUM_MASSAWA"},
    {300,  114, "DATUM_D73"},
    {300,   55, "DATUM_MERCHICH"},
    {300,   56, "DATUM_MIDWAY"},
    {300,   57, "DATUM_MINNA_NIGERIA"},
    {300,   58, "DATUM_NAHRAN_MASIRAH"},
    {300,   59, "DATUM_NAHRAN_UAE"},
    {300,   60, "DATUM_NAHRAN_SAUDI"},
    {300,   61, "DATUM_NAPARIMA"},
    {300,  109, "DATUM_NETHERLANDS"},
    {300,   62, "DATUM_NAD27_MOL"},
    {300,   62, "DATUM_NAD27_CONUS"},
    {300,   63, "DATUM_NAD27_ALASKA"},
    {300,   64, "DATUM_NAD27_BAHAMAS"},
    {300,   65, "DATUM_NAD27_SAN_SALV"},
    {300,   66, "DATUM_NAD27_CANADA_MEAN"},
    {300,   67, "DATUM_NAD27_CANAL_ZONE"},
    {300,   68, "DATUM_NAD27_CARRIBEAN"},
    {300,   69, "DATUM_NAD27_CENTRAL_AM"},
    {300,   70, "DATUM_NAD27_CUBA"},
    {300,   71, "DATUM_NAD27_GREENLAND"},
    {300,   72, "DATUM_NAD27_MEXICO"},
    {300,   74, "DATUM_NAD83"},
    {300,  107, "DATUM_NTF_PARIS"},
    {300, 1002, "DATUM_NTF_GREENWICH"},
    {300,   76, "DATUM_OLD_EGYPTIAN"},
    {300,   77, "DATUM_OLD_HAWAIIAN_MEAN"},
    {300,   78, "DATUM_OMAN"},
    {300,   79, "DATUM_ORD_SURV_GB"},
    {300,   80, "DATUM_PICO_DE_LAS_NIEVES"},
    {300,   81, "DATUM_PITCAIRN"},
    {300, 1008, "DATUM_POTSDAM_PD83"},
    {300,   82, "DATUM_PROV_SA_MEAN"},
    {300,   83, "DATUM_PUERTO_RICO"},
    {300, 1001, "DATUM_PULKOVO_1942"},
    {300,   84, "DATUM_QATAR_NATIONAL"},
    {300,   85, "DATUM_QORNOG"},
    {300, 1000, "DATUM_RAUENBERG_RD83"},
    {300,   86, "DATUM_REUNION"},
    {300,  112, "DATUM_GEOTIFFHORIZCS_62"},
    {300,   87, "DATUM_ROME"},
    {300,   88, "DATUM_SANTO_DOS"},
    {300,   89, "DATUM_SAO_BRAZ"},
    {300,   90, "DATUM_SAPPER_HILL"},
    {300,   91, "DATUM_SCHWARZECK"},
    {300,   92, "DATUM_SA69"},
    {300,   93, "DATUM_SOUTH_ASIA"},
    {300,   94, "DATUM_SOUTHEAST_BASE"},
    {300,   95, "DATUM_SOUTHWEST_BASE"},
    {300, 1003, "DATUM_CH1903"},
    {300,   96, "DATUM_TIMBALAI"},
    {300,   97, "DATUM_TOKYO"},
    {300,   98, "DATUM_TRISTAN_ASTRO"},
    {300,   99, "DATUM_VITI_LEVU"},
    {300,  100, "DATUM_WAKE_ENIWETOK"},
    {300,  103, "DATUM_WGS72"},
    {300,  103, "DATUM_WGS72_MOL"},
    {300,  104, "DATUM_WGS84"},
    {300,  105, "DATUM_YACARE"},
    {300,  106, "DATUM_ZANDERIJ"},
    {600, 1004, "DATUM_EPSG_CRS4237_DAT6237_OP1677"},
    {600,  150, "DATUM_HARTEBEESTHOEK_1994"},
    {600,  116, "DATUM_GDA94_EPSG4283"},
    {600,  116, "DATUM_GDA94_2002"},
    {600,  116, "DATUM_GDA94_2000"},
    {600,  116, "DATUM_GDA94_1998"},
    {600,  116, "DATUM_GDA94_1996"},
    {600,  116, "DATUM_GDA94_1994"},
    {600,  116, "DATUM_GDA94_1992"},
    {600, 1006, "DATUM_AGD84"},
    {600, 1007, "DATUM_AUSTRALIAN_1966"},
    {600, 1010, "DATUM_GEODETIC49"},
    {600,  115, "DATUM_GRS80EUREF89_BURSA"},
    {600,  117, "DATUM_NZGD2000"},
    {600,  118, "DATUM_AMERICAN_SAMOA"},
    {600,  119, "DATUM_ANTIGUA_ASTRO"},
    {600,  120, "DATUM_AYABELLE_LIGHTHOUSE"},
    {600,  121, "DATUM_BUKIT_RIMPAH"},
    {600,  122, "DATUM_GDAL151GTDATUMCSVLINE_51"},
    {600,  123, "DATUM_DABOLA"},
    {600,  124, "DATUM_DECEPTION"},
    {600,  125, "DATUM_FORT_THOMAS"},
    {600,  126, "DATUM_GRACIOSA_BASE"},
    {600,  127, "DATUM_HERAT_NORTH"},
    {600,  128, "DATUM_GDAL151GTDATUMCSVLINE_78"},
    {600,  129, "DATUM_INDIAN_PAK"},
    {600,  130, "DATUM_INDIAN_1954"},
    {600,  131, "DATUM_INDIAN_1960_VIET"},
    {600,  132, "DATUM_INDIAN_1975"},
    {600,  133, "DATUM_INDONESIAN_1974"},
    {600,  134, "DATUM_ISTS_061_ASTRO"},
    {600, 1016, "DATUM_EPSG_CRS4123_DAT6123_OP10099"},
    {600,  135, "DATUM_KUSAIE"},
    {600,  136, "DATUM_LEGION"},
    {600,  137, "DATUM_MONTSERRAT"},
    {600,  138, "DATUM_GDAL151GTDATUMCSVLINE_113"},
    {600,  139, "DATUM_GDAL151GTDATUMCSVLINE_145"},
    {600,  140, "DATUM_OBSERVATORIO"},
    {600,  141, "DATUM_POINT_58"},
    {600,  142, "DATUM_POINTE_NOIRE"},
    {600,  143, "DATUM_PORTO_SANTO"},
    {600,  144, "DATUM_SELVAGEM"},
    {600,  145, "DATUM_GDAL_6175"},
    {600,  147, "DATUM_TANANARIVE"},
    {600,  148, "DATUM_GDAL151GTDATUMCSVLINE_210"},
    {600,  149, "DATUM_GDAL151GTDATUMCSVLINE_220"},
    {800,  154, "DATUM_EPSG_CRS4214_DAT6214_OP15918"},
    {800, 1019, "DATUM_BELGIUM"},
    {950,  155, "DATUM_GDAL_6754"},
    {950,  157, "DATUM_EPSG_CRS4055_DAT6055_OP15973"},
});
// clang-format on

// A missing row would not compile; these see to a row in the wrong place.
static_assert(kProjectionTable.size() == 24 && kProjectionTable.back().mifCode == 2003);
static_assert(kEllipsoidTable.size() == 53 && kEllipsoidTable.back().mifCode == 28);
static_assert(kDatumTable.size() == 166 && kDatumTable.back().mifCode == 157);

namespace {

// Both lists of names are ASCII, so their lengths in narrow and wide characters agree.
bool EqualsNoCase(const std::wstring& left, const std::wstring& right) {
    return left.size() == right.size() &&
           platform::CompareNoCase(left.c_str(), right.c_str(), left.size()) == 0;
}

template <typename Table, typename Predicate>
auto FirstRow(const Table& table, Predicate fits) -> decltype(table.data()) {
    const auto row = std::find_if(table.begin(), table.end(), fits);
    return row == table.end() ? nullptr : &*row;
}

}  // namespace

const ProjectionRow* FindProjectionByCode(int mifCode) {
    return FirstRow(kProjectionTable,
                    [mifCode](const ProjectionRow& row) { return row.mifCode == mifCode; });
}

const ProjectionRow* FindProjectionByMethod(gcs::ProjectionMethod method) {
    return FirstRow(kProjectionTable,
                    [method](const ProjectionRow& row) { return row.method == method; });
}

const DatumRow* FindDatumByCode(int mifCode) {
    return FirstRow(kDatumTable, [mifCode](const DatumRow& row) { return row.mifCode == mifCode; });
}

const DatumRow* FindDatumByToken(const std::wstring& token) {
    return FirstRow(kDatumTable, [&token](const DatumRow& row) {
        return EqualsNoCase(shr::AtoW(row.token, 0), token);
    });
}

const EllipsoidRow* FindEllipsoidByCode(int mifCode) {
    // Kept: 0 is what a missing or unreadable code reads as, so it names no ellipsoid and the
    // reader's preset stays. The writer picks rows by their dimensions and may write a 0.
    if (mifCode == 0) {
        return nullptr;
    }
    return FirstRow(kEllipsoidTable,
                    [mifCode](const EllipsoidRow& row) { return row.mifCode == mifCode; });
}

double Flattening(const EllipsoidRow& row) {
    return row.inverseFlattening == 0.0 ? 0.0 : 1.0 / row.inverseFlattening;
}

}  // namespace mif
