#include "standalone/gcs/DatumTable.h"

#include "standalone/gcs/EllipsoidTable.h"

namespace gcs {

namespace {

constexpr DatumMethod kNone = DatumMethod::None;
constexpr DatumMethod kThree = DatumMethod::ThreeParameters;
constexpr DatumMethod kSeven = DatumMethod::SevenParameters;

// clang-format off
constexpr DatumRow kDatums[] = {
    {L"DATUM_ADINDAN_MEAN", L"Adindan (mean)", kThree, kClarke1880, {-166.0, -15.0, 204.0}},  // EPSG:1100
    {L"DATUM_AFGOOYE_SOMALIA", L"Afgooye", kThree, kKrassovsky, {-43.0, -163.0, 45.0}},  // EPSG:1107
    {L"DATUM_AIN_EL_ABD_BAHRAIN", L"Ain el Abd 1970 (Bahrain)", kThree, kInternational1924, {-150.0, -250.0, -1.0}},  // EPSG:1110
    {L"DATUM_ANNA_ASTRO_1965", L"Anna 1 Astro 1965", kThree, kAustralian, {-491.0, -22.0, 435.0}},  // EPSG:15794
    {L"DATUM_ARC50_MEAN", L"Arc 1950 (mean)", kThree, kClarke1880ForArc1950, {-143.0, -90.0, -294.0}},  // EPSG:1113
    {L"DATUM_ARC60_MEAN", L"Arc 1960 (mean)", kThree, kClarke1880, {-160.0, -6.0, -302.0}},  // EPSG:1122
    {L"DATUM_ASCENSION", L"Ascension Island 1958", kThree, kInternational1924, {-205.0, 107.0, 53.0}},  // EPSG:15797
    {L"DATUM_ASTRO_BEACON", L"Astro Beacon E 1945", kThree, kInternational1924, {145.0, 75.0, -272.0}},  // EPSG:15796
    {L"DATUM_ASTRO_B4", L"Astro B4 Sorol Atoll", kThree, kInternational1924, {114.0, -116.0, -333.0}},  // EPSG:15795
    {L"DATUM_ASTRO_DOS", L"Astro DOS 71/4", kThree, kInternational1924, {-320.0, 550.0, -494.0}},  // EPSG:15798
    {L"DATUM_ASTRONOMIC_1952", L"Astronomic Station 1952", kThree, kInternational1924, {124.0, -234.0, -25.0}},  // EPSG:15799
    {L"DATUM_AUSTRALIAN_1966", L"Australian Geodetic 1966 (AGD 66)", kThree, kAustralian, {-133.0, -48.0, 148.0}},  // EPSG:1108
    {L"DATUM_AUSTRALIAN_1984", L"Australian Geodetic 1984 (AGD 84)", kThree, kAustralian, {-134.0, -48.0, 149.0}},  // EPSG:1109
    {L"DATUM_BELGIUM", L"Belgium 1972 (BD72)", kSeven, kInternational1924, {-106.8686, 52.2978, -103.7239, -0.3366, 0.457, -1.8422, -1.2747}},  // EPSG:15929
    {L"DATUM_BELLEVUE", L"Bellevue (IGN)", kThree, kInternational1924, {-127.0, -769.0, 472.0}},  // EPSG:15801
    {L"DATUM_BERMUDA", L"Bermuda 1957", kThree, kClarke1866, {-73.0, 213.0, 296.0}},  // EPSG:1124
    {L"DATUM_BOGOTA", L"Bogota Observatory (Bogota 1975)", kThree, kInternational1924, {307.0, 304.0, -318.0}},  // EPSG:1125
    {L"DATUM_CAMPO_INCH", L"Campo Inchauspe", kThree, kInternational1924, {-148.0, 136.0, 90.0}},  // EPSG:1127
    {L"DATUM_CANTON_ASTRO", L"Canton Astro 1966", kThree, kInternational1924, {298.0, -304.0, -375.0}},  // EPSG:15803
    {L"DATUM_CAPE", L"Cape", kThree, kClarke1880, {-136.0, -108.0, -292.0}},  // EPSG:1128
    {L"DATUM_CAPE_CANAVERAL", L"Cape Canaveral", kThree, kClarke1866, {-2.0, 151.0, 181.0}},  // EPSG:15804
    {L"DATUM_CARTHAGE", L"Carthage", kThree, kClarke1880, {-263.0, 6.0, 431.0}},  // EPSG:1130
    {L"DATUM_CHATHAM", L"Chatham 1971", kThree, kInternational1924, {175.0, -38.0, 113.0}},  // EPSG:1080
    {L"DATUM_CHUA_ASTRO", L"Chua Astro", kThree, kInternational1924, {-134.0, 229.0, -29.0}},  // EPSG:1131
    {L"DATUM_CORREGO_ALEGRE", L"Corrego Alegre", kThree, kInternational1924, {-206.0, 172.0, -6.0}},  // EPSG:1132
    {L"DATUM_DHDN", L"Deutsches Hauptdreiecksnetz (DHDN)", kSeven, kBessel1841, {582.0, 105.0, 414.0, -1.04, -0.35, 3.08, 8.3}},  // EPSG:1673
    {L"DATUM_DJAKARTA", L"Djakarta (Batavia)", kThree, kBessel1841, {-377.0, 681.0, -50.0}},  // EPSG:8452
    {L"DATUM_DOS", L"DOS 1968 (Solomon 1968)", kThree, kInternational1924, {230.0, -199.0, -752.0}},  // EPSG:15805
    {L"DATUM_EASTER_ISLAND", L"Easter Island 1967", kThree, kInternational1924, {211.0, 147.0, 111.0}},  // EPSG:15806
    {L"DATUM_ED50", L"European 1950 (ED 50)", kThree, kInternational1924, {-87.0, -98.0, -121.0}},  // EPSG:1133
    {L"DATUM_ED79_MEAN", L"European 1979 (ED 79)", kThree, kInternational1924, {-86.0, -98.0, -119.0}},  // EPSG:15752
    {L"DATUM_ED87", L"European 1987 (ED 87)", kSeven, kInternational1924, {-82.981, -99.719, -110.709, 0.104700016, -0.0310016, -0.080402021, -0.3143}},  // EPSG:1146
    {L"DATUM_GANDAJIKA", L"Gandajika Base", kThree, kInternational1924, {-133.0, -321.0, 50.0}},  // EPSG:15713
    {L"DATUM_GEODETIC49", L"Geodetic Datum 1949 (NZGD49)", kThree, kInternational1924, {84.0, -22.0, 209.0}},  // EPSG:1151
    {L"DATUM_GRS80EUREF89_BURSA", L"GRS 80 / EUREF 89 (ETRS89)", kNone, kGRS80, {}},  // EPSG:1149
    {L"DATUM_GUAM", L"Guam 1963", kThree, kClarke1866, {-100.0, -248.0, 259.0}},  // EPSG:1070
    {L"DATUM_GUX", L"GUX 1 Astro", kThree, kInternational1924, {252.0, -209.0, -751.0}},  // EPSG:15807
    {L"DATUM_PROV_SO_CHILEAN", L"Provisional South Chilean 1963 (Hito XVIII 1963)", kThree, kInternational1924, {16.0, 196.0, 93.0}},  // EPSG:1892
    {L"DATUM_HJORSEY", L"Hjorsey 1955", kThree, kInternational1924, {-73.0, 46.0, -86.0}},  // EPSG:1951
    {L"DATUM_HONG_KONG", L"Hong Kong 1963", kThree, kInternational1924, {-156.0, -271.0, -189.0}},  // EPSG:15842
    {L"DATUM_HU_TZU_SHAN", L"Hu-Tzu-Shan", kThree, kInternational1924, {-637.0, -549.0, -203.0}},  // EPSG:1152
    {L"DATUM_INDIAN_1975", L"Indian 1975", kThree, kEverest1830, {210.0, 814.0, 289.0}},  // EPSG:1304
    {L"DATUM_INDIAN_BANG", L"Indian (Bangladesh)", kThree, kEverest1830, {282.0, 726.0, 254.0}},  // EPSG:1155
    {L"DATUM_DATUM_HJORSEY", L"Ireland 1965", kThree, kAiry1930ForIreland1965, {506.0, -122.0, 611.0}},  // EPSG:1956
    {L"DATUM_ISTS_073_ASTRO", L"ISTS 073 Astro 1969", kThree, kInternational1924, {208.0, -435.0, -229.0}},  // EPSG:15808
    {L"DATUM_JOHNSTON_ISLAND", L"Johnston Island 1961", kThree, kInternational1924, {189.0, -79.0, -202.0}},  // EPSG:15809
    {L"DATUM_KANDAWALA", L"Kandawala", kThree, kEverest1830, {-97.0, 787.0, 86.0}},  // EPSG:1157
    {L"DATUM_KERGUELEN_ISLAND", L"Kerguelen Island 1949", kThree, kInternational1924, {145.0, -187.0, 103.0}},  // EPSG:15850
    {L"DATUM_KERTAU", L"Kertau 1948", kThree, kEverest1830ForKertau, {-11.0, 851.0, 5.0}},  // EPSG:1158
    {L"DATUM_LC5", L"L.C. 5 Astro 1961", kThree, kClarke1866, {42.0, 124.0, 147.0}},  // EPSG:15814
    {L"DATUM_LIBERIA", L"Liberia 1964", kThree, kClarke1880, {-90.0, 40.0, 88.0}},  // EPSG:1160
    {L"DATUM_DLX", L"Lisboa (DLx)", kThree, kInternational1924, {-304.046, -60.576, 103.64}},  // EPSG:1984
    {L"DATUM_LUZON_PHILIPPINES", L"Luzon 1911 (excluding Mindanao)", kThree, kClarke1866, {-133.0, -77.0, -51.0}},  // EPSG:1161
    {L"DATUM_LUZON_MINDANAO", L"Luzon 1911 (Mindanao)", kThree, kClarke1866, {-133.0, -79.0, -72.0}},  // EPSG:1162
    {L"DATUM_MAHE", L"Mahe 1971", kThree, kClarke1880, {41.0, -220.0, -134.0}},  // EPSG:1164
    {L"DATUM_MARCO_ASTRO", L"Marco Astro", kThree, kInternational1924, {-289.0, -124.0, 60.0}},  // EPSG:1965
    {L"DATUM_MASSAWA", L"Massawa", kThree, kBessel1841, {639.0, 405.0, 60.0}},  // EPSG:1165
    {L"DATUM_D73", L"Melrica 1973 (Datum 73)", kThree, kInternational1924, {-223.237, 110.193, 36.649}},  // EPSG:1983
    {L"DATUM_MERCHICH", L"Merchich", kThree, kClarke1880ForMerchich, {31.0, 146.0, 47.0}},  // EPSG:1166
    {L"DATUM_MIDWAY", L"Midway Astro 1961", kThree, kInternational1924, {403.0, -81.0, 277.0}},  // EPSG:15818
    {L"DATUM_MINNA_NIGERIA", L"Minna (Nigeria)", kThree, kClarke1880, {-92.0, -93.0, 122.0}},  // EPSG:1168
    {L"DATUM_NAHRAN_MASIRAH", L"Nahrwan (Masirah Island)", kThree, kClarke1880, {-247.0, -148.0, 369.0}},  // EPSG:1189
    {L"DATUM_NAHRAN_UAE", L"Nahrwan (United Arab Emirates)", kThree, kClarke1880, {-249.0, -156.0, 381.0}},  // EPSG:1191
    {L"DATUM_NAHRAN_SAUDI", L"Nahrwan (Saudi Arabia)", kThree, kClarke1880, {-243.0, -192.0, 477.0}},  // EPSG:1190
    {L"DATUM_NAPARIMA", L"Naparima, BWI", kThree, kInternational1924, {-10.0, 375.0, 165.0}},  // EPSG:1192
    {L"DATUM_NETHERLANDS", L"Netherlands (Amersfoort, RD)", kSeven, kBessel1841, {565.2369, 50.0087, 465.658, 0.40685733, -0.350732677, 1.870347384, 4.0812}},  // EPSG:15934
    {L"DATUM_NAD27_MOL", L"North American 1927 (continental US), three-shift form", kThree, kClarke1866, {-8.0, 160.0, 176.0}},  // EPSG:1173
    {L"DATUM_NAD27_CONUS", L"North American 1927 (continental US)", kThree, kClarke1866, {-8.0, 160.0, 176.0}},  // EPSG:1173
    {L"DATUM_NAD27_ALASKA", L"North American 1927 (Alaska)", kThree, kClarke1866, {-5.0, 135.0, 172.0}},  // EPSG:1176
    {L"DATUM_NAD27_BAHAMAS", L"North American 1927 (Bahamas)", kThree, kClarke1866, {-4.0, 154.0, 178.0}},  // EPSG:1177
    {L"DATUM_NAD27_SAN_SALV", L"North American 1927 (San Salvador)", kThree, kClarke1866, {1.0, 140.0, 165.0}},  // EPSG:1178
    {L"DATUM_NAD27_CANADA_MEAN", L"North American 1927 (Canada, mean)", kThree, kClarke1866, {-10.0, 158.0, 187.0}},  // EPSG:1172
    {L"DATUM_NAD27_CANAL_ZONE", L"North American 1927 (Canal Zone)", kThree, kClarke1866, {0.0, 125.0, 201.0}},  // EPSG:1184
    {L"DATUM_NAD27_CARRIBEAN", L"North American 1927 (Caribbean)", kThree, kClarke1866, {-3.0, 142.0, 183.0}},  // EPSG:1170
    {L"DATUM_NAD27_CENTRAL_AM", L"North American 1927 (Central America)", kThree, kClarke1866, {0.0, 125.0, 194.0}},  // EPSG:1171
    {L"DATUM_NAD27_CUBA", L"North American 1927 (Cuba)", kThree, kClarke1866, {-9.0, 152.0, 178.0}},  // EPSG:1185
    {L"DATUM_NAD27_GREENLAND", L"North American 1927 (Greenland)", kThree, kClarke1866, {11.0, 114.0, 195.0}},  // EPSG:1186
    {L"DATUM_NAD27_MEXICO", L"North American 1927 (Mexico)", kThree, kClarke1866, {-12.0, 130.0, 190.0}},  // EPSG:1187
    {L"DATUM_NAD83", L"North American 1983 (NAD 83)", kNone, kGRS80, {}},  // EPSG:1188
    // Kept: the tokens of these two name each other's meridian. Files count the longitudes of code
    // 107 from Greenwich and those of 1002 from Paris (Lambert zones with the origin 0).
    {L"DATUM_NTF_PARIS", L"Nouvelle Triangulation Francaise, Greenwich meridian", kThree, kClarke1880ForIGN, {-168.0, -60.0, 320.0}},  // EPSG:1193
    {L"DATUM_NTF_GREENWICH", L"Nouvelle Triangulation Francaise, Paris meridian", kThree, kClarke1880ForIGN, {-168.0, -60.0, 320.0, 0.0, 0.0, 0.0, 0.0, 2.33722917}},  // EPSG:1193
    {L"DATUM_OLD_EGYPTIAN", L"Old Egyptian 1907", kThree, kHelmert1906, {-130.0, 110.0, -13.0}},  // EPSG:1148
    {L"DATUM_OLD_HAWAIIAN_MEAN", L"Old Hawaiian (mean)", kThree, kClarke1866, {61.0, -285.0, -181.0}},  // EPSG:15824
    {L"DATUM_OMAN", L"Oman (Fahud)", kThree, kClarke1880, {-346.0, -1.0, 224.0}},  // EPSG:1256
    {L"DATUM_ORD_SURV_GB", L"Ordnance Survey of Great Britain 1936", kThree, kAiry1930, {375.0, -111.0, 431.0}},  // EPSG:1195
    {L"DATUM_PICO_DE_LAS_NIEVES", L"Pico de las Nieves", kThree, kInternational1924, {-307.0, -92.0, 127.0}},  // EPSG:15815
    {L"DATUM_PITCAIRN", L"Pitcairn Astro 1967", kThree, kInternational1924, {185.0, 165.0, 42.0}},  // EPSG:15819
    {L"DATUM_POTSDAM_PD83", L"Potsdam Datum/83 (PD/83)", kSeven, kBessel1841, {599.4, 72.4, 419.2, 0.062, 0.022, 2.723, 6.46}},  // EPSG:15867
    {L"DATUM_PROV_SA_MEAN", L"Provisional South American 1956 (mean)", kThree, kInternational1924, {-288.0, 175.0, -376.0}},  // EPSG:1201
    {L"DATUM_PUERTO_RICO", L"Puerto Rico", kThree, kClarke1866, {11.0, 72.0, -101.0}},  // EPSG:1893
    {L"DATUM_PULKOVO_1942", L"Pulkovo 1942", kSeven, kKrassovsky, {24.0, -123.0, -94.0, -0.02, 0.25, 0.13, 1.1}},  // EPSG:1675
    {L"DATUM_QATAR_NATIONAL", L"Qatar National 1974", kThree, kInternational1924, {-128.0, -283.0, 22.0}},  // EPSG:1561
    {L"DATUM_QORNOG", L"Qornoq", kThree, kInternational1924, {164.0, 138.0, -189.0}},  // EPSG:1797
    {L"DATUM_RAUENBERG_RD83", L"Rauenberg Datum/83 (RD/83)", kSeven, kBessel1841, {612.4, 77.0, 440.2, 0.054, -0.057, 2.797, 2.55}},  // EPSG:15868
    {L"DATUM_REUNION", L"Reunion 1947", kThree, kInternational1924, {94.0, -948.0, -1262.0}},  // EPSG:15751
    {L"DATUM_GEOTIFFHORIZCS_62", L"Rikets Triangulering 1990 (RT 90)", kSeven, kBessel1841, {414.1, 41.3, 603.1, 0.855, -2.141, 7.023}},  // EPSG:1896
    {L"DATUM_ROME", L"Rome 1940 (Monte Mario)", kThree, kInternational1924, {-225.0, -65.0, 9.0}},  // EPSG:1169
    {L"DATUM_SANTO_DOS", L"Santo (DOS) 1965", kThree, kInternational1924, {170.0, 42.0, 84.0}},  // EPSG:15820
    {L"DATUM_SAO_BRAZ", L"Sao Braz", kThree, kInternational1924, {-203.0, 141.0, 53.0}},  // EPSG:1885
    {L"DATUM_SAPPER_HILL", L"Sapper Hill 1943", kThree, kInternational1924, {-355.0, 21.0, 72.0}},  // EPSG:1225
    {L"DATUM_SCHWARZECK", L"Schwarzeck", kThree, kBessel1841ForSchwarzeck, {616.0, 97.0, -251.0}},  // EPSG:1226
    {L"DATUM_SA69", L"South American 1969", kThree, kSouthAmerican, {-57.0, 1.0, -41.0}},  // EPSG:1864
    {L"DATUM_SOUTH_ASIA", L"South Asia", kThree, kFischer1960ForSouthAsia, {7.0, -10.0, -26.0}},  // TR8350.2 (as ESRI:108269)
    {L"DATUM_SOUTHEAST_BASE", L"Southeast Base (Porto Santo 1936)", kThree, kInternational1924, {-499.0, -249.0, 314.0}},  // EPSG:1888
    {L"DATUM_SOUTHWEST_BASE", L"Southwest Base (Graciosa Base SW 1948)", kThree, kInternational1924, {-104.0, 167.0, -38.0}},  // EPSG:1886
    {L"DATUM_CH1903", L"Switzerland (CH 1903)", kSeven, kBessel1841, {660.077, 13.551, 369.344, 0.804816, 0.577692, 0.952236, 5.66}},  // EPSG:1753
    {L"DATUM_TIMBALAI", L"Timbalai 1948", kThree, kEverest1830, {-689.0, 691.0, -46.0}},  // TR8350.2 (first edition)
    {L"DATUM_TOKYO", L"Tokyo", kThree, kBessel1841, {-148.0, 507.0, 685.0}},  // EPSG:1230
    {L"DATUM_TRISTAN_ASTRO", L"Tristan Astro 1968", kThree, kInternational1924, {-632.0, 438.0, -609.0}},  // EPSG:15816
    {L"DATUM_VITI_LEVU", L"Viti Levu 1916", kThree, kClarke1880, {51.0, 391.0, -36.0}},  // EPSG:15897
    {L"DATUM_WAKE_ENIWETOK", L"Wake-Eniwetok 1960", kThree, kHough, {102.0, 52.0, -38.0}},  // EPSG:15822
    {L"DATUM_WGS72", L"World Geodetic System 1972 (WGS 72)", kSeven, kWGS72, {0.0, 0.0, 4.5, 0.0, 0.0, -0.554, 0.2263}},  // EPSG:1237
    {L"DATUM_WGS72_MOL", L"World Geodetic System 1972 (WGS 72), three-shift form", kThree, kWGS72, {0.0, 0.0, 4.5}},  // TR8350.2
    {L"DATUM_WGS84", L"World Geodetic System 1984 (WGS 84)", kNone, kWGS84, {}},  // itself
    {L"DATUM_YACARE", L"Yacare", kThree, kInternational1924, {-155.0, 171.0, 37.0}},  // EPSG:1234
    {L"DATUM_ZANDERIJ", L"Zanderij", kThree, kInternational1924, {-265.0, 120.0, -358.0}},  // EPSG:1235
    {L"DATUM_EPSG_CRS4237_DAT6237_OP1677", L"Hungarian Datum 1972 (HD72)", kSeven, kGRS67, {56.0, -75.77, -15.31, 0.37, 0.2, 0.21, 1.01}},  // EPSG:1830
    {L"DATUM_HARTEBEESTHOEK_1994", L"Hartebeesthoek 94", kNone, kWGS84, {}},  // EPSG:1505
    {L"DATUM_GDA94_EPSG4283", L"Geocentric Datum of Australia 1994 (GDA94)", kNone, kGRS80, {}},  // EPSG:1150
    {L"DATUM_GDA94_2002", L"GDA94, realisation related to epoch 2002", kNone, kGRS80, {}},  // EPSG:1150
    {L"DATUM_GDA94_2000", L"GDA94, realisation related to epoch 2000", kNone, kGRS80, {}},  // EPSG:1150
    {L"DATUM_GDA94_1998", L"GDA94, realisation related to epoch 1998", kNone, kGRS80, {}},  // EPSG:1150
    {L"DATUM_GDA94_1996", L"GDA94, realisation related to epoch 1996", kNone, kGRS80, {}},  // EPSG:1150
    {L"DATUM_GDA94_1994", L"GDA94, realisation related to epoch 1994", kNone, kGRS80, {}},  // EPSG:1150
    {L"DATUM_GDA94_1992", L"GDA94, realisation related to epoch 1992", kNone, kGRS80, {}},  // EPSG:1150
    {L"DATUM_AGD84", L"Australian Geodetic 1984 (AGD 84), seven parameters", kSeven, kAustralian, {-117.763, -51.51, 139.061, -0.292, -0.443, -0.277, -0.191}},  // EPSG:1669
    {L"DATUM_NZGD2000", L"New Zealand Geodetic Datum 2000", kNone, kGRS80, {}},  // EPSG:1565
    {L"DATUM_AMERICAN_SAMOA", L"American Samoa 1962", kThree, kClarke1866, {-115.0, 118.0, 426.0}},  // EPSG:1577
    {L"DATUM_ANTIGUA_ASTRO", L"Antigua Island Astro 1943", kThree, kClarke1880, {-270.0, 13.0, 62.0}},  // EPSG:15811
    {L"DATUM_AYABELLE_LIGHTHOUSE", L"Ayabelle Lighthouse", kThree, kClarke1880, {-79.0, -129.0, 145.0}},  // EPSG:15800
    {L"DATUM_BUKIT_RIMPAH", L"Bukit Rimpah", kThree, kBessel1841, {-384.0, 664.0, -48.0}},  // EPSG:1126
    {L"DATUM_GDAL151GTDATUMCSVLINE_51", L"Co-ordinate System 1937 of Estonia", kThree, kBessel1841, {374.0, 150.0, 588.0}},  // TR8350.2 (as ESRI:108261)
    {L"DATUM_DABOLA", L"Dabola 1981", kThree, kClarke1880, {-83.0, 37.0, 124.0}},  // EPSG:1518
    {L"DATUM_DECEPTION", L"Deception Island", kThree, kClarke1880, {260.0, 12.0, -147.0}},  // EPSG:15812
    {L"DATUM_FORT_THOMAS", L"Fort Thomas 1955", kThree, kClarke1880, {-7.0, 215.0, 225.0}},  // EPSG:15750
    {L"DATUM_GRACIOSA_BASE", L"Graciosa Base SW 1948", kThree, kInternational1924, {-104.0, 167.0, -38.0}},  // EPSG:1886
    {L"DATUM_HERAT_NORTH", L"Herat North", kThree, kInternational1924, {-333.0, -222.0, 114.0}},  // EPSG:1246
    {L"DATUM_GDAL151GTDATUMCSVLINE_78", L"Hermannskogel", kThree, kBessel1841, {682.0, -203.0, 480.0}},  // EPSG:3962
    {L"DATUM_INDIAN_PAK", L"Indian (Pakistan)", kThree, kEverestPakistan, {283.0, 682.0, 231.0}},  // EPSG:1247
    {L"DATUM_INDIAN_1954", L"Indian 1954", kThree, kEverest1830, {217.0, 823.0, 299.0}},  // EPSG:1153
    {L"DATUM_INDIAN_1960_VIET", L"Indian 1960 (near 16 N)", kThree, kEverest1830, {198.0, 881.0, 317.0}},  // EPSG:1542
    {L"DATUM_INDONESIAN_1974", L"Indonesian 1974", kThree, kIndonesian, {-24.0, -15.0, 5.0}},  // EPSG:1248
    {L"DATUM_ISTS_061_ASTRO", L"ISTS 061 Astro 1968", kThree, kInternational1924, {-794.0, 119.0, -298.0}},  // EPSG:15813
    {L"DATUM_EPSG_CRS4123_DAT6123_OP10099", L"Kartastokoordinaattijarjestelma (KKJ)", kSeven, kInternational1924, {-96.062, -82.428, -121.753, -4.801, -0.345, 1.376, 1.496}},  // EPSG:10099
    {L"DATUM_KUSAIE", L"Kusaie Astro 1951", kThree, kInternational1924, {647.0, 1777.0, -1124.0}},  // EPSG:15810
    {L"DATUM_LEGION", L"Leigon", kThree, kClarke1880, {-130.0, 29.0, 364.0}},  // EPSG:1159
    {L"DATUM_MONTSERRAT", L"Montserrat Island Astro 1958", kThree, kClarke1880, {174.0, 359.0, 365.0}},  // EPSG:1444
    {L"DATUM_GDAL151GTDATUMCSVLINE_113", L"M'Poraloko", kThree, kClarke1880, {-74.0, -130.0, 42.0}},  // EPSG:1163
    {L"DATUM_GDAL151GTDATUMCSVLINE_145", L"North Sahara 1959", kThree, kClarke1880, {-186.0, -93.0, 310.0}},  // EPSG:1253
    {L"DATUM_OBSERVATORIO", L"Observatorio Meteorologico 1939", kThree, kInternational1924, {-425.0, -169.0, 81.0}},  // EPSG:1887
    {L"DATUM_POINT_58", L"Point 58", kThree, kClarke1880, {-106.0, -129.0, 165.0}},  // EPSG:1880
    {L"DATUM_POINTE_NOIRE", L"Pointe Noire 1948", kThree, kClarke1880, {-148.0, 51.0, -291.0}},  // EPSG:1200
    {L"DATUM_PORTO_SANTO", L"Porto Santo 1936", kThree, kInternational1924, {-499.0, -249.0, 314.0}},  // EPSG:1888
    {L"DATUM_SELVAGEM", L"Selvagem Grande 1938", kThree, kInternational1924, {-289.0, -124.0, 60.0}},  // EPSG:1965
    {L"DATUM_GDAL_6175", L"Sierra Leone 1968 (1960)", kThree, kClarke1880, {-88.0, 4.0, 101.0}},  // EPSG:1614
    {L"DATUM_TANANARIVE", L"Tananarive Observatory 1925", kThree, kInternational1924, {-189.0, -242.0, -91.0}},  // EPSG:1227
    {L"DATUM_GDAL151GTDATUMCSVLINE_210", L"Voirol 1874 (1875)", kThree, kClarke1880, {-73.0, -247.0, 227.0}},  // EPSG:1294
    {L"DATUM_GDAL151GTDATUMCSVLINE_220", L"Voirol 1960", kThree, kClarke1880, {-123.0, -206.0, 219.0}},  // EPSG:1255
    {L"DATUM_EPSG_CRS4214_DAT6214_OP15918", L"Beijing 1954", kThree, kKrassovsky, {12.646, -155.176, -80.863}},  // EPSG:15918
    {L"DATUM_GDAL_6754", L"Libyan Geodetic Datum 2006 (LGD2006)", kThree, kInternational1924, {-208.4058, -109.8777, -2.5764}},  // EPSG:15908
    {L"DATUM_EPSG_CRS4055_DAT6055_OP15973", L"Popular Visualisation sphere", kNone, kPopularVisualisationSphere, {}},  // EPSG:15973, same latitude and longitude
};
// clang-format on

}  // namespace

std::span<const DatumRow> KnownDatums() {
    return kDatums;
}

}  // namespace gcs
