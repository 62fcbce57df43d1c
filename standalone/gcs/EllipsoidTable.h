// The known ellipsoids, in the order of their indices.
//
// Major radius in metres; the inverse flattening is 0 for a sphere. Four pairs have the same
// dimensions under two names (Australian and South American, Hayford and International 1924,
// NWL 9D and WGS 66, NWL 10D and WGS 72): a search by dimensions finds the first. GRS 80, WGS 84
// and MERIT 83 differ in nothing but the flattening, the first two by 1.6e-11.
//
// The dimensions are those that MapInfo Interchange Format gives its ellipsoids; they are the
// EPSG register's but for the axes of Clarke 1858, Clarke 1880 for Jamaica and for Palestine,
// Everest 1830 for Kalianpur and IAG 75, which the register has up to 17 mm away.
#pragma once

#include <array>

namespace gcs {

// Radii that differ by no more count as the same.
inline constexpr double kSameRadiusMetres = 1e-6;

struct EllipsoidRow {
    const wchar_t* name;
    double majorRadius;
    double inverseFlattening;
};

// clang-format off
inline constexpr EllipsoidRow kAiry1930{L"Airy 1930", 6377563.396, 299.3249646};
inline constexpr EllipsoidRow kAiry1930ForIreland1965{L"Airy 1930 (modified for Ireland 1965)", 6377340.189, 299.3249646};
inline constexpr EllipsoidRow kAustralian{L"Australian", 6378160.0, 298.25};
inline constexpr EllipsoidRow kBessel1841{L"Bessel 1841", 6377397.155, 299.1528128};
inline constexpr EllipsoidRow kBessel1841ForSchwarzeck{L"Bessel 1841 (modified for Schwarzeck)", 6377483.865, 299.1528128};
inline constexpr EllipsoidRow kBessel1841ForNGO1948{L"Bessel 1841 (modified for NGO 1948)", 6377492.0176, 299.15281};
inline constexpr EllipsoidRow kClarke1858{L"Clarke 1858", 6378293.639, 294.26068};
inline constexpr EllipsoidRow kClarke1866{L"Clarke 1866", 6378206.4, 294.9786982};
inline constexpr EllipsoidRow kClarke1866ForMichigan{L"Clarke 1866 (modified for Michigan)", 6378450.047484481, 294.9786982};
inline constexpr EllipsoidRow kClarke1880{L"Clarke 1880", 6378249.145, 293.465};
inline constexpr EllipsoidRow kClarke1880ForArc1950{L"Clarke 1880 (modified for Arc 1950)", 6378249.145326, 293.4663076};
inline constexpr EllipsoidRow kClarke1880ForIGN{L"Clarke 1880 (modified for IGN)", 6378249.2, 293.4660213};
inline constexpr EllipsoidRow kClarke1880ForJamaica{L"Clarke 1880 (modified for Jamaica)", 6378249.136, 293.46631};
inline constexpr EllipsoidRow kClarke1880ForMerchich{L"Clarke 1880 (modified for Merchich)", 6378249.2, 293.46598};
inline constexpr EllipsoidRow kClarke1880ForPalestine{L"Clarke 1880 (modified for Palestine)", 6378300.79, 293.46623};
inline constexpr EllipsoidRow kEverest1830{L"Everest 1830", 6377276.345, 300.8017};
inline constexpr EllipsoidRow kEverest1830ForKalianpur{L"Everest 1830 (modified for Kalianpur)", 6377301.243, 300.80174};
inline constexpr EllipsoidRow kEverest1830ForKertau{L"Everest 1830 (modified for Kertau)", 6377304.063, 300.8017};
inline constexpr EllipsoidRow kEverest1830ForWestMalaysia{L"Everest 1830 (modified for West Malaysia)", 6377295.664, 300.8017};
inline constexpr EllipsoidRow kEverest1830ForTimbalai{L"Everest 1830 (modified for Timbalai)", 6377298.556, 300.8017};
inline constexpr EllipsoidRow kFischer1960{L"Fischer 1960", 6378166.0, 298.3};
inline constexpr EllipsoidRow kFischer1960ForSouthAsia{L"Fischer 1960 (modified for South Asia)", 6378155.0, 298.3};
inline constexpr EllipsoidRow kFischer1968{L"Fischer 1968", 6378150.0, 298.3};
inline constexpr EllipsoidRow kGRS67{L"GRS 67", 6378160.0, 298.247167427};
inline constexpr EllipsoidRow kGRS80{L"GRS 80", 6378137.0, 298.257222101};
inline constexpr EllipsoidRow kHayford{L"Hayford", 6378388.0, 297.0};
inline constexpr EllipsoidRow kHelmert1906{L"Helmert 1906", 6378200.0, 298.3};
inline constexpr EllipsoidRow kHough{L"Hough", 6378270.0, 297.0};
inline constexpr EllipsoidRow kIAG75{L"IAG 75", 6378140.0, 298.257222};
inline constexpr EllipsoidRow kIndonesian{L"Indonesian", 6378160.0, 298.247};
inline constexpr EllipsoidRow kInternational1924{L"International 1924", 6378388.0, 297.0};
inline constexpr EllipsoidRow kKrassovsky{L"Krassovsky", 6378245.0, 298.3};
inline constexpr EllipsoidRow kMERIT83{L"MERIT 83", 6378137.0, 298.257};
inline constexpr EllipsoidRow kNewInternational1967{L"New International 1967", 6378157.5, 298.25};
inline constexpr EllipsoidRow kNWL9D{L"NWL 9D", 6378145.0, 298.25};
inline constexpr EllipsoidRow kNWL10D{L"NWL 10D", 6378135.0, 298.26};
inline constexpr EllipsoidRow kOSU86F{L"OSU86F", 6378136.2, 298.25722};
inline constexpr EllipsoidRow kOSU91A{L"OSU91A", 6378136.3, 298.25722};
inline constexpr EllipsoidRow kPlessis1817{L"Plessis 1817", 6376523.0, 308.64};
inline constexpr EllipsoidRow kSouthAmerican{L"South American", 6378160.0, 298.25};
inline constexpr EllipsoidRow kSphere{L"Sphere", 6370997.0, 0.0};
inline constexpr EllipsoidRow kStruve1860{L"Struve 1860", 6378297.0, 294.73};
inline constexpr EllipsoidRow kWalbeck{L"Walbeck", 6376896.0, 302.78};
inline constexpr EllipsoidRow kWarOffice{L"War Office", 6378300.583, 296.0};
inline constexpr EllipsoidRow kWGS60{L"WGS 60", 6378165.0, 298.3};
inline constexpr EllipsoidRow kWGS66{L"WGS 66", 6378145.0, 298.25};
inline constexpr EllipsoidRow kWGS72{L"WGS 72", 6378135.0, 298.26};
inline constexpr EllipsoidRow kIrishWOFO{L"Irish (WOFO)", 6377542.178, 299.325};
inline constexpr EllipsoidRow kEverestPakistan{L"Everest (Pakistan)", 6377309.613, 300.8017};
inline constexpr EllipsoidRow kPZ90Russia{L"PZ90 (Russia)", 6378136.0, 298.257839303};
inline constexpr EllipsoidRow kATS77{L"ATS 77 (Average Terrestrial System 1977)", 6378135.0, 298.257};
inline constexpr EllipsoidRow kXian1980{L"Xian 1980", 6378140.0, 298.25};
inline constexpr EllipsoidRow kWGS84{L"WGS 84", 6378137.0, 298.257223563};

// Of one datum only, and so no entry of the list.
inline constexpr EllipsoidRow kPopularVisualisationSphere{L"Sphere (Popular Visualisation)", 6378137.0, 0.0};
// clang-format on

inline constexpr std::array kEllipsoids{kAiry1930,
                                        kAiry1930ForIreland1965,
                                        kAustralian,
                                        kBessel1841,
                                        kBessel1841ForSchwarzeck,
                                        kBessel1841ForNGO1948,
                                        kClarke1858,
                                        kClarke1866,
                                        kClarke1866ForMichigan,
                                        kClarke1880,
                                        kClarke1880ForArc1950,
                                        kClarke1880ForIGN,
                                        kClarke1880ForJamaica,
                                        kClarke1880ForMerchich,
                                        kClarke1880ForPalestine,
                                        kEverest1830,
                                        kEverest1830ForKalianpur,
                                        kEverest1830ForKertau,
                                        kEverest1830ForWestMalaysia,
                                        kEverest1830ForTimbalai,
                                        kFischer1960,
                                        kFischer1960ForSouthAsia,
                                        kFischer1968,
                                        kGRS67,
                                        kGRS80,
                                        kHayford,
                                        kHelmert1906,
                                        kHough,
                                        kIAG75,
                                        kIndonesian,
                                        kInternational1924,
                                        kKrassovsky,
                                        kMERIT83,
                                        kNewInternational1967,
                                        kNWL9D,
                                        kNWL10D,
                                        kOSU86F,
                                        kOSU91A,
                                        kPlessis1817,
                                        kSouthAmerican,
                                        kSphere,
                                        kStruve1860,
                                        kWalbeck,
                                        kWarOffice,
                                        kWGS60,
                                        kWGS66,
                                        kWGS72,
                                        kIrishWOFO,
                                        kEverestPakistan,
                                        kPZ90Russia,
                                        kATS77,
                                        kXian1980,
                                        kWGS84};

}  // namespace gcs
