// Texts with places to fill in, made line by line.
#ifndef KELFUN_CODE_TEMPLATES_H
#define KELFUN_CODE_TEMPLATES_H

#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace kel::strumento {

/// The pieces of a text. A line "%%% name" begins each; what stands before the first is for readers. In a piece,
///
///   {{name}}     within a line is a value, {{name.member}} one of an object;
///   {{> name}}   as a line stands for another piece;
///   {{#name}}    as a line begins lines that are there when the value is true, and once for each element of a list;
///   {{^name}}    as a line begins lines that are there when it is not: false, an empty list, or missing;
///   {{/name}}    as a line ends them.
class Templates {
public:
    explicit Templates(std::string_view text);

    bool contains(const std::string& piece) const;

    /// A piece with its values: no empty line at its end.
    ///
    /// @throws std::logic_error  for a name that neither a value nor a piece has, and for lines without an end.
    std::string render(const std::string& piece, const nlohmann::ordered_json& values) const;

private:
    std::map<std::string, std::vector<std::string>> pieces_;
};

}  // namespace kel::strumento

#endif
