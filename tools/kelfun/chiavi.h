// Names of columns for programs.
#ifndef KELFUN_CHIAVI_H
#define KELFUN_CHIAVI_H

#include <string>
#include <string_view>

namespace kel::strumento {

/// A text as a name for programs: small letters and digits, everything else one underscore: "Lambda 1 (L)" is "lambda_1_l".
std::string chiave(std::string_view testo);

/// The name of a column whose values all have one unit: "speed", "km/h" give "speed_km_h", "slip", "%" "slip_percent".
/// Units that measure nothing ("#", "gear" and the like) add nothing; a lap time's "time" is milliseconds.
std::string chiaveConUdm(std::string_view nome, std::string_view udm);

}  // namespace kel::strumento

#endif
