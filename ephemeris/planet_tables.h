#pragma once

/// Coefficients of the orbits of Venus, Mars and Jupiter: J. Meeus, Astronomical Formulae for Calculators,
/// chapters 23 and 24. For planet_elements.cpp alone.

namespace merov::ephemeris::tables
{

/// Mean elements by powers of the centuries from 1900 January 0.5, T1; degrees.
struct MeanOrbit {
    double Longitude[4];            ///< mean longitude
    double ThousandEccentricity[4]; ///< 1000 times the eccentricity
    double Inclination[4];
    double Perihelion[4]; ///< argument of the perihelion
    double Node[4];       ///< longitude of the ascending node
};

constexpr MeanOrbit VenusOrbit{{342.767053, 58519.21191, 0.0003097},
                               {6.82069, -0.04774, 9.1e-5},
                               {3.393631, 0.0010058, -1e-6},
                               {54.384186, 0.5081861, -0.0013864},
                               {75.779647, 0.89985, 0.00041}};

constexpr MeanOrbit MarsOrbit{{293.737334, 19141.69551, 0.0003107},
                              {93.3129, 0.092064, -7.7e-5},
                              {1.850333, -0.000675, 1.26e-5},
                              {285.431761, 1.0697667, 0.0001313, 4.14e-6},
                              {48.786442, 0.7709917, -1.4e-6, -5.33e-6}};

constexpr MeanOrbit JupiterOrbit{{238.049257, 3036.301986, 0.0003347, -1.65e-6},
                                 {48.33475, 0.16418, -0.0004676, -1.7e-6},
                                 {1.308736, -0.0056961, 3.9e-6},
                                 {273.277558, 0.5994317, 0.00070405, 5.08e-6},
                                 {99.443414, 1.01053, 0.00035222, -8.51e-6}};

/// Mean anomalies of the planets that perturb Venus and Mars, by powers of T1; degrees. Rows: Earth,
/// Venus, Mars, Jupiter.
constexpr double PerturbingAnomalyTerms[4][4] = {{358.47583, 35999.04975, -0.00015, -3.3e-6},
                                                 {212.60322, 58517.80387, 0.001286},
                                                 {319.51913, 19139.85475, 0.000181},
                                                 {225.32833, 3034.69202, -0.000722}};

/// One perturbation: Amplitude times the cosine of an angle, the sum of multiples of the four anomalies
/// above and a phase in degrees.
struct PerturbationTerm {
    double Amplitude; ///< in longitude 0.00001 degree, in radius 1e-9 astronomical unit
    int Multiples[4]; ///< of the mean anomalies of Earth, Venus, Mars, Jupiter
    double Phase;
};

constexpr PerturbationTerm VenusLongitude[] = {
    {313, {2, -2, 0, 0}, -148.225}, {198, {3, -3, 0, 0}, 2.565},   {136, {1, -1, 0, 0}, -119.107},
    {96, {3, -2, 0, 0}, -135.912},  {82, {0, -1, 0, 1}, -208.087},
};

constexpr PerturbationTerm VenusRadius[] = {
    {22501, {2, -2, 0, 0}, -58.208}, {19045, {3, -3, 0, 0}, 92.577},  {6887, {0, -1, 0, 1}, -118.09},
    {5172, {1, -1, 0, 0}, -29.11},   {3620, {5, -4, 0, 0}, -104.208}, {3283, {4, -4, 0, 0}, 63.513},
    {3074, {0, -2, 0, 2}, -55.167},
};

constexpr PerturbationTerm MarsLongitude[] = {
    {705, {0, 0, -1, 1}, -48.958}, {607, {0, 0, -1, 2}, -188.35}, {445, {0, 0, -2, 2}, -191.897},
    {388, {1, 0, -2, 0}, 20.495},  {238, {1, 0, -1, 0}, 35.097},  {204, {2, 0, -3, 0}, 158.638},
    {177, {0, -1, 3, 0}, -57.602}, {136, {2, 0, -4, 0}, 154.093}, {104, {0, 0, 0, 1}, 17.618},
};

constexpr PerturbationTerm MarsRadius[] = {
    {53227, {0, 0, -1, 1}, 41.1306}, {50989, {0, 0, -2, 2}, -101.9847}, {38278, {0, 0, -1, 2}, -98.3292},
    {15996, {1, 0, -1, 0}, -55.555}, {14764, {2, 0, -3, 0}, 68.622},    {8966, {0, 0, -2, 1}, 43.615},
    {7914, {0, 0, -2, 3}, -139.737}, {7004, {0, 0, -3, 2}, -102.888},   {6620, {1, 0, -2, 0}, 113.202},
    {4930, {0, 0, -3, 3}, -76.243},  {4693, {3, 0, -5, 0}, 190.603},    {4571, {2, 0, -4, 0}, 244.702},
    {4409, {0, 0, -1, 3}, -115.828},
};

/// The waves whose products make up Jupiter's perturbations: sines and cosines of multiples of V, W, zeta
/// and Q, and 1.
enum Wave {
    One,
    SinV,
    CosV,
    Sin2V,
    SinW,
    SinZeta,
    Sin2Zeta,
    Sin3Zeta,
    Sin4Zeta,
    CosZeta,
    Cos2Zeta,
    Cos3Zeta,
    Cos4Zeta,
    Cos5Zeta,
    SinQ,
    CosQ,
    Sin2Q,
    Cos2Q,
    WaveCount
};

/// One perturbation of Jupiter: the product of two waves, with its coefficients by powers of v for three
/// elements and a constant one for the fourth.
struct JupiterTerm {
    Wave First;
    Wave Second;
    double A[3]; ///< mean longitude, degrees
    double B[3]; ///< perihelion, degrees
    double C[3]; ///< eccentricity, 1e-7
    double D;    ///< semi-major axis, 1e-6 astronomical unit
};

constexpr JupiterTerm JupiterTerms[] = {
    {SinV, One, {0.331364, -0.010281, -0.004692}, {0.007192, -0.003147}, {3606, 130, -43}, 0},
    {CosV, One, {0.003228, -0.064436, 0.002075}, {-0.020428, -0.000675, 0.000197}, {1289, -580}, -263},
    {Sin2V, One, {-0.003083, -0.000275, 0.000489}, {}, {}, 0},
    {SinW, One, {0.002472}, {}, {}, 0},
    {SinZeta, One, {0.013619}, {}, {}, 0},
    {Sin2Zeta, One, {0.018472}, {}, {}, 0},
    {Sin3Zeta, One, {0.006717}, {}, {}, 0},
    {Sin4Zeta, One, {0.002775}, {}, {}, 0},
    {CosZeta, One, {}, {}, {}, 205},
    {Cos2Zeta, One, {}, {}, {}, 693},
    {Cos3Zeta, One, {}, {}, {}, 312},
    {Cos4Zeta, One, {}, {}, {}, 147},
    {SinQ, One, {}, {-0.004344}, {-204}, 0},
    {CosQ, One, {0.002178}, {}, {-817}, 0},
    {Cos2Q, One, {}, {}, {179}, 0},
    {SinZeta, SinQ, {0.007275, -0.001253}, {0.007269, 0.000672}, {-6764}, 299},
    {Sin2Zeta, SinQ, {0.006417}, {}, {-1110}, 0},
    {Sin3Zeta, SinQ, {0.002439}, {}, {-224}, 0},
    {CosZeta, SinQ, {-0.033839, -0.001125}, {0.034036}, {1284, 116}, 0},
    {Cos2Zeta, SinQ, {-0.003767}, {0.005614}, {188}, 181},
    {Cos3Zeta, SinQ, {}, {0.002964}, {}, 0},
    {SinZeta, CosQ, {-0.035681, -0.001208}, {0.037761}, {1460, 130}, 0},
    {Sin2Zeta, CosQ, {-0.004261}, {0.006158}, {224}, 204},
    {Sin3Zeta, CosQ, {}, {}, {}, 111},
    {CosZeta, CosQ, {-0.006333, 0.001161}, {-0.006603}, {6074}, -337},
    {Cos2Zeta, CosQ, {-0.006675}, {}, {992}, -111},
    {Cos3Zeta, CosQ, {-0.002664}, {}, {508}, 0},
    {Cos4Zeta, CosQ, {}, {}, {230}, 0},
    {Cos5Zeta, CosQ, {}, {}, {108}, 0},
    {SinZeta, Sin2Q, {-0.002572}, {-0.005356}, {-956, -73}, 0},
    {Sin2Zeta, Sin2Q, {-0.003567}, {0.002722}, {448}, 0},
    {Sin3Zeta, Sin2Q, {}, {}, {137}, 0},
    {CosZeta, Sin2Q, {}, {0.004483}, {-997, 108}, 0},
    {Cos2Zeta, Sin2Q, {}, {-0.002642}, {480}, 0},
    {Cos3Zeta, Sin2Q, {}, {}, {148}, 0},
    {SinZeta, Cos2Q, {}, {0.004403}, {-956, 99}, 0},
    {Sin2Zeta, Cos2Q, {}, {-0.002536}, {490}, 0},
    {Sin3Zeta, Cos2Q, {}, {}, {158}, 0},
    {CosZeta, Cos2Q, {0.002094}, {0.005547}, {1024, 75}, 0},
    {Cos2Zeta, Cos2Q, {0.003342}, {-0.002689}, {-437}, 0},
    {Cos3Zeta, Cos2Q, {}, {}, {-132}, 0},
};

} // namespace merov::ephemeris::tables
