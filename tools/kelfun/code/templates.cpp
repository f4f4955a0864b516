#include "code/templates.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <span>
#include <stdexcept>

#include "text/parole.h"

namespace kel::strumento {

namespace {

using Json = nlohmann::ordered_json;
using Lines = std::span<const std::string>;

constexpr std::string_view PIECE = "%%% ";
constexpr std::string_view NAME_CHARACTERS = "abcdefghijklmnopqrstuvwxyz_.";

// The name in a line such as "{{#name}}"; empty for any other line.
std::string named(const std::string& line, std::string_view begin) {
    return line.starts_with(begin) && line.ends_with("}}") ? line.substr(begin.size(), line.size() - begin.size() - 2)
                                                           : "";
}

// Values of which the inner ones hide the outer ones: the elements of lists round a line.
class Values {
public:
    explicit Values(const Json& all) : around_{&all} {}

    Values within(const Json& element) const {
        Values inner = *this;
        inner.around_.push_back(&element);
        return inner;
    }

    const Json* find(const std::string& name) const {
        const std::vector<std::string> path = dividi(name, '.');
        const auto has = [&](const Json* values) { return values->is_object() && values->contains(path.front()); };
        const auto where = std::find_if(around_.rbegin(), around_.rend(), has);
        if (where == around_.rend())
            return nullptr;
        const Json* value = *where;
        for (const std::string& part : path)
            value = &value->at(part);
        return value;
    }

    std::string text(const std::string& name) const {
        const Json* value = find(name);
        if (value == nullptr)
            throw std::logic_error("no value for " + name);
        return value->is_string() ? value->get<std::string>() : value->dump();
    }

private:
    std::vector<const Json*> around_;
};

bool is_true(const Json* value) {
    return value != nullptr && *value != false && !(value->is_array() && value->empty());
}

// A line with its values. A brace before a place, as in "{{{name}}}", is a brace.
std::string filled(const std::string& line, const Values& values) {
    std::string text;
    std::size_t done = 0;
    for (std::size_t open = line.find("{{"); open != std::string::npos; open = line.find("{{", open + 1)) {
        const std::size_t close = line.find_first_not_of(NAME_CHARACTERS, open + 2);
        if (close == open + 2 || line.compare(close, 2, "}}") != 0)
            continue;
        text += line.substr(done, open - done) + values.text(line.substr(open + 2, close - open - 2));
        done = close + 2;
    }
    return text + line.substr(done);
}

class Renderer {
public:
    explicit Renderer(const std::map<std::string, std::vector<std::string>>& pieces) : pieces_(pieces) {}

    std::string text;

    void lines(Lines lines, const Values& values) {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::string& line = lines[i];
            const std::string shown = named(line, "{{#");
            const std::string hidden = named(line, "{{^");
            if (const std::string piece = named(line, "{{> "); !piece.empty()) {
                this->lines(pieces_.at(piece), values);
            } else if (!shown.empty() || !hidden.empty()) {
                const std::size_t end = end_of(lines, i, shown + hidden);
                section(lines.subspan(i + 1, end - i - 1), values, shown + hidden, !shown.empty());
                i = end;
            } else {
                text += filled(line, values) + '\n';
            }
        }
    }

private:
    static std::size_t end_of(Lines lines, std::size_t begin, const std::string& name) {
        const auto end =
            std::find(lines.begin() + static_cast<std::ptrdiff_t>(begin), lines.end(), "{{/" + name + "}}");
        if (end == lines.end())
            throw std::logic_error("no end of " + name);
        return static_cast<std::size_t>(end - lines.begin());
    }

    void section(Lines inner, const Values& values, const std::string& name, bool when_true) {
        const Json* value = values.find(name);
        if (is_true(value) != when_true)
            return;
        if (!when_true || !value->is_array())
            return lines(inner, values);
        for (const Json& element : *value)
            lines(inner, values.within(element));
    }

    const std::map<std::string, std::vector<std::string>>& pieces_;
};

}  // namespace

Templates::Templates(std::string_view text) {
    std::vector<std::string>* piece = nullptr;
    for (const std::string& line : dividi(text, '\n')) {
        if (line.starts_with(PIECE))
            piece = &pieces_[line.substr(PIECE.size())];
        else if (piece != nullptr)
            piece->push_back(line);
    }
    for (auto& [name, lines] : pieces_)
        while (!lines.empty() && lines.back().empty())
            lines.pop_back();
}

bool Templates::contains(const std::string& piece) const {
    return pieces_.contains(piece);
}

std::string Templates::render(const std::string& piece, const Json& values) const {
    Renderer renderer(pieces_);
    renderer.lines(pieces_.at(piece), Values(values));
    // Lines that were left out may have stood behind an empty one.
    renderer.text.erase(renderer.text.find_last_not_of('\n') + 1);
    return renderer.text + '\n';
}

}  // namespace kel::strumento
