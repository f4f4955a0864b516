// Texts through every look-up: all up to three bytes, and every table text with each one-byte change, cut and
// extension.
#include <optional>
#include <set>
#include <stdexcept>

#include "CLaptimeAndStrings.h"
#include "exhaustive/libreria.h"
#include "exhaustive/spazi.h"
#include "model/camera.h"
#include "model/campi.h"
#include "model/tempi.h"
#include "model/unita.h"

namespace esaustivo {

namespace {

using modello::Fid;

const t_SFunzioneZumikoCam* riga_di(const std::optional<modello::RigaDiCamera>& riga) {
    if (!riga)
        return nullptr;
    return (riga->estesa ? funz_ZumikoCam_estese : funz_ZumikoCam_base) + riga->riga;
}

// One function for each unit table.
const std::vector<Fid>& funzioni_di_ogni_unita() {
    static const std::vector<Fid> una = [] {
        std::vector<Fid> funzioni = {0x1C};
        std::set<std::string> viste;
        for (const modello::RigaGrandezza& riga : modello::tabelle().grandezze)
            if (riga.udm != "-" && viste.insert(riga.udm).second)
                funzioni.push_back(riga.chiave);
        return funzioni;
    }();
    return una;
}

bool testo_di_unita(const std::string& testo) {
    static const std::set<std::string> tutti = [] {
        std::set<std::string> testi;
        for (const auto& [nome, tabella] : modello::tabelle().udm)
            for (const modello::RigaUdm& riga : tabella)
                testi.insert(riga.testo);
        return testi;
    }();
    return tutti.contains(testo);
}

// Decimals and unit row. A text of no unit table is answered like any other such text.
void unita(Conta& conta, const std::string& testo) {
    struct Attesa {
        modello::RigaTrovata riga;
        int decimali_default, decimali_max, decimali_min;
        const s_converter_data* dati;
    };
    const auto chiedi = [](Fid fid, const std::string& udm) {
        const modello::RigaTrovata riga = modello::riga_conversione(fid, udm);
        return Attesa{riga, modello::decimali_default(fid, udm), modello::decimali_max(fid, udm),
                      modello::decimali_min(fid, udm), &riga_unita(riga).dati};
    };
    static const std::vector<Attesa> sconosciute = [&] {
        std::vector<Attesa> attese;
        for (const Fid fid : funzioni_di_ogni_unita())
            attese.push_back(chiedi(fid, "\x01"));
        return attese;
    }();
    const bool nota = testo_di_unita(testo);
    for (std::size_t i = 0; i < funzioni_di_ogni_unita().size(); i++) {
        const Fid fid = funzioni_di_ogni_unita()[i];
        const Attesa attesa = nota ? chiedi(fid, testo) : sconosciute[i];
        const s_converter_data* dati = kelFunGetConvData(fid, testo.c_str());
        const int trovati = kelFunGetNumDecimaliDefault(fid, testo.c_str());
        conta.caso(dati == attesa.dati && trovati == attesa.decimali_default &&
                       kelFunGetNumDecimaliMax(fid, testo.c_str()) == attesa.decimali_max &&
                       kelFunGetNumDecimaliMin(fid, testo.c_str()) == attesa.decimali_min,
                   static_cast<std::uint64_t>(trovati),
                   [&] { return esadecimale(fid) + " in " + Conta::citato(testo) + ": another unit row"; });
    }
}

// From and into the first and the last unit of every table. A text that is no unit gives the identity.
void tra(Conta& conta, const std::string& testo) {
    for (const Fid fid : funzioni_di_ogni_unita()) {
        const modello::RigaGrandezza* riga = modello::riga_grandezza(fid);
        if (riga == nullptr || riga->num_udm < 2)
            continue;
        const auto& tabella = modello::tabelle().udm.at(riga->udm);
        for (const modello::RigaUdm* unita : {&tabella.front(), &tabella.back()}) {
            const bool nota = testo_di_unita(testo);
            const modello::Conversione identita{0.0F, 1.0F};
            const auto da = nota ? modello::conversione_tra(fid, testo, unita->testo) : identita;
            const auto a = nota ? modello::conversione_tra(fid, unita->testo, testo) : identita;
            const s_converter_data l = kelFunGetConvDatas(fid, testo.c_str(), unita->testo.c_str());
            const s_converter_data m = kelFunGetConvDatas(fid, unita->testo.c_str(), testo.c_str());
            conta.caso(l.gain == da.gain && l.offset == da.offset && m.gain == a.gain && m.offset == a.offset,
                       std::bit_cast<std::uint32_t>(l.gain), [&] {
                           return esadecimale(fid) + " between " + Conta::citato(testo) + " and " + unita->testo +
                                  ": library gains " + Conta::esatto(l.gain) + " and " + Conta::esatto(m.gain);
                       });
        }
    }
}

// Look-ups of texts that are not numbers. `testo` holds no NUL.
void ricerche(Conta& conta, const std::string& testo) {
    IFunzioni& f = catalogo();
    const auto dove = [&] { return Conta::citato(testo); };
    conta.numeri(kelFunGetUdmCode(testo.c_str()), modello::codice_testo(testo), dove);
    conta.numeri(kelFunGetFidDaID(testo.c_str()), modello::fid_da_id_vecchio(testo), dove);
    conta.numeri(f.getFidDaID(testo), modello::fid_da_id(testo), dove);
    const t_SFunzioneZumikoCam* riga = riga_di(modello::camera_da_id(testo));
    conta.caso(kelFunGetFunVecchiaZumikoDaID(testo.c_str()) == riga && f.getFunVecchiaZumikoDaID(testo) == riga,
               riga == nullptr ? 0 : riga->fid, [&] { return dove() + ": another camera row"; });
    conta.numeri(f.getIdxPhi(testo), modello::valore_campo("grandezza_fisica_FunzKel", testo), dove);
    conta.numeri(f.getIdxObj(testo), modello::valore_campo("oggetto_misurato_FunzKel", testo), dove);
    conta.numeri(f.getIdxPos(testo), modello::valore_campo("posizione_FunzKel", testo), dove);
    conta.numeri(f.getIdxFrontRear(testo), modello::valore_campo("frontrear_FunzKel", testo), dove);
    unita(conta, testo);
    tra(conta, testo);
}

void tempo(Conta& conta, const std::string& testo) {
    conta.numeri(CLaptimeAndStrings::StringaToLapTime(testo), modello::leggi_tempo(testo),
                 [&] { return "lap time " + Conta::citato(testo); });
}

void giro(Conta& conta, const std::string& testo) {
    const modello::Giro atteso = modello::leggi_giro(testo);
    int numero = -77;
    int tempo = -78;
    bool corto = false;
    try {
        CLaptimeAndStrings::StringaToLapNumAndTime(testo, numero, tempo);
    } catch (const std::out_of_range&) {
        corto = true;
    }
    conta.caso(corto == !atteso.tempo && numero == atteso.numero && tempo == atteso.tempo.value_or(-78),
               static_cast<std::uint64_t>(numero), [&] {
                   return "lap line " + Conta::citato(testo) + ": library " + std::to_string(numero) + ", " +
                          std::to_string(tempo) + (corto ? " thrown" : "") + ", model " +
                          std::to_string(atteso.numero) + ", " + std::to_string(atteso.tempo.value_or(-78));
               });
}

std::string da_byte(std::initializer_list<unsigned> byte) {
    std::string testo;
    for (const unsigned uno : byte)
        testo += static_cast<char>(static_cast<unsigned char>(uno));
    return testo;
}

// The first part holds the texts of no, one and two bytes; the others those of three, by the first byte.
template <typename Prova>
void fino_a_tre_byte(unsigned parte, unsigned da, Prova prova) {
    if (parte == 0) {
        prova(std::string());
        for (unsigned a = da; a < 256; a++) {
            prova(da_byte({a}));
            for (unsigned b = da; b < 256; b++)
                prova(da_byte({a, b}));
        }
        return;
    }
    const unsigned a = parte - 1;
    if (a < da)
        return;
    for (unsigned b = da; b < 256; b++)
        for (unsigned c = da; c < 256; c++)
            prova(da_byte({a, b, c}));
}

void corti(unsigned parte, Conta& conta) {
    fino_a_tre_byte(parte, 1, [&](const std::string& testo) { ricerche(conta, testo); });
}

// As lap times NULs are read as well.
void tempi_corti(unsigned parte, Conta& conta) {
    fino_a_tre_byte(parte, 0, [&](const std::string& testo) {
        tempo(conta, testo);
        tempo(conta, "1:2" + testo + "4");
        tempo(conta, "4294967295" + testo);
        giro(conta, testo + "   ");
        giro(conta, "  7 - " + testo);
        if (testo.size() < 3)
            giro(conta, testo);
    });
}

// Every character that fields are made of, up to seven places.
void campi_di_tempo(unsigned parte, Conta& conta) {
    const std::string alfabeto = "09:.- +x";
    std::string testo(7, '0');
    for (std::uint32_t i = 0; i < 1U << 18; i++) {
        std::uint32_t resto = parte << 18 | i;
        for (char& c : testo) {
            c = alfabeto[resto % 8];
            resto /= 8;
        }
        tempo(conta, testo);
        giro(conta, testo);
        giro(conta, "12 - " + testo);
    }
}

std::vector<std::string> testi_delle_tabelle() {
    std::set<std::string> testi = {"  7 - 1:23.456", "1:23.456", "1:02:03", "59:59.999", "4294967295:71582:47"};
    for (const auto& [nome, righe] : modello::tabelle().campi)
        for (const modello::RigaCampo& riga : righe)
            testi.insert({riga.xml, riga.breve, riga.testo});
    for (const auto& [nome, righe] : modello::tabelle().udm)
        for (const modello::RigaUdm& riga : righe)
            testi.insert(riga.testo);
    testi.insert(modello::tabelle().codici_udm.begin(), modello::tabelle().codici_udm.end());
    for (const modello::RigaGrandezza& riga : modello::tabelle().grandezze)
        testi.insert({riga.breve, riga.testo});
    for (const auto* tabella : {&modello::tabelle().camera_base, &modello::tabelle().camera_estese})
        for (const modello::RigaCamera& riga : *tabella)
            testi.insert({riga.udm, riga.breve, riga.testo, riga.id});
    for (const modello::RigaVecchia& riga : modello::tabelle().funz_kel)
        testi.insert({riga.breve, riga.testo, riga.id});
    return {testi.begin(), testi.end()};
}

// The text, and all that a one-byte change, a cut or an extension makes of it.
template <typename Prova>
void con_varianti(const std::string& testo, Prova prova) {
    prova(testo);
    for (std::size_t i = 0; i < testo.size(); i++) {
        prova(testo.substr(0, i));
        prova(testo.substr(i + 1));
        for (unsigned byte = 1; byte < 256; byte++) {
            std::string mutato = testo;
            mutato[i] = static_cast<char>(static_cast<unsigned char>(byte));
            if (mutato != testo)
                prova(mutato);
        }
    }
    for (unsigned byte = 1; byte < 256; byte++) {
        prova(testo + da_byte({byte}));
        prova(da_byte({byte}) + testo);
    }
}

constexpr unsigned PARTI_MUTATI = 32;

void mutati(unsigned parte, Conta& conta) {
    static const std::vector<std::string> testi = testi_delle_tabelle();
    for (std::size_t i = parte; i < testi.size(); i += PARTI_MUTATI)
        con_varianti(testi[i], [&](const std::string& testo) {
            ricerche(conta, testo);
            tempo(conta, testo);
            giro(conta, testo + "123456");
        });
}

}  // namespace

std::vector<Spazio> spazi_testi() {
    return {{"texts-short", "all texts up to three bytes through every look-up", 257, 16, corti},
            {"texts-changed", "every table text with each one-byte change, cut and extension", PARTI_MUTATI, 2, mutati},
            {"times-short", "all texts up to three bytes as lap times and lap lines", 257, 32, tempi_corti},
            {"times-fields", "lap times of seven of the characters that matter", 8, 2, campi_di_tempo}};
}

}  // namespace esaustivo
