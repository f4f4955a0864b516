// Runs the golden files of this folder: text files with one case a line, whose comment lines tell their columns.
// A case that fails, and a line that cannot be read, is reported with its file and line. An engineer adds a case, or a
// file of a known kind, without compiling; what begins the file's name tells which cases it holds.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <istream>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CLaptimeAndStrings.h"
#include "IFunzioni.h"
#include "comune/tipi_campione.h"
#include "kelfunzioni.h"

namespace {

// --- reading lines --------------------------------------------------------------------------------------------------

struct Illeggibile : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::string ritaglia(std::string_view testo) {
    const auto primo = testo.find_first_not_of(" \t\r");
    if (primo == std::string_view::npos) {
        return {};
    }
    return std::string(testo.substr(primo, testo.find_last_not_of(" \t\r") - primo + 1));
}

// Cuts a line at its bars; a bar between double quotes is part of a text.
std::vector<std::string> spezza_in_colonne(std::string_view riga) {
    std::vector<std::string> colonne;
    std::string colonna;
    bool virgolette = false;
    for (char carattere : riga) {
        if (carattere == '"') {
            virgolette = !virgolette;
        }
        if (carattere == '|' && !virgolette) {
            colonne.push_back(ritaglia(colonna));
            colonna.clear();
        } else {
            colonna += carattere;
        }
    }
    if (virgolette) {
        throw Illeggibile("a double quote is not closed");
    }
    colonne.push_back(ritaglia(colonna));
    return colonne;
}

template <typename Numero>
Numero leggi_numero(std::string_view testo, int base = 10) {
    Numero numero{};
    const auto [fine, errore] = std::from_chars(testo.data(), testo.data() + testo.size(), numero, base);
    if (errore != std::errc() || fine != testo.data() + testo.size() || testo.empty()) {
        throw Illeggibile("\"" + std::string(testo) + "\" is no number of base " + std::to_string(base));
    }
    return numero;
}

kel_funpos leggi_fid(std::string_view testo) {
    if (testo.substr(0, 2) != "0x") {
        throw Illeggibile("the identifier \"" + std::string(testo) + "\" does not begin with 0x");
    }
    return leggi_numero<std::uint32_t>(testo.substr(2), 16);
}

std::string leggi_testo(std::string_view testo) {
    if (testo.size() < 2 || testo.front() != '"' || testo.back() != '"' ||
        testo.substr(1, testo.size() - 2).find('"') != std::string_view::npos) {
        throw Illeggibile(std::string(testo) + " is no text in double quotes");
    }
    return std::string(testo.substr(1, testo.size() - 2));
}

std::vector<unsigned char> leggi_campione(const std::string& testo) {
    std::vector<unsigned char> campione;
    if (testo == "-") {
        return campione;
    }
    std::istringstream pezzi(testo);
    std::string pezzo;
    while (pezzi >> pezzo) {
        const auto stella = pezzo.find('*');
        const std::string byte = pezzo.substr(0, stella);
        if (byte.size() != 2) {
            throw Illeggibile("\"" + pezzo + "\" is no byte of two hexadecimal digits");
        }
        const unsigned volte = stella == std::string::npos ? 1 : leggi_numero<unsigned>(pezzo.substr(stella + 1));
        if (volte == 0 || volte > 1000) {
            throw Illeggibile("\"" + pezzo + "\" repeats a byte too often, or never");
        }
        campione.insert(campione.end(), volte, static_cast<unsigned char>(leggi_numero<unsigned>(byte, 16)));
    }
    if (campione.empty()) {
        throw Illeggibile("the sample is empty; write - for a sample without bytes");
    }
    return campione;
}

// --- the cases ------------------------------------------------------------------------------------------------------

using Errori = std::vector<std::string>;

template <typename Uno, typename Altro>
void confronta(Errori& errori, const char* che, const Uno& avuto, const Altro& atteso) {
    if (!(avuto == atteso)) {
        std::ostringstream testo;
        testo.imbue(std::locale::classic());
        testo << che << ": got " << ::testing::PrintToString(avuto) << ", expected "
              << ::testing::PrintToString(atteso);
        errori.push_back(testo.str());
    }
}

std::string esadecimale(std::uint32_t bit) {
    char cifre[8];
    for (int i = 0; i < 8; ++i) {
        cifre[i] = "0123456789ABCDEF"[bit >> (28 - 4 * i) & 15u];
    }
    return std::string(cifre, sizeof cifre);
}

struct CasoCampione {
    explicit CasoCampione(const std::vector<std::string>& c)
        : canale(leggi_fid(c[0])),
          funzione(leggi_fid(c[1])),
          tipo(leggi_numero<unsigned>(c[2])),
          udm(leggi_testo(c[3])),
          larghezza(leggi_numero<std::uint32_t>(c[4])),
          decimali(leggi_numero<std::uint32_t>(c[5])),
          automatici(leggi_numero<std::uint32_t>(c[6])),
          formato(static_cast<eFormatoConv>(leggi_numero<unsigned>(c[7]))),
          campione(leggi_campione(c[8])),
          valore(c[9]),
          stato(c[10]),
          testo(leggi_testo(c[11])) {
        if (automatici > 1) {
            throw Illeggibile("auto is neither 0 nor 1");
        }
        if (campione.size() != kelFunGetSamplSize(tipo)) {
            throw Illeggibile("a sample of type " + std::to_string(tipo) + " has " +
                              std::to_string(kelFunGetSamplSize(tipo)) + " bytes, not " +
                              std::to_string(campione.size()));
        }
        if (valore != "-" && valore != "nan") {
            if (valore.size() != 8) {
                throw Illeggibile("the value \"" + valore + "\" is no 8 hexadecimal digits");
            }
            valore = esadecimale(leggi_numero<std::uint32_t>(valore, 16));
        }
        if (stato != "-") {
            leggi_testo(stato);
        }
        record.fid = canale;
        record.tipo_campione = tipo;
        // A buffer of exactly the sample's size, so that a memory checker sees a read outside.
        memoria = std::make_unique<unsigned char[]>(campione.size());
        std::copy(campione.begin(), campione.end(), memoria.get());
    }

    kel_funpos canale, funzione;
    unsigned tipo;
    std::string udm;
    std::uint32_t larghezza, decimali, automatici;
    eFormatoConv formato;
    std::vector<unsigned char> campione;
    std::string valore, stato, testo;
    s_kel_canale record{};
    std::unique_ptr<unsigned char[]> memoria;
};

std::string valore_letto(bool letto, float valore) {
    if (!letto) {
        return valore == 0.0f ? "-" : "- but with a value other than 0";
    }
    return std::isnan(valore) ? "nan" : esadecimale(std::bit_cast<std::uint32_t>(valore));
}

Errori campione_piatto(const std::vector<std::string>& colonne) {
    const CasoCampione caso(colonne);
    s_kel_converter conv{};
    conv.larghezza = caso.larghezza;
    conv.decimali = caso.decimali;
    conv.auto_decimali = caso.automatici;
    conv.formato = caso.formato;
    kelConvInit(&conv, &caso.record, caso.funzione, kelFunGetConvData(caso.funzione, caso.udm.c_str()), 0, 0, 1);

    Errori errori;
    float valore = -1.0f;
    const int letto = kelConvGetValFloat(&conv, caso.memoria.get(), &valore);
    confronta(errori, "valore", valore_letto(letto == 1, valore), caso.valore);

    std::string stato = "-";
    if (conv.valore != nullptr && conv.testo_stato != nullptr) {
        std::uint32_t parola = 0xDEAD;
        conv.valore(&conv, caso.memoria.get() + conv.offset_campione, &parola);
        char testo_stato[32] = {};
        conv.testo_stato(parola, testo_stato);
        stato = std::string("\"") + testo_stato + '"';
    }
    confronta(errori, "stato", stato, caso.stato);

    char testo[32];
    std::memset(testo, 'x', sizeof testo);
    kelConvGetString(&conv, caso.memoria.get(), testo);
    std::string atteso = caso.testo;
    atteso.resize(sizeof testo, '\0');
    confronta(errori, "testo, 32 bytes", std::string(testo, sizeof testo), atteso);
    return errori;
}

Errori campione_oggetto(const std::vector<std::string>& colonne) {
    const CasoCampione caso(colonne);
    Errori errori;
    if (caso.automatici != 0) {
        return errori;  // the object face has none
    }
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::unique_ptr<IConverter> conv(catalogo->CreateConverter(&caso.record, caso.funzione, caso.udm, true,
                                                                     caso.decimali, caso.formato, caso.larghezza));
    float valore = -1.0f;
    const bool letto = conv->GetVal(caso.memoria.get(), &valore);
    confronta(errori, "valore", valore_letto(letto, valore), caso.valore);
    std::string testo = "left over";
    confronta(errori, "result of GetString", conv->GetString(caso.memoria.get(), testo), true);
    confronta(errori, "testo with its NUL", testo, caso.testo + '\0');
    return errori;
}

Errori tempo_scritto(const std::vector<std::string>& colonne) {
    Errori errori;
    confronta(errori, "testo", CLaptimeAndStrings::LapTimeToStringa(leggi_numero<int>(colonne[0])),
              leggi_testo(colonne[1]));
    return errori;
}

Errori riga_scritta(const std::vector<std::string>& colonne) {
    Errori errori;
    confronta(errori, "testo",
              CLaptimeAndStrings::LapNumAndTimeToStringa(leggi_numero<int>(colonne[0]), leggi_numero<int>(colonne[1])),
              leggi_testo(colonne[2]));
    return errori;
}

Errori tempo_letto(const std::vector<std::string>& colonne) {
    Errori errori;
    confronta(errori, "tempo", CLaptimeAndStrings::StringaToLapTime(leggi_testo(colonne[0])),
              leggi_numero<int>(colonne[1]));
    return errori;
}

Errori riga_letta(const std::vector<std::string>& colonne) {
    Errori errori;
    const int atteso = leggi_numero<int>(colonne[1]);
    const std::optional<int> tempo_atteso =
        colonne[2] == "!" ? std::nullopt : std::optional<int>(leggi_numero<int>(colonne[2]));
    int numero = -77;
    int tempo = -77;
    std::string eccezione;
    try {
        CLaptimeAndStrings::StringaToLapNumAndTime(leggi_testo(colonne[0]), numero, tempo);
    } catch (const std::out_of_range& errore) {
        eccezione = errore.what();
    }
    confronta(errori, "numero", numero, atteso);
    confronta(errori, "tempo", tempo, tempo_atteso.value_or(-77));
    confronta(errori, "exception", eccezione, std::string(tempo_atteso ? "" : "basic_string::substr"));
    return errori;
}

Errori mezzo_espanso(const std::vector<std::string>& colonne) {
    Errori errori;
    confronta(errori, "float", esadecimale(kelF16decompress(leggi_numero<unsigned>(colonne[0], 16))),
              esadecimale(leggi_numero<unsigned>(colonne[1], 16)));
    return errori;
}

Errori mezzo_compresso(const std::vector<std::string>& colonne) {
    Errori errori;
    confronta(errori, "mezzo", esadecimale(kelF16compress(leggi_numero<unsigned>(colonne[0], 16))),
              esadecimale(leggi_numero<unsigned>(colonne[1], 16)));
    return errori;
}

Errori nome(const std::vector<std::string>& colonne) {
    Errori errori;
    const kel_funpos fid = leggi_fid(colonne[0]);
    const std::string breve = leggi_testo(colonne[1]);
    std::string campo = breve;
    campo.resize(32, '\0');
    const s_nome_breve piatto = kelFunGetNomeFunzioneShort(nullptr, fid);
    confronta(errori, "breve, 32 bytes", std::string(piatto.testo, sizeof piatto.testo), campo);
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    confronta(errori, "breve with its NUL", catalogo->getNomeFunzioneShort(fid), breve + '\0');
    confronta(errori, "lungo", catalogo->getNomeFunzione(fid, false), leggi_testo(colonne[2]));
    confronta(errori, "tutti", catalogo->getNomeFunzione(fid, true), leggi_testo(colonne[3]));
    return errori;
}

// --- the kinds of file ----------------------------------------------------------------------------------------------

struct Genere {
    const char* inizio;  // of the file's name
    std::size_t colonne;
    std::vector<std::function<Errori(const std::vector<std::string>&)>> prove;
};

const std::vector<Genere>& generi() {
    static const std::vector<Genere> generi = {
        {"campioni_", 13, {campione_piatto, campione_oggetto}},
        {"tempi_scrittura", 3, {tempo_scritto}},
        {"tempi_lettura", 3, {tempo_letto}},
        {"righe_scrittura", 4, {riga_scritta}},
        {"righe_lettura", 4, {riga_letta}},
        {"mezzi_espansione", 3, {mezzo_espanso}},
        {"mezzi_compressione", 3, {mezzo_compresso}},
        {"nomi", 5, {nome}},
    };
    return generi;
}

const Genere* genere_di(const std::string& nome) {
    for (const Genere& genere : generi()) {
        if (nome.rfind(genere.inizio, 0) == 0) {
            return &genere;
        }
    }
    return nullptr;
}

struct Guasto {
    int riga;
    std::string che;
};

// Runs the cases of one file; `casi` receives their columns.
std::vector<Guasto> esegui(const Genere& genere, std::istream& file, std::vector<std::vector<std::string>>* casi) {
    std::vector<Guasto> guasti;
    std::string riga;
    for (int numero = 1; std::getline(file, riga); ++numero) {
        const std::string senza_blanchi = ritaglia(riga);
        if (senza_blanchi.empty() || senza_blanchi.front() == '#') {
            continue;
        }
        try {
            const std::vector<std::string> colonne = spezza_in_colonne(riga);
            if (colonne.size() != genere.colonne) {
                throw Illeggibile(std::to_string(colonne.size()) + " columns, expected " +
                                  std::to_string(genere.colonne));
            }
            for (const auto& prova : genere.prove) {
                for (const std::string& errore : prova(colonne)) {
                    guasti.push_back({numero, errore + "\n" + senza_blanchi});
                }
            }
            if (casi != nullptr) {
                casi->push_back(colonne);
            }
        } catch (const Illeggibile& errore) {
            guasti.push_back(
                {numero, std::string("this line cannot be read: ") + errore.what() + "\n" + senza_blanchi});
        }
    }
    return guasti;
}

std::vector<std::filesystem::path> elenco() {
    std::vector<std::filesystem::path> file;
    for (const auto& voce : std::filesystem::directory_iterator(std::string(KEL_TEST_SORGENTI) + "/golden")) {
        if (voce.path().extension() == ".txt") {
            file.push_back(voce.path());
        }
    }
    std::sort(file.begin(), file.end());
    return file;
}

std::vector<std::vector<std::string>> esegui_tutti(const std::string& inizio) {
    std::vector<std::vector<std::string>> casi;
    int quanti = 0;
    for (const std::filesystem::path& percorso : elenco()) {
        const std::string nome = percorso.filename().string();
        if (nome.rfind(inizio, 0) != 0) {
            continue;
        }
        ++quanti;
        const Genere* genere = genere_di(nome);
        if (genere == nullptr) {
            ADD_FAILURE_AT(percorso.c_str(), 1) << "no kind of case begins its file's name like this";
            continue;
        }
        std::ifstream file(percorso);
        EXPECT_TRUE(file.is_open()) << percorso;
        for (const Guasto& guasto : esegui(*genere, file, &casi)) {
            ADD_FAILURE_AT(percorso.c_str(), guasto.riga) << guasto.che;
        }
        EXPECT_FALSE(file.bad()) << percorso;
    }
    EXPECT_GT(quanti, 0) << "no file begins with " << inizio;
    EXPECT_FALSE(casi.empty()) << "no case in the files that begin with " << inizio;
    return casi;
}

// --- the files of this folder ---------------------------------------------------------------------------------------

TEST(GoldenSamples, ReadAsTheyAreWritten) {
    EXPECT_GE(esegui_tutti("campioni_").size(), 300u);
}

TEST(GoldenLapTimes, AreWrittenAndReadAsTheyAreWritten) {
    esegui_tutti("tempi_");
    esegui_tutti("righe_");
}

TEST(GoldenHalfFloats, ConvertAsTheyAreWritten) {
    esegui_tutti("mezzi_");
}

TEST(GoldenNames, AreAsTheyAreWritten) {
    esegui_tutti("nomi");
}

TEST(GoldenFiles, AreAllOfAKnownKind) {
    for (const std::filesystem::path& percorso : elenco()) {
        EXPECT_NE(genere_di(percorso.filename().string()), nullptr) << percorso;
    }
    EXPECT_GE(elenco().size(), 10u);
}

// Every case again in a fresh reading, for what the files have to cover.
std::vector<CasoCampione> tutti_i_campioni() {
    std::vector<CasoCampione> casi;
    for (const std::filesystem::path& percorso : elenco()) {
        if (percorso.filename().string().rfind("campioni_", 0) == 0) {
            std::ifstream file(percorso);
            for (std::string riga; std::getline(file, riga);) {
                const std::string senza_blanchi = ritaglia(riga);
                if (!senza_blanchi.empty() && senza_blanchi.front() != '#') {
                    casi.emplace_back(spezza_in_colonne(riga));
                }
            }
        }
    }
    return casi;
}

TEST(GoldenFiles, CoverEverySampleTypeAndFormat) {
    std::set<unsigned> tipi, formati;
    for (const CasoCampione& caso : tutti_i_campioni()) {
        tipi.insert(caso.tipo);
        formati.insert(caso.formato);
    }
    for (unsigned tipo = 0; tipo < kel_test::TIPI_CAMPIONE; ++tipo) {
        EXPECT_TRUE(tipi.count(tipo)) << "no case of sample type " << tipo;
    }
    for (unsigned formato = 0; formato <= 2; ++formato) {
        EXPECT_TRUE(formati.count(formato)) << "no case of alignment " << formato;
    }
}

TEST(GoldenFiles, CoverEveryUnitOfEveryQuantity) {
    std::set<std::pair<kel_funpos, std::string>> usate;
    std::set<const s_converter_data*> righe;
    for (const CasoCampione& caso : tutti_i_campioni()) {
        usate.insert({caso.funzione, caso.udm});
        righe.insert(kelFunGetConvData(caso.funzione, caso.udm.c_str()));
    }
    for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv) {
        if (riga.num_udm > 0) {
            EXPECT_TRUE(usate.count({riga.chiave, riga.udm->dati.udm})) << "no case of " << riga.testo;
        }
        for (int i = 0; i < riga.num_udm; ++i) {
            EXPECT_TRUE(righe.count(&riga.udm[i].dati))
                << "no case of " << riga.testo << " in " << riga.udm[i].dati.udm;
        }
    }
}

// --- the runner itself ----------------------------------------------------------------------------------------------

std::vector<Guasto> esegui_testo(const char* nome, const std::string& testo) {
    std::istringstream file(testo);
    return esegui(*genere_di(nome), file, nullptr);
}

const std::string BUONA = R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | )";

TEST(GoldenRunner, AcceptsAGoodLine) {
    EXPECT_TRUE(esegui_testo("campioni_x.txt", "# a comment\n\n   \n  # another\n" + BUONA + "why\n").empty());
}

TEST(GoldenRunner, ReportsALineThatCannotBeRead) {
    const char* const cattive[] = {
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234")",              // columns
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | why | why)",  // columns
        R"(0000F   | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | )",           // no 0x
        R"(0x0000G | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | )",           // no number
        R"(0x0000F |         | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | )",           // empty
        R"(0x0000F | 0x0000F | x | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | rpm   | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | )",  // no quotes
        R"(0x0000F | 0x0000F | 4 | "rpm  | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | )",  // a quote too few
        R"(0x0000F | 0x0000F | 4 | "rpm" | -4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 1.5 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 2 | 0 | D2 04 | 449A4000 | "" | "1234" | )",  // auto
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | right | D2 04 | 449A4000 | "" | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2    | 449A4000 | "" | "1234" | )",  // too few bytes
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D204  | 449A4000 | "" | "1234" | )",  // no byte
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 0G | 449A4000 | "" | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2*x  | 449A4000 | "" | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2*0 04 01 | 449A4000 | "" | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 |       | 449A4000 | "" | "1234" | )",  // no sample
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 1234     | "" | "1234" | )",  // no 8 digits
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A400G | "" | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | good | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | 1234 | )",
    };
    for (const char* cattiva : cattive) {
        const std::vector<Guasto> guasti =
            esegui_testo("campioni_x.txt", BUONA + "\n# comment\n" + cattiva + "\n" + BUONA);
        ASSERT_EQ(guasti.size(), 1u) << cattiva;
        EXPECT_EQ(guasti[0].riga, 3) << cattiva;
        EXPECT_NE(guasti[0].che.find("cannot be read"), std::string::npos) << guasti[0].che;
    }
}

TEST(GoldenRunner, ReportsACaseThatFails) {
    const char* const rotte[] = {
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D3 04 | 449A4000 | "" | "1234" | )",  // another sample
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4001 | "" | "1234" | )",  // another value
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | -        | "" | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | nan      | "" | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "Err" | "1234" | )",  // another status
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | -  | "1234" | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1235" | )",  // another text
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234 " | )",
        R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "" | )",
    };
    for (const char* falsa : rotte) {
        const std::vector<Guasto> guasti = esegui_testo("campioni_x.txt", std::string("# comment\n") + falsa);
        ASSERT_FALSE(guasti.empty()) << falsa;
        EXPECT_EQ(guasti[0].riga, 2) << falsa;
        EXPECT_EQ(guasti[0].che.find("cannot be read"), std::string::npos) << guasti[0].che;
    }
}

TEST(GoldenRunner, ReportsFailuresOfTheOtherKinds) {
    const std::pair<const char*, const char*> rotte[] = {
        {"tempi_scrittura.txt", R"(83456 | "1:23.457" | )"},
        {"tempi_scrittura.txt", R"(2147483648 | "1:23.457" | )"},
        {"tempi_lettura.txt", R"("1:23.456" | 83457 | )"},
        {"righe_scrittura.txt", R"(7 | 83456 | " 7 - 1:23.456" | )"},
        {"righe_lettura.txt", R"("  7 - 1:23.456" | 8 | 83456 | )"},
        {"righe_lettura.txt", R"("  7 - 1:23.456" | 7 | 83457 | )"},
        {"righe_lettura.txt", R"("  7 - 1:23.456" | 7 | ! | )"},
        {"righe_lettura.txt", R"("  7" | 7 | 0 | )"},
        {"mezzi_espansione.txt", "3C00 | 3F800001 | "},
        {"mezzi_compressione.txt", "3F800000 | 3C01 | "},
        {"nomi.txt", R"(0x0001C | "Custum" | "Custom" | "Custom" | )"},
        {"nomi.txt", R"(0x0001C | "Custom" | "Custum" | "Custom" | )"},
        {"nomi.txt", R"(0x0001C | "Custom" | "Custom" | "Custum" | )"},
    };
    for (const auto& [nome, falsa] : rotte) {
        EXPECT_FALSE(esegui_testo(nome, falsa).empty()) << nome << ": " << falsa;
    }
}

TEST(GoldenRunner, KnowsNoOtherKinds) {
    EXPECT_EQ(genere_di("campion.txt"), nullptr);
    EXPECT_EQ(genere_di("readme.txt"), nullptr);
}

}  // namespace
