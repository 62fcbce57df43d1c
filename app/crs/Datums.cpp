#include "app/crs/Datums.h"

#include "host/gcs/KnownLists.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace app {

namespace {

struct DatumRow {
    int code;
    int newerCode;  // a second code for the same datum; 0: none
    int fromVersion;
    const wchar_t* token;
    int epsgGeographicCode;  // 0: no code belongs to the datum for certain
    const char* epsgName;    // null: the register's system has another ellipsoid, or grads
};

// The order is that of the known list, which decides where two rows have one code.
// clang-format off
constexpr DatumRow kDatums[] = {
    {1, 0, 300, L"DATUM_ADINDAN_MEAN", 4201, "Adindan"},
    {2, 0, 300, L"DATUM_AFGOOYE_SOMALIA", 4205, "Afgooye"},
    {3, 0, 300, L"DATUM_AIN_EL_ABD_BAHRAIN", 4204, "Ain el Abd"},
    {4, 0, 300, L"DATUM_ANNA_ASTRO_1965", 4708, "Cocos Islands 1965"},
    {5, 0, 300, L"DATUM_ARC50_MEAN", 4209, "Arc 1950"},
    {6, 0, 300, L"DATUM_ARC60_MEAN", 4210, "Arc 1960"},
    {7, 0, 300, L"DATUM_ASCENSION", 4712, "Ascension Island 1958"},
    {8, 0, 300, L"DATUM_ASTRO_BEACON", 4709, "Iwo Jima 1945"},
    {9, 0, 300, L"DATUM_ASTRO_B4", 4707, "Tern Island 1961"},
    {10, 0, 300, L"DATUM_ASTRO_DOS", 4710, "Astro DOS 71"},
    {11, 0, 300, L"DATUM_ASTRONOMIC_1952", 4711, "Marcus Island 1952"},
    {12, 1007, 300, L"DATUM_AUSTRALIAN_1966", 4202, "AGD66"},
    {13, 0, 300, L"DATUM_AUSTRALIAN_1984", 4203, "AGD84"},
    {110, 1019, 300, L"DATUM_BELGIUM", 4313, "BD72"},
    {14, 0, 300, L"DATUM_BELLEVUE", 4714, "Bellevue"},
    {15, 0, 300, L"DATUM_BERMUDA", 4216, "Bermuda 1957"},
    {16, 0, 300, L"DATUM_BOGOTA", 4218, "Bogota 1975"},
    {17, 0, 300, L"DATUM_CAMPO_INCH", 4221, "Campo Inchauspe"},
    {18, 0, 300, L"DATUM_CANTON_ASTRO", 4716, "Phoenix Islands 1966"},
    {19, 0, 300, L"DATUM_CAPE", 4222, nullptr},
    {20, 0, 300, L"DATUM_CAPE_CANAVERAL", 4717, "Cape Canaveral"},
    {21, 0, 300, L"DATUM_CARTHAGE", 4223, nullptr},
    {22, 0, 300, L"DATUM_CHATHAM", 4672, "Chatham Islands 1971"},
    {23, 0, 300, L"DATUM_CHUA_ASTRO", 4224, "Chua"},
    {24, 0, 300, L"DATUM_CORREGO_ALEGRE", 4225, "Corrego Alegre 1970-72"},
    {1000, 0, 300, L"DATUM_DHDN", 4314, "DHDN"},
    {25, 0, 300, L"DATUM_DJAKARTA", 4211, "Batavia"},
    {26, 0, 300, L"DATUM_DOS", 4718, "Solomon 1968"},
    {27, 0, 300, L"DATUM_EASTER_ISLAND", 4719, "Easter Island 1967"},
    {28, 0, 300, L"DATUM_ED50", 4230, "ED50"},
    {29, 0, 300, L"DATUM_ED79_MEAN", 4668, "ED79"},
    {108, 0, 300, L"DATUM_ED87", 4231, "ED87"},
    {30, 0, 300, L"DATUM_GANDAJIKA", 4684, "Gan 1970"},
    {31, 1010, 300, L"DATUM_GEODETIC49", 4272, "NZGD49"},
    {33, 115, 300, L"DATUM_GRS80EUREF89_BURSA", 4258, "ETRS89"},
    {34, 0, 300, L"DATUM_GUAM", 4675, "Guam 1963"},
    {35, 0, 300, L"DATUM_GUX", 4718, "Solomon 1968"},
    {36, 0, 300, L"DATUM_PROV_SO_CHILEAN", 4254, "Hito XVIII 1963"},
    {37, 0, 300, L"DATUM_HJORSEY", 4658, "Hjorsey 1955"},
    {38, 0, 300, L"DATUM_HONG_KONG", 4739, "Hong Kong 1963(67)"},
    {39, 0, 300, L"DATUM_HU_TZU_SHAN", 4236, "Hu Tzu Shan 1950"},
    {40, 132, 300, L"DATUM_INDIAN_1975", 4240, "Indian 1975"},
    {41, 0, 300, L"DATUM_INDIAN_BANG", 4144, "Kalianpur 1937"},
    {42, 0, 300, L"DATUM_DATUM_HJORSEY", 4299, "TM65"},
    {43, 0, 300, L"DATUM_ISTS_073_ASTRO", 4724, "Diego Garcia 1969"},
    {44, 0, 300, L"DATUM_JOHNSTON_ISLAND", 4725, "Johnston Island 1961"},
    {45, 0, 300, L"DATUM_KANDAWALA", 4244, "Kandawala"},
    {46, 0, 300, L"DATUM_KERGUELEN_ISLAND", 4698, "IGN 1962 Kerguelen"},
    {47, 0, 300, L"DATUM_KERTAU", 4245, "Kertau 1968"},
    {48, 0, 300, L"DATUM_LC5", 4726, "SIGD61"},
    {49, 0, 300, L"DATUM_LIBERIA", 4251, "Liberia 1964"},
    {113, 0, 300, L"DATUM_DLX", 4207, "Lisbon"},
    {50, 0, 300, L"DATUM_LUZON_PHILIPPINES", 4253, "Luzon 1911"},
    {51, 0, 300, L"DATUM_LUZON_MINDANAO", 4253, "Luzon 1911"},
    {52, 0, 300, L"DATUM_MAHE", 4256, "Mahe 1971"},
    {53, 0, 300, L"DATUM_MARCO_ASTRO", 4616, "Selvagem Grande"},
    {54, 0, 300, L"DATUM_MASSAWA", 4262, "Massawa"},
    {114, 0, 300, L"DATUM_D73", 4274, "Datum 73"},
    {55, 0, 300, L"DATUM_MERCHICH", 4261, nullptr},
    {56, 0, 300, L"DATUM_MIDWAY", 4727, "Midway 1961"},
    {57, 0, 300, L"DATUM_MINNA_NIGERIA", 4263, "Minna"},
    {58, 0, 300, L"DATUM_NAHRAN_MASIRAH", 4270, "Nahrwan 1967"},
    {59, 0, 300, L"DATUM_NAHRAN_UAE", 4270, "Nahrwan 1967"},
    {60, 0, 300, L"DATUM_NAHRAN_SAUDI", 4270, "Nahrwan 1967"},
    {61, 0, 300, L"DATUM_NAPARIMA", 4271, "Naparima 1972"},
    {109, 0, 300, L"DATUM_NETHERLANDS", 4289, "Amersfoort"},
    {62, 0, 300, L"DATUM_NAD27_MOL", 4267, "NAD27"},
    {62, 0, 300, L"DATUM_NAD27_CONUS", 4267, "NAD27"},
    {63, 0, 300, L"DATUM_NAD27_ALASKA", 4267, "NAD27"},
    {64, 0, 300, L"DATUM_NAD27_BAHAMAS", 4267, "NAD27"},
    {65, 0, 300, L"DATUM_NAD27_SAN_SALV", 4267, "NAD27"},
    {66, 0, 300, L"DATUM_NAD27_CANADA_MEAN", 4267, "NAD27"},
    {67, 0, 300, L"DATUM_NAD27_CANAL_ZONE", 4267, "NAD27"},
    {68, 0, 300, L"DATUM_NAD27_CARRIBEAN", 4267, "NAD27"},
    {69, 0, 300, L"DATUM_NAD27_CENTRAL_AM", 4267, "NAD27"},
    {70, 0, 300, L"DATUM_NAD27_CUBA", 4267, "NAD27"},
    {71, 0, 300, L"DATUM_NAD27_GREENLAND", 4267, "NAD27"},
    {72, 0, 300, L"DATUM_NAD27_MEXICO", 4267, "NAD27"},
    {74, 0, 300, L"DATUM_NAD83", 4269, "NAD83"},
    // The tokens name each other's meridian; see the table of the known datums.
    {107, 0, 300, L"DATUM_NTF_PARIS", 4275, "NTF"},
    {1002, 0, 300, L"DATUM_NTF_GREENWICH", 4807, nullptr},
    {76, 0, 300, L"DATUM_OLD_EGYPTIAN", 4229, "Egypt 1907"},
    {77, 0, 300, L"DATUM_OLD_HAWAIIAN_MEAN", 4135, "Old Hawaiian"},
    {78, 0, 300, L"DATUM_OMAN", 4232, "Fahud"},
    {79, 0, 300, L"DATUM_ORD_SURV_GB", 4277, "OSGB36"},
    {80, 0, 300, L"DATUM_PICO_DE_LAS_NIEVES", 4728, "PN84"},
    {81, 0, 300, L"DATUM_PITCAIRN", 4729, "Pitcairn 1967"},
    {1008, 0, 300, L"DATUM_POTSDAM_PD83", 4746, "PD/83"},
    {82, 0, 300, L"DATUM_PROV_SA_MEAN", 4248, "PSAD56"},
    {83, 0, 300, L"DATUM_PUERTO_RICO", 4139, "Puerto Rico"},
    {1001, 0, 300, L"DATUM_PULKOVO_1942", 4178, "Pulkovo 1942(83)"},
    {84, 0, 300, L"DATUM_QATAR_NATIONAL", 4285, "Qatar 1974"},
    {85, 0, 300, L"DATUM_QORNOG", 4194, "Qornoq 1927"},
    {1000, 0, 300, L"DATUM_RAUENBERG_RD83", 4745, "RD/83"},
    {86, 0, 300, L"DATUM_REUNION", 4626, "Reunion 1947"},
    {112, 0, 300, L"DATUM_GEOTIFFHORIZCS_62", 4124, "RT90"},
    {87, 0, 300, L"DATUM_ROME", 4265, "Monte Mario"},
    {88, 0, 300, L"DATUM_SANTO_DOS", 4730, "Santo 1965"},
    {89, 0, 300, L"DATUM_SAO_BRAZ", 4184, "Azores Oriental 1940"},
    {90, 0, 300, L"DATUM_SAPPER_HILL", 4292, "Sapper Hill 1943"},
    {91, 0, 300, L"DATUM_SCHWARZECK", 4293, "Schwarzeck"},
    {92, 0, 300, L"DATUM_SA69", 4618, "SAD69"},
    {93, 0, 300, L"DATUM_SOUTH_ASIA", 0, nullptr},
    {94, 0, 300, L"DATUM_SOUTHEAST_BASE", 4615, "Porto Santo"},
    {95, 0, 300, L"DATUM_SOUTHWEST_BASE", 4183, "Azores Central 1948"},
    {1003, 0, 300, L"DATUM_CH1903", 4149, "CH1903"},
    {96, 0, 300, L"DATUM_TIMBALAI", 4298, nullptr},
    {97, 0, 300, L"DATUM_TOKYO", 4301, "Tokyo"},
    {98, 0, 300, L"DATUM_TRISTAN_ASTRO", 4734, "Tristan 1968"},
    {99, 0, 300, L"DATUM_VITI_LEVU", 4752, nullptr},
    {100, 0, 300, L"DATUM_WAKE_ENIWETOK", 4732, "Marshall Islands 1960"},
    {103, 0, 300, L"DATUM_WGS72", 4322, "WGS 72"},
    {103, 0, 300, L"DATUM_WGS72_MOL", 4322, "WGS 72"},
    {104, 0, 300, L"DATUM_WGS84", 4326, "WGS 84"},
    {105, 0, 300, L"DATUM_YACARE", 4309, "Yacare"},
    {106, 0, 300, L"DATUM_ZANDERIJ", 4311, "Zanderij"},
    {1004, 0, 600, L"DATUM_EPSG_CRS4237_DAT6237_OP1677", 4237, "HD72"},
    {150, 0, 600, L"DATUM_HARTEBEESTHOEK_1994", 4148, "Hartebeesthoek94"},
    {116, 0, 600, L"DATUM_GDA94_EPSG4283", 4283, "GDA94"},
    {116, 0, 600, L"DATUM_GDA94_2002", 4283, "GDA94"},
    {116, 0, 600, L"DATUM_GDA94_2000", 4283, "GDA94"},
    {116, 0, 600, L"DATUM_GDA94_1998", 4283, "GDA94"},
    {116, 0, 600, L"DATUM_GDA94_1996", 4283, "GDA94"},
    {116, 0, 600, L"DATUM_GDA94_1994", 4283, "GDA94"},
    {116, 0, 600, L"DATUM_GDA94_1992", 4283, "GDA94"},
    {1006, 0, 600, L"DATUM_AGD84", 4203, "AGD84"},
    {117, 0, 600, L"DATUM_NZGD2000", 4167, "NZGD2000"},
    {118, 0, 600, L"DATUM_AMERICAN_SAMOA", 4169, "American Samoa 1962"},
    {119, 0, 600, L"DATUM_ANTIGUA_ASTRO", 4601, "Antigua 1943"},
    {120, 0, 600, L"DATUM_AYABELLE_LIGHTHOUSE", 4713, "Ayabelle Lighthouse"},
    {121, 0, 600, L"DATUM_BUKIT_RIMPAH", 4219, "Bukit Rimpah"},
    {122, 0, 600, L"DATUM_GDAL151GTDATUMCSVLINE_51", 0, nullptr},
    {123, 0, 600, L"DATUM_DABOLA", 4155, nullptr},
    {124, 0, 600, L"DATUM_DECEPTION", 4736, "Deception Island"},
    {125, 0, 600, L"DATUM_FORT_THOMAS", 4605, "St. Kitts 1955"},
    {126, 0, 600, L"DATUM_GRACIOSA_BASE", 4183, "Azores Central 1948"},
    {127, 0, 600, L"DATUM_HERAT_NORTH", 4255, "Herat North"},
    {128, 0, 600, L"DATUM_GDAL151GTDATUMCSVLINE_78", 3906, "MGI 1901"},
    {129, 0, 600, L"DATUM_INDIAN_PAK", 4145, nullptr},
    {130, 0, 600, L"DATUM_INDIAN_1954", 4239, "Indian 1954"},
    {131, 0, 600, L"DATUM_INDIAN_1960_VIET", 4131, "Indian 1960"},
    {133, 0, 600, L"DATUM_INDONESIAN_1974", 4238, "ID74"},
    {134, 0, 600, L"DATUM_ISTS_061_ASTRO", 4722, "South Georgia 1968"},
    {1016, 0, 600, L"DATUM_EPSG_CRS4123_DAT6123_OP10099", 4123, "KKJ"},
    {135, 0, 600, L"DATUM_KUSAIE", 4735, "Kusaie 1951"},
    {136, 0, 600, L"DATUM_LEGION", 4250, "Leigon"},
    {137, 0, 600, L"DATUM_MONTSERRAT", 4604, "Montserrat 1958"},
    {138, 0, 600, L"DATUM_GDAL151GTDATUMCSVLINE_113", 4266, nullptr},
    {139, 0, 600, L"DATUM_GDAL151GTDATUMCSVLINE_145", 4307, "Nord Sahara 1959"},
    {140, 0, 600, L"DATUM_OBSERVATORIO", 4182, "Azores Occidental 1939"},
    {141, 0, 600, L"DATUM_POINT_58", 4620, "Point 58"},
    {142, 0, 600, L"DATUM_POINTE_NOIRE", 4282, nullptr},
    {143, 0, 600, L"DATUM_PORTO_SANTO", 4615, "Porto Santo"},
    {144, 0, 600, L"DATUM_SELVAGEM", 4616, "Selvagem Grande"},
    {145, 0, 600, L"DATUM_GDAL_6175", 4175, "Sierra Leone 1968"},
    {147, 0, 600, L"DATUM_TANANARIVE", 4297, "Tananarive"},
    {148, 0, 600, L"DATUM_GDAL151GTDATUMCSVLINE_210", 4304, nullptr},
    {149, 0, 600, L"DATUM_GDAL151GTDATUMCSVLINE_220", 0, nullptr},
    {154, 0, 800, L"DATUM_EPSG_CRS4214_DAT6214_OP15918", 4214, "Beijing 1954"},
    {155, 0, 950, L"DATUM_GDAL_6754", 4754, "LGD2006"},
    {157, 0, 950, L"DATUM_EPSG_CRS4055_DAT6055_OP15973", 4055, "Popular Visualisation CRS"},
};
// clang-format on

// In the order of the known ellipsoids, which begin at index 1.
constexpr std::array kEllipsoidCodes = {
    9,  13, 2,  10, 14, 35, 36, 7,  8,  6,  15, 30, 37, 16, 38, 11, 40, 17,
    48, 39, 18, 19, 20, 21, 0,  5,  22, 23, 31, 41, 4,  3,  32, 33, 42, 43,
    44, 45, 46, 24, 12, 47, 34, 25, 26, 27, 1,  49, 50, 52, 51, 53, 28,
};
constexpr int kFirstEllipsoid = 1;
constexpr int kGrs80 = 0;

constexpr double kSameNumber = 1e-9;

const DatumRow* FindRow(const gcs::DatumDef& datum) {
    const auto* const found = std::ranges::find_if(
        kDatums, [&](const DatumRow& row) { return datum.GetToken() == row.token; });
    return found == std::end(kDatums) ? nullptr : found;
}

gcs::DatumDef DatumOf(const DatumRow& row) {
    gcs::DatumDef datum;
    static_cast<void>(gcs::GCSKnownDatumsList.FindByToken(row.token, &datum));
    return datum;
}

}  // namespace

gcs::DatumDef DatumOfCode(std::int64_t code) {
    const auto* const found = std::ranges::find_if(kDatums, [&](const DatumRow& row) {
        return code != 0 && (row.code == code || row.newerCode == code);
    });
    return found == std::end(kDatums) ? gcs::DatumDef() : DatumOf(*found);
}

std::optional<int> VersionOfDatum(std::int64_t code) {
    const auto* const found = std::ranges::find(kDatums, code, &DatumRow::code);
    return found == std::end(kDatums) ? std::nullopt : std::optional(found->fromVersion);
}

std::optional<DatumCode> CodeOfDatum(const gcs::DatumDef& datum) {
    const DatumRow* const row = FindRow(datum);
    const bool isRead = row != nullptr && HaveSameShift(DatumOfCode(row->code), datum);
    return isRead ? std::optional(DatumCode{row->code, row->fromVersion}) : std::nullopt;
}

std::optional<gcs::EllipsoidDef> EllipsoidOfCode(std::int64_t code) {
    const auto* const found = std::ranges::find(kEllipsoidCodes, code);
    if (found == kEllipsoidCodes.end()) {
        return std::nullopt;
    }
    gcs::EllipsoidDef ellipsoid;
    gcs::GCSKnownEllipsoidsList.Enum(
        kFirstEllipsoid + static_cast<int>(found - kEllipsoidCodes.begin()), ellipsoid);
    return ellipsoid;
}

std::optional<int> CodeOfEllipsoid(const gcs::EllipsoidDef& ellipsoid) {
    const int index = gcs::GCSKnownEllipsoidsList.FindByDimensions(ellipsoid.GetMajorRadius(),
                                                                   ellipsoid.GetFlattening());
    const int code = index < kFirstEllipsoid
                         ? kGrs80
                         : kEllipsoidCodes[static_cast<std::size_t>(index - kFirstEllipsoid)];
    return code == kGrs80 ? std::nullopt : std::optional(code);
}

int EpsgGeographicCodeOf(const gcs::DatumDef& datum) {
    const DatumRow* const row = FindRow(datum);
    return row != nullptr ? row->epsgGeographicCode : 0;
}

const char* EpsgGeographicNameOf(const gcs::DatumDef& datum) {
    const DatumRow* const row = FindRow(datum);
    return row != nullptr ? row->epsgName : nullptr;
}

RegisteredDatum DatumOfEpsgCode(int epsgGeographicCode) {
    RegisteredDatum found;
    for (const DatumRow& row : kDatums) {
        if (epsgGeographicCode == 0 || row.epsgGeographicCode != epsgGeographicCode) {
            continue;
        }
        const gcs::DatumDef datum = DatumOf(row);
        if (found.datum.IsUnknown()) {
            found.datum = datum;
        } else if (!HaveSameShift(found.datum, datum)) {
            found.isAmbiguous = true;
        }
    }
    return found;
}

bool HaveSameShift(const gcs::DatumDef& left, const gcs::DatumDef& right) {
    const gcs::DatumParameters& a = left.GetParameters();
    const gcs::DatumParameters& b = right.GetParameters();
    const double differences[] = {
        a.dx - b.dx, a.dy - b.dy, a.dz - b.dz,       a.rx - b.rx,
        a.ry - b.ry, a.rz - b.rz, a.scale - b.scale, a.primeMeridian - b.primeMeridian};
    for (const double difference : differences) {
        if (std::fabs(difference) > kSameNumber) {
            return false;
        }
    }
    return gcs::EllipsoidDef::CompareParameters(a.ellipsoid, b.ellipsoid, /*exact=*/false);
}

}  // namespace app
