#include "app/crs/detail/DatumCodes.h"

#include "host/gcs/KnownLists.h"

#include <cmath>

namespace app::detail {

namespace {

struct CodeRow {
    const wchar_t* token;
    int epsgGeographicCode;
    const char* epsgName;  // null: the register's system has another ellipsoid, or grads
};

// The order is that of the known list. Left out are the datums to which no code belongs for
// certain: South Asia, the Estonian one of 1937, Voirol 1960.
constexpr CodeRow kCodes[] = {
    {L"DATUM_ADINDAN_MEAN", 4201, "Adindan"},
    {L"DATUM_AFGOOYE_SOMALIA", 4205, "Afgooye"},
    {L"DATUM_AIN_EL_ABD_BAHRAIN", 4204, "Ain el Abd"},
    {L"DATUM_ANNA_ASTRO_1965", 4708, "Cocos Islands 1965"},
    {L"DATUM_ARC50_MEAN", 4209, "Arc 1950"},
    {L"DATUM_ARC60_MEAN", 4210, "Arc 1960"},
    {L"DATUM_ASCENSION", 4712, "Ascension Island 1958"},
    {L"DATUM_ASTRO_BEACON", 4709, "Iwo Jima 1945"},
    {L"DATUM_ASTRO_B4", 4707, "Tern Island 1961"},
    {L"DATUM_ASTRO_DOS", 4710, "Astro DOS 71"},
    {L"DATUM_ASTRONOMIC_1952", 4711, "Marcus Island 1952"},
    {L"DATUM_AUSTRALIAN_1966", 4202, "AGD66"},
    {L"DATUM_AUSTRALIAN_1984", 4203, "AGD84"},
    {L"DATUM_BELGIUM", 4313, "BD72"},
    {L"DATUM_BELLEVUE", 4714, "Bellevue"},
    {L"DATUM_BERMUDA", 4216, "Bermuda 1957"},
    {L"DATUM_BOGOTA", 4218, "Bogota 1975"},
    {L"DATUM_CAMPO_INCH", 4221, "Campo Inchauspe"},
    {L"DATUM_CANTON_ASTRO", 4716, "Phoenix Islands 1966"},
    {L"DATUM_CAPE", 4222, nullptr},
    {L"DATUM_CAPE_CANAVERAL", 4717, "Cape Canaveral"},
    {L"DATUM_CARTHAGE", 4223, nullptr},
    {L"DATUM_CHATHAM", 4672, "Chatham Islands 1971"},
    {L"DATUM_CHUA_ASTRO", 4224, "Chua"},
    {L"DATUM_CORREGO_ALEGRE", 4225, "Corrego Alegre 1970-72"},
    {L"DATUM_DHDN", 4314, "DHDN"},
    {L"DATUM_DJAKARTA", 4211, "Batavia"},
    {L"DATUM_DOS", 4718, "Solomon 1968"},
    {L"DATUM_EASTER_ISLAND", 4719, "Easter Island 1967"},
    {L"DATUM_ED50", 4230, "ED50"},
    {L"DATUM_ED79_MEAN", 4668, "ED79"},
    {L"DATUM_ED87", 4231, "ED87"},
    {L"DATUM_GANDAJIKA", 4684, "Gan 1970"},
    {L"DATUM_GEODETIC49", 4272, "NZGD49"},
    {L"DATUM_GRS80EUREF89_BURSA", 4258, "ETRS89"},
    {L"DATUM_GUAM", 4675, "Guam 1963"},
    {L"DATUM_GUX", 4718, "Solomon 1968"},
    {L"DATUM_PROV_SO_CHILEAN", 4254, "Hito XVIII 1963"},
    {L"DATUM_HJORSEY", 4658, "Hjorsey 1955"},
    {L"DATUM_HONG_KONG", 4739, "Hong Kong 1963(67)"},
    {L"DATUM_HU_TZU_SHAN", 4236, "Hu Tzu Shan 1950"},
    {L"DATUM_INDIAN_1975", 4240, "Indian 1975"},
    {L"DATUM_INDIAN_BANG", 4144, "Kalianpur 1937"},
    {L"DATUM_DATUM_HJORSEY", 4299, "TM65"},
    {L"DATUM_ISTS_073_ASTRO", 4724, "Diego Garcia 1969"},
    {L"DATUM_JOHNSTON_ISLAND", 4725, "Johnston Island 1961"},
    {L"DATUM_KANDAWALA", 4244, "Kandawala"},
    {L"DATUM_KERGUELEN_ISLAND", 4698, "IGN 1962 Kerguelen"},
    {L"DATUM_KERTAU", 4245, "Kertau 1968"},
    {L"DATUM_LC5", 4726, "SIGD61"},
    {L"DATUM_LIBERIA", 4251, "Liberia 1964"},
    {L"DATUM_DLX", 4207, "Lisbon"},
    {L"DATUM_LUZON_PHILIPPINES", 4253, "Luzon 1911"},
    {L"DATUM_LUZON_MINDANAO", 4253, "Luzon 1911"},
    {L"DATUM_MAHE", 4256, "Mahe 1971"},
    {L"DATUM_MARCO_ASTRO", 4616, "Selvagem Grande"},
    {L"DATUM_MASSAWA", 4262, "Massawa"},
    {L"DATUM_D73", 4274, "Datum 73"},
    {L"DATUM_MERCHICH", 4261, nullptr},
    {L"DATUM_MIDWAY", 4727, "Midway 1961"},
    {L"DATUM_MINNA_NIGERIA", 4263, "Minna"},
    {L"DATUM_NAHRAN_MASIRAH", 4270, "Nahrwan 1967"},
    {L"DATUM_NAHRAN_UAE", 4270, "Nahrwan 1967"},
    {L"DATUM_NAHRAN_SAUDI", 4270, "Nahrwan 1967"},
    {L"DATUM_NAPARIMA", 4271, "Naparima 1972"},
    {L"DATUM_NETHERLANDS", 4289, "Amersfoort"},
    {L"DATUM_NAD27_MOL", 4267, "NAD27"},
    {L"DATUM_NAD27_CONUS", 4267, "NAD27"},
    {L"DATUM_NAD27_ALASKA", 4267, "NAD27"},
    {L"DATUM_NAD27_BAHAMAS", 4267, "NAD27"},
    {L"DATUM_NAD27_SAN_SALV", 4267, "NAD27"},
    {L"DATUM_NAD27_CANADA_MEAN", 4267, "NAD27"},
    {L"DATUM_NAD27_CANAL_ZONE", 4267, "NAD27"},
    {L"DATUM_NAD27_CARRIBEAN", 4267, "NAD27"},
    {L"DATUM_NAD27_CENTRAL_AM", 4267, "NAD27"},
    {L"DATUM_NAD27_CUBA", 4267, "NAD27"},
    {L"DATUM_NAD27_GREENLAND", 4267, "NAD27"},
    {L"DATUM_NAD27_MEXICO", 4267, "NAD27"},
    {L"DATUM_NAD83", 4269, "NAD83"},
    // The tokens name each other's meridian; see the table of the known datums.
    {L"DATUM_NTF_PARIS", 4275, "NTF"},
    {L"DATUM_NTF_GREENWICH", 4807, nullptr},
    {L"DATUM_OLD_EGYPTIAN", 4229, "Egypt 1907"},
    {L"DATUM_OLD_HAWAIIAN_MEAN", 4135, "Old Hawaiian"},
    {L"DATUM_OMAN", 4232, "Fahud"},
    {L"DATUM_ORD_SURV_GB", 4277, "OSGB36"},
    {L"DATUM_PICO_DE_LAS_NIEVES", 4728, "PN84"},
    {L"DATUM_PITCAIRN", 4729, "Pitcairn 1967"},
    {L"DATUM_POTSDAM_PD83", 4746, "PD/83"},
    {L"DATUM_PROV_SA_MEAN", 4248, "PSAD56"},
    {L"DATUM_PUERTO_RICO", 4139, "Puerto Rico"},
    {L"DATUM_PULKOVO_1942", 4178, "Pulkovo 1942(83)"},
    {L"DATUM_QATAR_NATIONAL", 4285, "Qatar 1974"},
    {L"DATUM_QORNOG", 4194, "Qornoq 1927"},
    {L"DATUM_RAUENBERG_RD83", 4745, "RD/83"},
    {L"DATUM_REUNION", 4626, "Reunion 1947"},
    {L"DATUM_GEOTIFFHORIZCS_62", 4124, "RT90"},
    {L"DATUM_ROME", 4265, "Monte Mario"},
    {L"DATUM_SANTO_DOS", 4730, "Santo 1965"},
    {L"DATUM_SAO_BRAZ", 4184, "Azores Oriental 1940"},
    {L"DATUM_SAPPER_HILL", 4292, "Sapper Hill 1943"},
    {L"DATUM_SCHWARZECK", 4293, "Schwarzeck"},
    {L"DATUM_SA69", 4618, "SAD69"},
    {L"DATUM_SOUTHEAST_BASE", 4615, "Porto Santo"},
    {L"DATUM_SOUTHWEST_BASE", 4183, "Azores Central 1948"},
    {L"DATUM_CH1903", 4149, "CH1903"},
    {L"DATUM_TIMBALAI", 4298, nullptr},
    {L"DATUM_TOKYO", 4301, "Tokyo"},
    {L"DATUM_TRISTAN_ASTRO", 4734, "Tristan 1968"},
    {L"DATUM_VITI_LEVU", 4752, nullptr},
    {L"DATUM_WAKE_ENIWETOK", 4732, "Marshall Islands 1960"},
    {L"DATUM_WGS72", 4322, "WGS 72"},
    {L"DATUM_WGS72_MOL", 4322, "WGS 72"},
    {L"DATUM_WGS84", 4326, "WGS 84"},
    {L"DATUM_YACARE", 4309, "Yacare"},
    {L"DATUM_ZANDERIJ", 4311, "Zanderij"},
    {L"DATUM_EPSG_CRS4237_DAT6237_OP1677", 4237, "HD72"},
    {L"DATUM_HARTEBEESTHOEK_1994", 4148, "Hartebeesthoek94"},
    {L"DATUM_GDA94_EPSG4283", 4283, "GDA94"},
    {L"DATUM_GDA94_2002", 4283, "GDA94"},
    {L"DATUM_GDA94_2000", 4283, "GDA94"},
    {L"DATUM_GDA94_1998", 4283, "GDA94"},
    {L"DATUM_GDA94_1996", 4283, "GDA94"},
    {L"DATUM_GDA94_1994", 4283, "GDA94"},
    {L"DATUM_GDA94_1992", 4283, "GDA94"},
    {L"DATUM_AGD84", 4203, "AGD84"},
    {L"DATUM_NZGD2000", 4167, "NZGD2000"},
    {L"DATUM_AMERICAN_SAMOA", 4169, "American Samoa 1962"},
    {L"DATUM_ANTIGUA_ASTRO", 4601, "Antigua 1943"},
    {L"DATUM_AYABELLE_LIGHTHOUSE", 4713, "Ayabelle Lighthouse"},
    {L"DATUM_BUKIT_RIMPAH", 4219, "Bukit Rimpah"},
    {L"DATUM_DABOLA", 4155, nullptr},
    {L"DATUM_DECEPTION", 4736, "Deception Island"},
    {L"DATUM_FORT_THOMAS", 4605, "St. Kitts 1955"},
    {L"DATUM_GRACIOSA_BASE", 4183, "Azores Central 1948"},
    {L"DATUM_HERAT_NORTH", 4255, "Herat North"},
    {L"DATUM_GDAL151GTDATUMCSVLINE_78", 3906, "MGI 1901"},
    {L"DATUM_INDIAN_PAK", 4145, nullptr},
    {L"DATUM_INDIAN_1954", 4239, "Indian 1954"},
    {L"DATUM_INDIAN_1960_VIET", 4131, "Indian 1960"},
    {L"DATUM_INDONESIAN_1974", 4238, "ID74"},
    {L"DATUM_ISTS_061_ASTRO", 4722, "South Georgia 1968"},
    {L"DATUM_EPSG_CRS4123_DAT6123_OP10099", 4123, "KKJ"},
    {L"DATUM_KUSAIE", 4735, "Kusaie 1951"},
    {L"DATUM_LEGION", 4250, "Leigon"},
    {L"DATUM_MONTSERRAT", 4604, "Montserrat 1958"},
    {L"DATUM_GDAL151GTDATUMCSVLINE_113", 4266, nullptr},
    {L"DATUM_GDAL151GTDATUMCSVLINE_145", 4307, "Nord Sahara 1959"},
    {L"DATUM_OBSERVATORIO", 4182, "Azores Occidental 1939"},
    {L"DATUM_POINT_58", 4620, "Point 58"},
    {L"DATUM_POINTE_NOIRE", 4282, nullptr},
    {L"DATUM_PORTO_SANTO", 4615, "Porto Santo"},
    {L"DATUM_SELVAGEM", 4616, "Selvagem Grande"},
    {L"DATUM_GDAL_6175", 4175, "Sierra Leone 1968"},
    {L"DATUM_TANANARIVE", 4297, "Tananarive"},
    {L"DATUM_GDAL151GTDATUMCSVLINE_210", 4304, nullptr},
    {L"DATUM_EPSG_CRS4214_DAT6214_OP15918", 4214, "Beijing 1954"},
    {L"DATUM_GDAL_6754", 4754, "LGD2006"},
    {L"DATUM_EPSG_CRS4055_DAT6055_OP15973", 4055, "Popular Visualisation CRS"},
};

constexpr double kSameNumber = 1e-9;

const CodeRow* FindRow(const gcs::DatumDef& datum) {
    for (const CodeRow& row : kCodes) {
        if (datum.GetToken() == row.token) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace

int EpsgGeographicCodeOf(const gcs::DatumDef& datum) {
    const CodeRow* row = FindRow(datum);
    return row != nullptr ? row->epsgGeographicCode : 0;
}

const char* EpsgGeographicNameOf(const gcs::DatumDef& datum) {
    const CodeRow* row = FindRow(datum);
    return row != nullptr ? row->epsgName : nullptr;
}

DatumOfCode KnownDatumOfCode(int epsgGeographicCode) {
    DatumOfCode found;
    for (const CodeRow& row : kCodes) {
        if (row.epsgGeographicCode != epsgGeographicCode) {
            continue;
        }
        gcs::DatumDef datum;
        gcs::GCSKnownDatumsList.FindByToken(row.token, &datum);
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

}  // namespace app::detail
