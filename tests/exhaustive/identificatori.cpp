// All 2^32 identifiers.
//
// A part holds all identifiers of one value of bits 24 to 28, the highest that are used, with all values of the unused
// bits 29 to 31. The model is asked once for identifiers that differ only in fields on which its rules do not depend.
#include <array>
#include <set>

#include "exhaustive/libreria.h"
#include "exhaustive/spazi.h"
#include "kelfunzioni.h"
#include "model/camera.h"
#include "model/campi.h"
#include "model/elenchi.h"
#include "model/nomi.h"
#include "model/unita.h"

namespace esaustivo {

namespace {

using modello::Fid;

constexpr unsigned PARTI = 32;
constexpr Fid GRANDEZZE_OGGETTI = 1U << 15;            // values of bits 0 to 14
constexpr Fid POSIZIONI = 32;                          // values of bits 15 to 19
constexpr Fid GRANDEZZE_OGGETTI_POSIZIONI = 1U << 20;  // values of bits 0 to 19
constexpr Fid LATI = 16;                               // values of bits 20 to 23
constexpr Fid IGNORATI = 8;                            // values of bits 29 to 31

// Identifiers that a table lists whole, and whether an identifier can be one of them by its low 20 bits.
class Elencati {
public:
    Elencati() {
        for (const modello::RigaCamera& riga : modello::tabelle().camera_base)
            metti(riga.fid);
        for (const modello::RigaCamera& riga : modello::tabelle().camera_estese)
            metti(riga.fid);
        for (const modello::RigaVecchia& riga : modello::tabelle().funz_kel)
            metti(riga.fid);
    }

    bool ha(Fid fid) const { return bassi_[fid % GRANDEZZE_OGGETTI_POSIZIONI] && interi_.contains(fid); }

private:
    void metti(Fid fid) {
        interi_.insert(fid);
        bassi_[fid % GRANDEZZE_OGGETTI_POSIZIONI] = true;
    }

    std::set<Fid> interi_;
    std::vector<bool> bassi_ = std::vector<bool>(GRANDEZZE_OGGETTI_POSIZIONI);
};

const Elencati& elencati() {
    static const Elencati uno;
    return uno;
}

// An expected text with its hash.
struct Atteso {
    std::string testo;
    std::uint64_t impronta = 0;
    explicit Atteso(std::string atteso = {}) : testo(std::move(atteso)), impronta(esaustivo::impronta(testo)) {}
};

void confronta(Conta& conta, std::string_view libreria, const Atteso& atteso, Fid fid) {
    const bool uguale = libreria == atteso.testo;
    conta.caso(uguale, uguale ? atteso.impronta : impronta(libreria), [&] {
        return esadecimale(fid) + ": library " + Conta::citato(libreria) + ", model " + Conta::citato(atteso.testo);
    });
}

// Calls `prova(fid)` for every identifier with the given bits 0 to 19 and 20 to 28, and any bits 29 to 31.
template <typename Prova>
void con_ignorati(Fid bassi, Fid lati, unsigned parte, Prova prova) {
    for (Fid ignorati = 0; ignorati < IGNORATI; ignorati++)
        prova(bassi | lati << 20 | static_cast<Fid>(parte) << 24 | ignorati << 29);
}

// Compares the library's name of every identifier of a part. `comune(q, o, p)` gives the index of an expected name that
// the sides do not change, or none; `composto` composes it.
template <typename Libreria, typename DaTabella, typename Composto, typename Intero>
void nomi(unsigned parte, Conta& conta, Libreria libreria, DaTabella da_tabella, Composto composto, Intero intero) {
    for (Fid lati = 0; lati < LATI; lati++) {
        for (Fid qo = 0; qo < GRANDEZZE_OGGETTI; qo++) {
            const bool pacchetto = modello::grandezza(qo) == 26;
            Atteso atteso;
            bool noto = false;
            for (Fid posizione = 0; posizione < POSIZIONI; posizione++) {
                const Fid bassi = qo | posizione << 15;
                const Atteso* tabella = da_tabella(bassi);
                if (tabella == nullptr && (!noto || pacchetto)) {
                    atteso = Atteso(composto(bassi | lati << 20 | static_cast<Fid>(parte) << 24));
                    noto = true;
                }
                con_ignorati(bassi, lati, parte, [&](Fid fid) {
                    if (elencati().ha(fid)) [[unlikely]]
                        confronta(conta, libreria(fid), Atteso(intero(fid)), fid);
                    else
                        confronta(conta, libreria(fid), tabella == nullptr ? atteso : *tabella, fid);
                });
            }
        }
    }
}

// Names of the quantity table, by quantity, object and position; null where it has none.
class NomiGrandezze {
public:
    NomiGrandezze() {
        attesi_.reserve(256);
        for (Fid bassi = 0; bassi < GRANDEZZE_OGGETTI_POSIZIONI; bassi++) {
            const auto nome = modello::nome_lungo_grandezza(bassi);
            indici_[bassi] = nome ? posto(*nome) : 0;
        }
    }
    const Atteso* operator()(Fid bassi) const { return indici_[bassi] == 0 ? nullptr : &attesi_[indici_[bassi] - 1U]; }

private:
    std::uint16_t posto(const std::string& nome) {
        std::size_t i = 0;
        while (i < attesi_.size() && attesi_[i].testo != nome)
            i++;
        if (i == attesi_.size())
            attesi_.emplace_back(nome);
        return static_cast<std::uint16_t>(i + 1);
    }

    std::vector<Atteso> attesi_;
    std::vector<std::uint16_t> indici_ = std::vector<std::uint16_t>(GRANDEZZE_OGGETTI_POSIZIONI);
};

void nomi_lunghi(unsigned parte, Conta& conta, bool tutti) {
    static const NomiGrandezze grandezze;
    const IFunzioni& funzioni = catalogo();
    nomi(
        parte, conta, [&](Fid fid) { return funzioni.getNomeFunzione(fid, tutti); },
        [](Fid bassi) { return grandezze(bassi); }, [&](Fid fid) { return modello::nome_lungo_composto(fid, tutti); },
        [&](Fid fid) { return modello::nome_lungo(fid, tutti); });
}

// All 32 bytes of the name, the NULs after it included.
void nomi_brevi(unsigned parte, Conta& conta) {
    const auto riempi = [](std::string nome) {
        nome.resize(32);
        return nome;
    };
    s_nome_breve breve{};
    nomi(
        parte, conta,
        [&](Fid fid) {
            breve = kelFunGetNomeFunzioneShort(nullptr, fid);
            return std::string_view(breve.testo, sizeof breve.testo);
        },
        [](Fid) -> const Atteso* { return nullptr; },
        [&](Fid fid) { return riempi(modello::nome_breve_composto(fid)); },
        [&](Fid fid) { return riempi(modello::nome_breve(fid)); });
}

// The object face's short name: the characters and one NUL. It is the flat name put into a string: one value of the
// ignored bits is enough.
void nomi_brevi_oggetto(unsigned parte, Conta& conta) {
    const IFunzioni& funzioni = catalogo();
    for (Fid lati = 0; lati < LATI; lati++)
        for (Fid bassi = 0; bassi < GRANDEZZE_OGGETTI_POSIZIONI; bassi++) {
            const Fid fid = bassi | lati << 20 | static_cast<Fid>(parte) << 24;
            std::string atteso = kelFunGetNomeFunzioneShort(nullptr, fid).testo;
            atteso += '\0';
            conta.testi(funzioni.getNomeFunzioneShort(fid), atteso, [&] { return esadecimale(fid); });
        }
}

// Fields taken out with the header's functions, and the identifier composed of them again.
void campi(unsigned parte, Conta& conta) {
    for (Fid lati = 0; lati < LATI; lati++)
        for (Fid bassi = 0; bassi < GRANDEZZE_OGGETTI_POSIZIONI; bassi++)
            con_ignorati(bassi, lati, parte, [&](Fid fid) {
                const Fid sedi = modello::numerato(fid)
                                     ? kelFidIstanza(kelFidNumero(fid))
                                     : kelFidLati(kelFidLeftRight(fid), kelFidFrontRear(fid), kelFidUpDown(fid));
                const Fid composto = kelFidComponi(kelFidGrandezza(fid), kelFidOggetto(fid), kelFidPosizione(fid)) |
                                     kelFidBitInOut(kelFidInOut(fid)) | sedi;
                const bool uguale =
                    kelFidGrandezza(fid) == modello::grandezza(fid) && kelFidOggetto(fid) == modello::oggetto(fid) &&
                    kelFidPosizione(fid) == modello::posizione(fid) && kelFidInOut(fid) == modello::in_out(fid) &&
                    (kelFidNumerato(fid) == 1) == modello::numerato(fid) && kelFidNumero(fid) == modello::numero(fid) &&
                    kelFidLeftRight(fid) == modello::left_right(fid) &&
                    kelFidFrontRear(fid) == modello::front_rear(fid) && kelFidUpDown(fid) == modello::up_down(fid) &&
                    (kelFidFineTabella(fid) != 0) == modello::fine_tabella(fid) && composto == fid % (1U << 29);
                conta.caso(uguale, composto, [&] { return esadecimale(fid) + ": other fields"; });
            });
}

// What depends on quantity and object alone.
struct Classe {
    const s_grandezza_fisica_uiv* riga;
    std::string unita;
    Fid equivalente;
};

const std::vector<Classe>& classi() {
    static const std::vector<Classe> tutte = [] {
        std::vector<Classe> classi;
        for (Fid qo = 0; qo < GRANDEZZE_OGGETTI; qo++) {
            const modello::RigaGrandezza* riga = modello::riga_grandezza(qo);
            classi.push_back(
                {riga == nullptr ? nullptr : uib_grandezza_fisica_uiv + (riga - modello::tabelle().grandezze.data()),
                 modello::unita_base(qo), modello::fid_equivalente(qo)});
        }
        return classi;
    }();
    return tutte;
}

void righe(unsigned parte, Conta& conta) {
    const IFunzioni& funzioni = catalogo();
    for (Fid lati = 0; lati < LATI; lati++)
        for (Fid bassi = 0; bassi < GRANDEZZE_OGGETTI_POSIZIONI; bassi++) {
            const Classe& classe = classi()[bassi % GRANDEZZE_OGGETTI];
            con_ignorati(bassi, lati, parte, [&](Fid fid) {
                const s_grandezza_fisica_uiv* riga = kelFunGetUIVs(fid);
                const bool uguale = riga == classe.riga && classe.unita == kelFunGetUnitaBase(fid) &&
                                    funzioni.getFidEquivalente(fid) == classe.equivalente;
                const auto posto = riga == nullptr ? -1 : riga - uib_grandezza_fisica_uiv;
                conta.caso(uguale, static_cast<std::uint64_t>(posto), [&] {
                    return esadecimale(fid) + ": row " + std::to_string(posto) + ", base unit " +
                           kelFunGetUnitaBase(fid) + ", class " + esadecimale(funzioni.getFidEquivalente(fid));
                });
            });
        }
}

const t_SFunzioneZumikoCam* riga_della_libreria(const std::optional<modello::RigaDiCamera>& riga) {
    if (!riga)
        return nullptr;
    return (riga->estesa ? funz_ZumikoCam_estese : funz_ZumikoCam_base) + riga->riga;
}

void camera(unsigned parte, Conta& conta) {
    for (Fid lati = 0; lati < LATI; lati++)
        for (Fid bassi = 0; bassi < GRANDEZZE_OGGETTI_POSIZIONI; bassi++)
            con_ignorati(bassi, lati, parte, [&](Fid fid) {
                const t_SFunzioneZumikoCam* riga = kelFunGetParamZumikoCam(fid);
                const t_SFunzioneZumikoCam* attesa =
                    elencati().ha(fid) ? riga_della_libreria(modello::camera_da_fid(fid)) : nullptr;
                conta.caso(riga == attesa && kelFunGetFunVecchiaZumikoDaFID(fid) == attesa,
                           riga == nullptr ? 0 : riga->fid, [&] { return esadecimale(fid) + ": another camera row"; });
            });
}

// Choices of sides and in/out. They are looked up by quantity, object and position, and compared whole where there are
// any; elsewhere the maps must come back empty and the numbers untouched.
void scelte(unsigned parte, Conta& conta) {
    const IFunzioni& funzioni = catalogo();
    std::map<unsigned, std::string> lati_trovati;
    std::map<unsigned, std::string> inout_trovati;
    for (Fid bassi = 0; bassi < GRANDEZZE_OGGETTI_POSIZIONI; bassi++) {
        const auto attesi = modello::dettagli(bassi);
        const modello::Dettagli nessuno{{}, {}, -77, -78};
        const modello::Dettagli& attesa = attesi ? *attesi : nessuno;
        for (Fid lati = 0; lati < LATI; lati++)
            con_ignorati(bassi, lati, parte, [&](Fid fid) {
                int primo = -77;
                int ultimo = -78;
                funzioni.getFunzDettagli(fid, lati_trovati, inout_trovati, primo, ultimo);
                const bool uguale = primo == attesa.primo && ultimo == attesa.ultimo && lati_trovati == attesa.lati &&
                                    inout_trovati == attesa.inout;
                conta.caso(uguale, lati_trovati.size() * 8 + inout_trovati.size(), [&] {
                    return esadecimale(fid) + ": " + std::to_string(lati_trovati.size()) + " sides, " +
                           std::to_string(inout_trovati.size()) + " in/out, " + std::to_string(primo) + " to " +
                           std::to_string(ultimo);
                });
            });
    }
}

}  // namespace

std::vector<Spazio> spazi_identificatori() {
    const auto lunghi = [](bool tutti) { return [tutti](unsigned p, Conta& c) { nomi_lunghi(p, c, tutti); }; };
    return {{"fields", "fields of all identifiers, and the identifiers composed again", PARTI, 16, campi},
            {"long-names", "long names of all identifiers", PARTI, 16, lunghi(false)},
            {"long-names-all", "long names with all fields of all identifiers", PARTI, 16, lunghi(true)},
            {"short-names", "short names of all identifiers", PARTI, 16, nomi_brevi},
            {"short-strings", "short names through the object face, unused bits 0", PARTI, 16, nomi_brevi_oggetto},
            {"quantity-rows", "quantity row, base unit and class of all identifiers", PARTI, 16, righe},
            {"camera-rows", "camera row of all identifiers", PARTI, 16, camera},
            {"side-choices", "sides, in/out and numbers of all identifiers", PARTI, 16, scelte}};
}

}  // namespace esaustivo
