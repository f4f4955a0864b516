// Names of columns for programs.
#ifndef KELFUN_TEXT_CHIAVI_H
#define KELFUN_TEXT_CHIAVI_H

#include <string>
#include <string_view>

namespace kel::strumento {

/// A text as a name for programs: small letters and digits, everything else one underscore: "Lambda 1 (L)" is
/// "lambda_1_l".
std::string chiave(std::string_view testo);

/// The unit that values are shown in: nothing for the texts that the catalogue has where there is no unit ("#", "gear"
/// and the like), "ms" for the "time" of a lap.
std::string misura(std::string_view udm);

/// The name of a column whose values all have one unit: "speed", "km/h" give "speed_km_h", "slip", "%" "slip_percent".
/// A name that ends with its unit already stays as it is: "Engine RPM", "rpm" give "engine_rpm".
std::string chiave_con_udm(std::string_view nome, std::string_view udm);

/// The same for people: "Speed km/h", "Engine RPM".
std::string titolo_con_udm(std::string_view nome, std::string_view udm);

}  // namespace kel::strumento

#endif
