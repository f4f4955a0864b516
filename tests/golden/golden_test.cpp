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

std::string Ritaglia(std::string_view testo) {
    const auto primo = testo.find_first_not_of(" \t\r");
    if (primo == std::string_view::npos) {
        return {};
    }
    return std::string(testo.substr(primo, testo.find_last_not_of(" \t\r") - primo + 1));
}

// Cuts a line at its bars; a bar between double quotes is part of a text.
std::vector<std::string> Colonne(std::string_view riga) {
    std::vector<std::string> colonne;
    std::string colonna;
    bool virgolette = false;
    for (char carattere : riga) {
        if (carattere == '"') {
            virgolette = !virgolette;
        }
        if (carattere == '|' && !virgolette) {
            colonne.push_back(Ritaglia(colonna));
            colonna.clear();
        } else {
            colonna += carattere;
        }
    }
    if (virgolette) {
        throw Illeggibile("a double quote is not closed");
    }
    colonne.push_back(Ritaglia(colonna));
    return colonne;
}

template <typename Numero>
Numero LeggiNumero(std::string_view testo, int base = 10) {
    Numero numero{};
    const auto [fine, errore] = std::from_chars(testo.data(), testo.data() + testo.size(), numero, base);
    if (errore != std::errc() || fine != testo.data() + testo.size() || testo.empty()) {
        throw Illeggibile("\"" + std::string(testo) + "\" is no number of base " + std::to_string(base));
    }
    return numero;
}

kel_funpos LeggiFid(std::string_view testo) {
    if (testo.substr(0, 2) != "0x") {
        throw Illeggibile("the identifier \"" + std::string(testo) + "\" does not begin with 0x");
    }
    return LeggiNumero<std::uint32_t>(testo.substr(2), 16);
}

std::string LeggiTesto(std::string_view testo) {
    if (testo.size() < 2 || testo.front() != '"' || testo.back() != '"' ||
        testo.substr(1, testo.size() - 2).find('"') != std::string_view::npos) {
        throw Illeggibile(std::string(testo) + " is no text in double quotes");
    }
    return std::string(testo.substr(1, testo.size() - 2));
}

std::vector<unsigned char> LeggiCampione(const std::string& testo) {
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
        const unsigned volte = stella == std::string::npos ? 1 : LeggiNumero<unsigned>(pezzo.substr(stella + 1));
        if (volte == 0 || volte > 1000) {
            throw Illeggibile("\"" + pezzo + "\" repeats a byte too often, or never");
        }
        campione.insert(campione.end(), volte, static_cast<unsigned char>(LeggiNumero<unsigned>(byte, 16)));
    }
    if (campione.empty()) {
        throw Illeggibile("the sample is empty; write - for a sample without bytes");
    }
    return campione;
}

// --- the cases ------------------------------------------------------------------------------------------------------

using Errori = std::vector<std::string>;

template <typename Uno, typename Altro>
void Confronta(Errori& errori, const char* che, const Uno& avuto, const Altro& atteso) {
    if (!(avuto == atteso)) {
        std::ostringstream testo;
        testo.imbue(std::locale::classic());
        testo << che << ": got " << ::testing::PrintToString(avuto) << ", expected "
              << ::testing::PrintToString(atteso);
        errori.push_back(testo.str());
    }
}

std::string Esadecimale(std::uint32_t bit) {
    char cifre[8];
    for (int i = 0; i < 8; ++i) {
        cifre[i] = "0123456789ABCDEF"[bit >> (28 - 4 * i) & 15u];
    }
    return std::string(cifre, sizeof cifre);
}

struct CasoCampione {
    explicit CasoCampione(const std::vector<std::string>& c)
        : canale(LeggiFid(c[0])),
          funzione(LeggiFid(c[1])),
          tipo(LeggiNumero<unsigned>(c[2])),
          udm(LeggiTesto(c[3])),
          larghezza(LeggiNumero<std::uint32_t>(c[4])),
          decimali(LeggiNumero<std::uint32_t>(c[5])),
          automatici(LeggiNumero<std::uint32_t>(c[6])),
          formato(static_cast<eFormatoConv>(LeggiNumero<unsigned>(c[7]))),
          campione(LeggiCampione(c[8])),
          valore(c[9]),
          stato(c[10]),
          testo(LeggiTesto(c[11])) {
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
            valore = Esadecimale(LeggiNumero<std::uint32_t>(valore, 16));
        }
        if (stato != "-") {
            LeggiTesto(stato);
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

std::string ValoreLetto(bool letto, float valore) {
    if (!letto) {
        return valore == 0.0f ? "-" : "- but with a value other than 0";
    }
    return std::isnan(valore) ? "nan" : Esadecimale(std::bit_cast<std::uint32_t>(valore));
}

Errori CampionePiatto(const std::vector<std::string>& colonne) {
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
    Confronta(errori, "valore", ValoreLetto(letto == 1, valore), caso.valore);

    std::string stato = "-";
    if (conv.valore != nullptr && conv.testo_stato != nullptr) {
        std::uint32_t parola = 0xDEAD;
        conv.valore(&conv, caso.memoria.get() + conv.offset_campione, &parola);
        char testo_stato[32] = {};
        conv.testo_stato(parola, testo_stato);
        stato = std::string("\"") + testo_stato + '"';
    }
    Confronta(errori, "stato", stato, caso.stato);

    char testo[32];
    std::memset(testo, 'x', sizeof testo);
    kelConvGetString(&conv, caso.memoria.get(), testo);
    std::string atteso = caso.testo;
    atteso.resize(sizeof testo, '\0');
    Confronta(errori, "testo, 32 bytes", std::string(testo, sizeof testo), atteso);
    return errori;
}

Errori CampioneOggetto(const std::vector<std::string>& colonne) {
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
    Confronta(errori, "valore", ValoreLetto(letto, valore), caso.valore);
    std::string testo = "left over";
    Confronta(errori, "result of GetString", conv->GetString(caso.memoria.get(), testo), true);
    Confronta(errori, "testo with its NUL", testo, caso.testo + '\0');
    return errori;
}

Errori TempoScritto(const std::vector<std::string>& colonne) {
    Errori errori;
    Confronta(errori, "testo", CLaptimeAndStrings::LapTimeToStringa(LeggiNumero<int>(colonne[0])),
              LeggiTesto(colonne[1]));
    return errori;
}

Errori RigaScritta(const std::vector<std::string>& colonne) {
    Errori errori;
    Confronta(errori, "testo",
              CLaptimeAndStrings::LapNumAndTimeToStringa(LeggiNumero<int>(colonne[0]), LeggiNumero<int>(colonne[1])),
              LeggiTesto(colonne[2]));
    return errori;
}

Errori TempoLetto(const std::vector<std::string>& colonne) {
    Errori errori;
    Confronta(errori, "tempo", CLaptimeAndStrings::StringaToLapTime(LeggiTesto(colonne[0])),
              LeggiNumero<int>(colonne[1]));
    return errori;
}

Errori RigaLetta(const std::vector<std::string>& colonne) {
    Errori errori;
    const int atteso = LeggiNumero<int>(colonne[1]);
    const std::optional<int> tempo_atteso =
        colonne[2] == "!" ? std::nullopt : std::optional<int>(LeggiNumero<int>(colonne[2]));
    int numero = -77;
    int tempo = -77;
    std::string eccezione;
    try {
        CLaptimeAndStrings::StringaToLapNumAndTime(LeggiTesto(colonne[0]), numero, tempo);
    } catch (const std::out_of_range& errore) {
        eccezione = errore.what();
    }
    Confronta(errori, "numero", numero, atteso);
    Confronta(errori, "tempo", tempo, tempo_atteso.value_or(-77));
    Confronta(errori, "exception", eccezione, std::string(tempo_atteso ? "" : "basic_string::substr"));
    return errori;
}

Errori MezzoEspanso(const std::vector<std::string>& colonne) {
    Errori errori;
    Confronta(errori, "float", Esadecimale(kelF16decompress(LeggiNumero<unsigned>(colonne[0], 16))),
              Esadecimale(LeggiNumero<unsigned>(colonne[1], 16)));
    return errori;
}

Errori MezzoCompresso(const std::vector<std::string>& colonne) {
    Errori errori;
    Confronta(errori, "mezzo", Esadecimale(kelF16compress(LeggiNumero<unsigned>(colonne[0], 16))),
              Esadecimale(LeggiNumero<unsigned>(colonne[1], 16)));
    return errori;
}

Errori Nome(const std::vector<std::string>& colonne) {
    Errori errori;
    const kel_funpos fid = LeggiFid(colonne[0]);
    const std::string breve = LeggiTesto(colonne[1]);
    std::string campo = breve;
    campo.resize(32, '\0');
    const s_nome_breve piatto = kelFunGetNomeFunzioneShort(nullptr, fid);
    Confronta(errori, "breve, 32 bytes", std::string(piatto.testo, sizeof piatto.testo), campo);
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    Confronta(errori, "breve with its NUL", catalogo->getNomeFunzioneShort(fid), breve + '\0');
    Confronta(errori, "lungo", catalogo->getNomeFunzione(fid, false), LeggiTesto(colonne[2]));
    Confronta(errori, "tutti", catalogo->getNomeFunzione(fid, true), LeggiTesto(colonne[3]));
    return errori;
}

// --- the kinds of file ----------------------------------------------------------------------------------------------

struct Genere {
    const char* inizio;  // of the file's name
    std::size_t colonne;
    std::vector<std::function<Errori(const std::vector<std::string>&)>> prove;
};

const std::vector<Genere>& Generi() {
    static const std::vector<Genere> generi = {
        {"campioni_", 13, {CampionePiatto, CampioneOggetto}},
        {"tempi_scrittura", 3, {TempoScritto}},
        {"tempi_lettura", 3, {TempoLetto}},
        {"righe_scrittura", 4, {RigaScritta}},
        {"righe_lettura", 4, {RigaLetta}},
        {"mezzi_espansione", 3, {MezzoEspanso}},
        {"mezzi_compressione", 3, {MezzoCompresso}},
        {"nomi", 5, {Nome}},
    };
    return generi;
}

const Genere* GenereDi(const std::string& nome) {
    for (const Genere& genere : Generi()) {
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
std::vector<Guasto> Esegui(const Genere& genere, std::istream& file, std::vector<std::vector<std::string>>* casi) {
    std::vector<Guasto> guasti;
    std::string riga;
    for (int numero = 1; std::getline(file, riga); ++numero) {
        const std::string senza_blanchi = Ritaglia(riga);
        if (senza_blanchi.empty() || senza_blanchi.front() == '#') {
            continue;
        }
        try {
            const std::vector<std::string> colonne = Colonne(riga);
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

std::vector<std::filesystem::path> Elenco() {
    std::vector<std::filesystem::path> file;
    for (const auto& voce : std::filesystem::directory_iterator(std::string(KEL_TEST_SORGENTI) + "/golden")) {
        if (voce.path().extension() == ".txt") {
            file.push_back(voce.path());
        }
    }
    std::sort(file.begin(), file.end());
    return file;
}

std::vector<std::vector<std::string>> EseguiTutti(const std::string& inizio) {
    std::vector<std::vector<std::string>> casi;
    int quanti = 0;
    for (const std::filesystem::path& percorso : Elenco()) {
        const std::string nome = percorso.filename().string();
        if (nome.rfind(inizio, 0) != 0) {
            continue;
        }
        ++quanti;
        const Genere* genere = GenereDi(nome);
        if (genere == nullptr) {
            ADD_FAILURE_AT(percorso.c_str(), 1) << "no kind of case begins its file's name like this";
            continue;
        }
        std::ifstream file(percorso);
        EXPECT_TRUE(file.is_open()) << percorso;
        for (const Guasto& guasto : Esegui(*genere, file, &casi)) {
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
    EXPECT_GE(EseguiTutti("campioni_").size(), 300u);
}

TEST(GoldenLapTimes, AreWrittenAndReadAsTheyAreWritten) {
    EseguiTutti("tempi_");
    EseguiTutti("righe_");
}

TEST(GoldenHalfFloats, ConvertAsTheyAreWritten) {
    EseguiTutti("mezzi_");
}

TEST(GoldenNames, AreAsTheyAreWritten) {
    EseguiTutti("nomi");
}

TEST(GoldenFiles, AreAllOfAKnownKind) {
    for (const std::filesystem::path& percorso : Elenco()) {
        EXPECT_NE(GenereDi(percorso.filename().string()), nullptr) << percorso;
    }
    EXPECT_GE(Elenco().size(), 10u);
}

// Every case again in a fresh reading, for what the files have to cover.
std::vector<CasoCampione> TuttiICampioni() {
    std::vector<CasoCampione> casi;
    for (const std::filesystem::path& percorso : Elenco()) {
        if (percorso.filename().string().rfind("campioni_", 0) == 0) {
            std::ifstream file(percorso);
            for (std::string riga; std::getline(file, riga);) {
                const std::string senza_blanchi = Ritaglia(riga);
                if (!senza_blanchi.empty() && senza_blanchi.front() != '#') {
                    casi.emplace_back(Colonne(riga));
                }
            }
        }
    }
    return casi;
}

TEST(GoldenFiles, CoverEverySampleTypeAndFormat) {
    std::set<unsigned> tipi, formati;
    for (const CasoCampione& caso : TuttiICampioni()) {
        tipi.insert(caso.tipo);
        formati.insert(caso.formato);
    }
    for (unsigned tipo = 0; tipo < kel_test::tipi_campione; ++tipo) {
        EXPECT_TRUE(tipi.count(tipo)) << "no case of sample type " << tipo;
    }
    for (unsigned formato = 0; formato <= 2; ++formato) {
        EXPECT_TRUE(formati.count(formato)) << "no case of alignment " << formato;
    }
}

TEST(GoldenFiles, CoverEveryUnitOfEveryQuantity) {
    std::set<std::pair<kel_funpos, std::string>> usate;
    std::set<const s_converter_data*> righe;
    for (const CasoCampione& caso : TuttiICampioni()) {
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

std::vector<Guasto> EseguiTesto(const char* nome, const std::string& testo) {
    std::istringstream file(testo);
    return Esegui(*GenereDi(nome), file, nullptr);
}

const std::string kBuona = R"(0x0000F | 0x0000F | 4 | "rpm" | 4 | 0 | 0 | 0 | D2 04 | 449A4000 | "" | "1234" | )";

TEST(GoldenRunner, AcceptsAGoodLine) {
    EXPECT_TRUE(EseguiTesto("campioni_x.txt", "# a comment\n\n   \n  # another\n" + kBuona + "why\n").empty());
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
            EseguiTesto("campioni_x.txt", kBuona + "\n# comment\n" + cattiva + "\n" + kBuona);
        ASSERT_EQ(guasti.size(), 1u) << cattiva;
        EXPECT_EQ(guasti[0].riga, 3) << cattiva;
        EXPECT_NE(guasti[0].che.find("cannot be read"), std::string::npos) << guasti[0].che;
    }
}

TEST(GoldenRunner, ReportsACaseThatFails) {
    const char* const false_[] = {
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
    for (const char* falsa : false_) {
        const std::vector<Guasto> guasti = EseguiTesto("campioni_x.txt", std::string("# comment\n") + falsa);
        ASSERT_FALSE(guasti.empty()) << falsa;
        EXPECT_EQ(guasti[0].riga, 2) << falsa;
        EXPECT_EQ(guasti[0].che.find("cannot be read"), std::string::npos) << guasti[0].che;
    }
}

TEST(GoldenRunner, ReportsFailuresOfTheOtherKinds) {
    const std::pair<const char*, const char*> false_[] = {
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
    for (const auto& [nome, falsa] : false_) {
        EXPECT_FALSE(EseguiTesto(nome, falsa).empty()) << nome << ": " << falsa;
    }
}

TEST(GoldenRunner, KnowsNoOtherKinds) {
    EXPECT_EQ(GenereDi("campion.txt"), nullptr);
    EXPECT_EQ(GenereDi("readme.txt"), nullptr);
}

}  // namespace
