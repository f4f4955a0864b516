// What one of each unit is: the definitions from which the gains of the unit tables follow.
//
// Lengths are in metres, times in seconds, pressures in pascals, powers in watts, volumes in cubic metres and angles in
// degrees. All values are exact by definition, but for the inch of mercury.
#ifndef KEL_TABLES_MISURE_H
#define KEL_TABLES_MISURE_H

namespace kel::misure {

// Length. Yard and pound agreement of 1959: a yard of three feet is 0.9144 m.
inline constexpr double MILLIMETRO = 1e-3;
inline constexpr double CENTIMETRO = 1e-2;
inline constexpr double METRO = 1;
inline constexpr double CHILOMETRO = 1e3;
inline constexpr double POLLICE = 0.0254;
inline constexpr double PIEDE = 12 * POLLICE;
inline constexpr double MIGLIO = 5280 * PIEDE;

// Time.
inline constexpr double MICROSECONDO = 1e-6;
inline constexpr double MILLISECONDO = 1e-3;
inline constexpr double SECONDO = 1;
inline constexpr double MINUTO = 60;
inline constexpr double ORA = 3600;

// Angle.
inline constexpr double GRADO = 1;
inline constexpr double GIRO = 360;
inline constexpr double RADIANTE = 180 / 3.141592653589793;

// Force, for pressure and power: the same agreement for the pound, and the standard gravity of the General Conference
// on Weights and Measures of 1901.
inline constexpr double GRAVITA = 9.80665;
inline constexpr double CHILOGRAMMO_FORZA = GRAVITA;
inline constexpr double LIBBRA_FORZA = 0.45359237 * GRAVITA;

// Pressure. The inch of mercury is that at 32 degrees Fahrenheit, as NIST Special Publication 811 has it.
inline constexpr double MILLIBAR = 1e2;
inline constexpr double CHILOPASCAL = 1e3;
inline constexpr double BAR = 1e5;
inline constexpr double PSI = LIBBRA_FORZA / (POLLICE * POLLICE);
inline constexpr double POLLICE_MERCURIO = 3386.38;

// Power. Both horsepowers are a weight lifted in a second: 75 kg by a metre, or 550 pounds by a foot.
inline constexpr double WATT = 1;
inline constexpr double CHILOWATT = 1e3;
inline constexpr double CAVALLO_METRICO = 75 * CHILOGRAMMO_FORZA * METRO / SECONDO;  // 735.499 W
inline constexpr double CAVALLO_IMPERIALE = 550 * LIBBRA_FORZA * PIEDE / SECONDO;    // 745.700 W

// Volume. The gallon is that of the United States: 231 cubic inches.
inline constexpr double LITRO = 1e-3;
inline constexpr double GALLONE = 231 * POLLICE * POLLICE * POLLICE;

}  // namespace kel::misure

#endif
