// What one of each unit is: the definitions from which the gains of the unit tables follow.
//
// Lengths are in metres, times in seconds, pressures in pascals, powers in watts, volumes in cubic metres and angles in
// degrees. All values are exact by definition, but for the inch of mercury.
#ifndef KEL_TABLES_MISURE_H
#define KEL_TABLES_MISURE_H

namespace kel::misure {

// Length. Yard and pound agreement of 1959: a yard of three feet is 0.9144 m.
inline constexpr double millimetro = 1e-3;
inline constexpr double centimetro = 1e-2;
inline constexpr double metro = 1;
inline constexpr double chilometro = 1e3;
inline constexpr double pollice = 0.0254;
inline constexpr double piede = 12 * pollice;
inline constexpr double miglio = 5280 * piede;

// Time.
inline constexpr double microsecondo = 1e-6;
inline constexpr double millisecondo = 1e-3;
inline constexpr double secondo = 1;
inline constexpr double minuto = 60;
inline constexpr double ora = 3600;

// Angle.
inline constexpr double grado = 1;
inline constexpr double giro = 360;
inline constexpr double radiante = 180 / 3.141592653589793;

// Force, for pressure and power: the same agreement for the pound, and the standard gravity of the General Conference
// on Weights and Measures of 1901.
inline constexpr double gravita = 9.80665;
inline constexpr double chilogrammo_forza = gravita;
inline constexpr double libbra_forza = 0.45359237 * gravita;

// Pressure. The inch of mercury is that at 32 degrees Fahrenheit, as NIST Special Publication 811 has it.
inline constexpr double millibar = 1e2;
inline constexpr double chilopascal = 1e3;
inline constexpr double bar = 1e5;
inline constexpr double psi = libbra_forza / (pollice * pollice);
inline constexpr double pollice_mercurio = 3386.38;

// Power. Both horsepowers are a weight lifted in a second: 75 kg by a metre, or 550 pounds by a foot.
inline constexpr double watt = 1;
inline constexpr double chilowatt = 1e3;
inline constexpr double cavallo_metrico = 75 * chilogrammo_forza * metro / secondo;  // 735.499 W
inline constexpr double cavallo_imperiale = 550 * libbra_forza * piede / secondo;    // 745.700 W

// Volume. The gallon is that of the United States: 231 cubic inches.
inline constexpr double litro = 1e-3;
inline constexpr double gallone = 231 * pollice * pollice * pollice;

}  // namespace kel::misure

#endif
