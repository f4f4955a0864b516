// What a command prints: properties and tables, aligned for people, as JSON, JSON lines or CSV for programs.
#ifndef KELFUN_OUTPUT_DOCUMENTO_H
#define KELFUN_OUTPUT_DOCUMENTO_H

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "kelfunzioni.h"
#include "output/righe_dati.h"

namespace kel::strumento {

enum class Forma { tabella, json, ndjson, csv };

/// How a document is written. Only tables for people have colours.
struct Aspetto {
    Forma forma = Forma::tabella;
    bool colori = false;
    std::string
        tabella;  ///< only the table of this key, PROPRIETA for the properties; "" for all of them, in CSV the first
};

/// The key of a document's properties where they stand as a table.
constexpr std::string_view PROPRIETA = "properties";

/// One cell: the text for people and, for programs, the value.
class Cella {
public:
    /// Nothing: "-" for people, null in JSON, empty in CSV.
    Cella() = default;
    /// Nothing, with a text for people that says why: "---".
    static Cella mancante(std::string_view testo);
    /// A text; "-" for people if it is empty or blank.
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
    /// The same of a double.
    static Cella reale(double valore, int decimali);
    /// The same, with a text of its own for people.
    static Cella reale(double valore, int decimali, std::string_view testo);
    /// A number with a text of its own for people.
    static Cella numero(float valore, std::string_view testo);
    static Cella logico(bool valore);
    /// Texts, of which there may be none: an array in JSON, "km/h, mph" for people and in CSV.
    static Cella lista(std::vector<std::string> testi);

    using Valore = std::variant<std::monostate, std::string, std::int64_t, double, bool, std::vector<std::string>>;
    const std::string& per_persone() const { return testo_; }
    const Valore& valore() const { return valore_; }
    /// Whether it is an identifier, which stands out by its colour.
    bool identificatore() const { return identificatore_; }

private:
    Cella(std::string testo, Valore valore) : testo_(std::move(testo)), valore_(std::move(valore)) {}

    std::string testo_ = "-";
    Valore valore_;
    bool identificatore_ = false;
};

enum class Lato { sinistra, destra };

struct Colonna {
    std::string chiave;  ///< its name in JSON and CSV, with its unit if it has one: see `chiave_con_udm`
    std::string titolo;  ///< its heading for people
    Lato lato = Lato::sinistra;
    std::size_t larghezza = 0;  ///< characters to keep in a table that is printed while it grows
};

/// The output of one command. JSON: one object whose members are the properties and, as arrays of objects, the tables.
/// NDJSON: one object a line, whose first member "table" names its table; before them one object "properties".
/// CSV (RFC 4180, line feeds): one table, the first or the one chosen; the properties are a table "property,value".
/// With a table chosen the other forms print that one alone as well.
class Documento {
public:
    Documento(std::FILE* file, Aspetto aspetto);

    /// A property of the whole answer; before the first table.
    void proprieta(std::string_view chiave, std::string_view titolo, const Cella& valore);

    /// Begins a table; `titolo` may be empty. With `flusso` its rows are printed at once, in columns of the given
    /// widths: memory then stays the same for any number of rows.
    void inizia(std::string_view chiave, std::string_view titolo, std::vector<Colonna> colonne, bool flusso = false);
    void riga(std::vector<Cella> celle);
    /// A faster way for all rows of the table that begins, for programs: the same bytes. Null where it is not open: for people,
    /// for a table that is not printed, and where two columns of an object have one name. Good until the table ends.
    RigheDati* righe_dati();

    /// Ends the output. Call it once, last.
    /// @throws NonTrovato  when the output could not be written, and when there is no table of the key that was chosen.
    void fine();

private:
    void scrivi(std::string_view testo);
    void chiudi();
    void chiudi_proprieta();
    bool vale(std::string_view tabella);
    void proprieta_per_persone();
    void testata();
    void riga_per_persone(const std::vector<Cella>& celle, std::string_view colore = {});
    void riga_json(const std::vector<Cella>& celle);
    std::string colorato(std::string_view colore, std::string_view testo) const;
    void riga_csv(const std::vector<std::string>& testi);

    struct Proprieta {
        std::string chiave;
        std::string titolo;
        Cella valore;
    };

    std::FILE* file_;
    Forma forma_;
    bool colori_;
    std::string scelta_;              // key of the one table to print; "" for all
    std::vector<std::string> viste_;  // keys of all tables so far, printed or not
    bool muta_ = false;               // the open table is not printed
    bool scritto_ = false;            // something has been printed
    bool aperta_ = false;             // a table is open
    bool flusso_ = false;
    std::string tabella_;      // key of the open table
    std::uint64_t righe_ = 0;  // its rows
    std::vector<Proprieta> proprieta_;
    std::unique_ptr<RigheDati> dati_;
    std::vector<Colonna> colonne_;
    std::vector<std::vector<Cella>> celle_;  // rows kept until their widths are known
};

}  // namespace kel::strumento

#endif
