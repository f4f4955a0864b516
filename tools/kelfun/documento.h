// What a command prints: properties and tables, aligned for people, as JSON or as CSV for programs.
#ifndef KELFUN_DOCUMENTO_H
#define KELFUN_DOCUMENTO_H

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "kelfunzioni.h"

namespace kel::strumento {

enum class Forma { tabella, json, csv };

/// One cell: the text for people and, for programs, the value.
class Cella {
public:
    /// Nothing: "-" for people, null in JSON, empty in CSV.
    Cella() = default;
    static Cella testo(std::string_view testo);
    /// A text whose blanks matter: in quotes for people.
    static Cella citata(std::string_view testo);
    static Cella intero(std::int64_t valore);
    /// An integer that people read in hexadecimal.
    static Cella codice(std::int64_t valore, int cifre);
    /// A function identifier: "0x000A8010" in every form.
    static Cella fid(kel_funpos fid);
    static Cella numero(float valore);
    /// Rounded to so many decimals, for programs too.
    static Cella numero(float valore, int decimali);
    /// A number with a text of its own for people.
    static Cella numero(float valore, std::string_view testo);
    static Cella logico(bool valore);

    using Valore = std::variant<std::monostate, std::string, std::int64_t, double, bool>;
    const std::string& perPersone() const { return testo_; }
    const Valore& valore() const { return valore_; }

private:
    Cella(std::string testo, Valore valore) : testo_(std::move(testo)), valore_(std::move(valore)) {}

    std::string testo_ = "-";
    Valore valore_;
};

enum class Lato { sinistra, destra };

struct Colonna {
    std::string chiave;  ///< its name in JSON and CSV
    std::string titolo;  ///< its heading for people
    Lato lato = Lato::sinistra;
    std::size_t larghezza = 0;  ///< characters to keep in a table that is printed while it grows
};

/// The output of one command. JSON: one object whose members are the properties and, as arrays of objects, the tables.
/// CSV (RFC 4180, line feeds): properties as a table "property,value"; tables apart by one empty line.
class Documento {
public:
    Documento(std::FILE* file, Forma forma);

    /// A property of the whole answer; before the first table.
    void proprieta(std::string_view chiave, std::string_view titolo, const Cella& valore);

    /// Begins a table; `titolo` may be empty. With `flusso` its rows are printed at once, in columns of the given
    /// widths: memory then stays the same for any number of rows.
    void inizia(std::string_view chiave, std::string_view titolo, std::vector<Colonna> colonne, bool flusso = false);
    void riga(std::vector<Cella> celle);

    /// Ends the output. Call it once, last.
    /// @throws NonTrovato  when the output could not be written.
    void fine();

private:
    void scrivi(std::string_view testo);
    void chiudi();
    void chiudiProprieta();
    void rigaPerPersone(const std::vector<std::string>& testi);
    void rigaCsv(const std::vector<std::string>& testi);

    struct Proprieta {
        std::string chiave;
        std::string titolo;
        Cella valore;
    };

    std::FILE* file_;
    Forma forma_;
    bool scritto_ = false;  // something has been printed
    bool aperta_ = false;   // a table is open
    bool flusso_ = false;
    std::size_t righe_ = 0;  // rows of the open table
    std::vector<Proprieta> proprieta_;
    std::vector<Colonna> colonne_;
    std::vector<std::vector<Cella>> celle_;  // rows kept until their widths are known
};

}  // namespace kel::strumento

#endif
