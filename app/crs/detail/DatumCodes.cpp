#include "app/crs/detail/DatumCodes.h"

#include "host/gcs/KnownLists.h"

#include <cmath>

namespace app::detail {

namespace {

struct CodeRow {
    const wchar_t* token;
    int epsgGeographicCode;
};

// The order is that of the known list. Left out are the datums to which no code belongs for
// certain: South Asia, the Estonian one of 1937, Voirol 1960.
constexpr CodeRow kCodes[] = {
    {L"DATUM_ADINDAN_MEAN", 4201},
    {L"DATUM_AFGOOYE_SOMALIA", 4205},
    {L"DATUM_AIN_EL_ABD_BAHRAIN", 4204},
    {L"DATUM_ANNA_ASTRO_1965", 4708},
    {L"DATUM_ARC50_MEAN", 4209},
    {L"DATUM_ARC60_MEAN", 4210},
    {L"DATUM_ASCENSION", 4712},
    {L"DATUM_ASTRO_BEACON", 4709},
    {L"DATUM_ASTRO_B4", 4707},
    {L"DATUM_ASTRO_DOS", 4710},
    {L"DATUM_ASTRONOMIC_1952", 4711},
    {L"DATUM_AUSTRALIAN_1966", 4202},
    {L"DATUM_AUSTRALIAN_1984", 4203},
    {L"DATUM_BELGIUM", 4313},
    {L"DATUM_BELLEVUE", 4714},
    {L"DATUM_BERMUDA", 4216},
    {L"DATUM_BOGOTA", 4218},
    {L"DATUM_CAMPO_INCH", 4221},
    {L"DATUM_CANTON_ASTRO", 4716},
    {L"DATUM_CAPE", 4222},
    {L"DATUM_CAPE_CANAVERAL", 4717},
    {L"DATUM_CARTHAGE", 4223},
    {L"DATUM_CHATHAM", 4672},
    {L"DATUM_CHUA_ASTRO", 4224},
    {L"DATUM_CORREGO_ALEGRE", 4225},
    {L"DATUM_DHDN", 4314},
    {L"DATUM_DJAKARTA", 4211},
    {L"DATUM_DOS", 4718},
    {L"DATUM_EASTER_ISLAND", 4719},
    {L"DATUM_ED50", 4230},
    {L"DATUM_ED79_MEAN", 4668},
    {L"DATUM_ED87", 4231},
    {L"DATUM_GANDAJIKA", 4684},
    {L"DATUM_GEODETIC49", 4272},
    {L"DATUM_GRS80EUREF89_BURSA", 4258},
    {L"DATUM_GUAM", 4675},
    {L"DATUM_GUX", 4718},
    {L"DATUM_PROV_SO_CHILEAN", 4254},
    {L"DATUM_HJORSEY", 4658},
    {L"DATUM_HONG_KONG", 4739},
    {L"DATUM_HU_TZU_SHAN", 4236},
    {L"DATUM_INDIAN_1975", 4240},
    {L"DATUM_INDIAN_BANG", 4144},
    {L"DATUM_DATUM_HJORSEY", 4299},
    {L"DATUM_ISTS_073_ASTRO", 4724},
    {L"DATUM_JOHNSTON_ISLAND", 4725},
    {L"DATUM_KANDAWALA", 4244},
    {L"DATUM_KERGUELEN_ISLAND", 4698},
    {L"DATUM_KERTAU", 4245},
    {L"DATUM_LC5", 4726},
    {L"DATUM_LIBERIA", 4251},
    {L"DATUM_DLX", 4207},
    {L"DATUM_LUZON_PHILIPPINES", 4253},
    {L"DATUM_LUZON_MINDANAO", 4253},
    {L"DATUM_MAHE", 4256},
    {L"DATUM_MARCO_ASTRO", 4616},
    {L"DATUM_MASSAWA", 4262},
    {L"DATUM_D73", 4274},
    {L"DATUM_MERCHICH", 4261},
    {L"DATUM_MIDWAY", 4727},
    {L"DATUM_MINNA_NIGERIA", 4263},
    {L"DATUM_NAHRAN_MASIRAH", 4270},
    {L"DATUM_NAHRAN_UAE", 4270},
    {L"DATUM_NAHRAN_SAUDI", 4270},
    {L"DATUM_NAPARIMA", 4271},
    {L"DATUM_NETHERLANDS", 4289},
    {L"DATUM_NAD27_MOL", 4267},
    {L"DATUM_NAD27_CONUS", 4267},
    {L"DATUM_NAD27_ALASKA", 4267},
    {L"DATUM_NAD27_BAHAMAS", 4267},
    {L"DATUM_NAD27_SAN_SALV", 4267},
    {L"DATUM_NAD27_CANADA_MEAN", 4267},
    {L"DATUM_NAD27_CANAL_ZONE", 4267},
    {L"DATUM_NAD27_CARRIBEAN", 4267},
    {L"DATUM_NAD27_CENTRAL_AM", 4267},
    {L"DATUM_NAD27_CUBA", 4267},
    {L"DATUM_NAD27_GREENLAND", 4267},
    {L"DATUM_NAD27_MEXICO", 4267},
    {L"DATUM_NAD83", 4269},
    {L"DATUM_NTF_PARIS", 4807},
    {L"DATUM_NTF_GREENWICH", 4275},
    {L"DATUM_OLD_EGYPTIAN", 4229},
    {L"DATUM_OLD_HAWAIIAN_MEAN", 4135},
    {L"DATUM_OMAN", 4232},
    {L"DATUM_ORD_SURV_GB", 4277},
    {L"DATUM_PICO_DE_LAS_NIEVES", 4728},
    {L"DATUM_PITCAIRN", 4729},
    {L"DATUM_POTSDAM_PD83", 4746},
    {L"DATUM_PROV_SA_MEAN", 4248},
    {L"DATUM_PUERTO_RICO", 4139},
    {L"DATUM_PULKOVO_1942", 4178},
    {L"DATUM_QATAR_NATIONAL", 4285},
    {L"DATUM_QORNOG", 4194},
    {L"DATUM_RAUENBERG_RD83", 4745},
    {L"DATUM_REUNION", 4626},
    {L"DATUM_GEOTIFFHORIZCS_62", 4124},
    {L"DATUM_ROME", 4265},
    {L"DATUM_SANTO_DOS", 4730},
    {L"DATUM_SAO_BRAZ", 4184},
    {L"DATUM_SAPPER_HILL", 4292},
    {L"DATUM_SCHWARZECK", 4293},
    {L"DATUM_SA69", 4618},
    {L"DATUM_SOUTHEAST_BASE", 4615},
    {L"DATUM_SOUTHWEST_BASE", 4183},
    {L"DATUM_CH1903", 4149},
    {L"DATUM_TIMBALAI", 4298},
    {L"DATUM_TOKYO", 4301},
    {L"DATUM_TRISTAN_ASTRO", 4734},
    {L"DATUM_VITI_LEVU", 4752},
    {L"DATUM_WAKE_ENIWETOK", 4732},
    {L"DATUM_WGS72", 4322},
    {L"DATUM_WGS72_MOL", 4322},
    {L"DATUM_WGS84", 4326},
    {L"DATUM_YACARE", 4309},
    {L"DATUM_ZANDERIJ", 4311},
    {L"DATUM_EPSG_CRS4237_DAT6237_OP1677", 4237},
    {L"DATUM_HARTEBEESTHOEK_1994", 4148},
    {L"DATUM_GDA94_EPSG4283", 4283},
    {L"DATUM_GDA94_2002", 4283},
    {L"DATUM_GDA94_2000", 4283},
    {L"DATUM_GDA94_1998", 4283},
    {L"DATUM_GDA94_1996", 4283},
    {L"DATUM_GDA94_1994", 4283},
    {L"DATUM_GDA94_1992", 4283},
    {L"DATUM_AGD84", 4203},
    {L"DATUM_NZGD2000", 4167},
    {L"DATUM_AMERICAN_SAMOA", 4169},
    {L"DATUM_ANTIGUA_ASTRO", 4601},
    {L"DATUM_AYABELLE_LIGHTHOUSE", 4713},
    {L"DATUM_BUKIT_RIMPAH", 4219},
    {L"DATUM_DABOLA", 4155},
    {L"DATUM_DECEPTION", 4736},
    {L"DATUM_FORT_THOMAS", 4605},
    {L"DATUM_GRACIOSA_BASE", 4183},
    {L"DATUM_HERAT_NORTH", 4255},
    {L"DATUM_GDAL151GTDATUMCSVLINE_78", 3906},
    {L"DATUM_INDIAN_PAK", 4145},
    {L"DATUM_INDIAN_1954", 4239},
    {L"DATUM_INDIAN_1960_VIET", 4131},
    {L"DATUM_INDONESIAN_1974", 4238},
    {L"DATUM_ISTS_061_ASTRO", 4722},
    {L"DATUM_EPSG_CRS4123_DAT6123_OP10099", 4123},
    {L"DATUM_KUSAIE", 4735},
    {L"DATUM_LEGION", 4250},
    {L"DATUM_MONTSERRAT", 4604},
    {L"DATUM_GDAL151GTDATUMCSVLINE_113", 4266},
    {L"DATUM_GDAL151GTDATUMCSVLINE_145", 4307},
    {L"DATUM_OBSERVATORIO", 4182},
    {L"DATUM_POINT_58", 4620},
    {L"DATUM_POINTE_NOIRE", 4282},
    {L"DATUM_PORTO_SANTO", 4615},
    {L"DATUM_SELVAGEM", 4616},
    {L"DATUM_GDAL_6175", 4175},
    {L"DATUM_TANANARIVE", 4297},
    {L"DATUM_GDAL151GTDATUMCSVLINE_210", 4304},
    {L"DATUM_EPSG_CRS4214_DAT6214_OP15918", 4214},
    {L"DATUM_GDAL_6754", 4754},
    {L"DATUM_EPSG_CRS4055_DAT6055_OP15973", 4055},
};

constexpr double kSameNumber = 1e-9;

}  // namespace

int EpsgGeographicCodeOf(const gcs::DatumDef& datum) {
    for (const CodeRow& row : kCodes) {
        if (datum.GetToken() == row.token) {
            return row.epsgGeographicCode;
        }
    }
    return 0;
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
