#include <cstring>
#include <iterator>

#include "comune/recinto.h"
#include "comune/tipi_campione.h"
#include "comune/unita_necessaria.h"
#include "famiglie.h"

namespace digest {

namespace {

constexpr unsigned CANALI = 6;

// A set of channels by chance. One record more than the capacity may be read: that of the name past the last.
struct Insieme {
    explicit Insieme(Caso& caso) {
        for (s_kel_canale& canale : canali) {
            caso.campione({reinterpret_cast<unsigned char*>(&canale), sizeof canale});
            canale.fid = caso.uno_su(2) ? caso.pacchetto() : caso.fid();
            canale.breve[sizeof canale.breve - 1] = '\0';
            canale.nome[sizeof canale.nome - 1] = '\0';
        }
        const unsigned totale = caso.sotto(CANALI);
        const unsigned usati = caso.sotto(totale + 1);
        kelFunInit(&set, caso.uno_su(16) ? nullptr : canali, totale, usati);
    }

    // The record's place, not its address.
    void posto(Impronta& impronta, const s_kel_canale* canale) const {
        impronta.segno(canale == nullptr ? -1 : canale - canali);
    }

    s_kel_canale canali[CANALI + 1];
    s_set_canali set{};
};

kel_funpos richiesta(Caso& caso) {
    return caso.uno_su(2) ? caso.sottocampo() : caso.fid();
}

// A name of a record: without an array it is an address that nobody may read.
void nome(const Insieme& insieme, Impronta& impronta, const char* nome) {
    if (insieme.set.canali != nullptr)
        impronta.testo(nome);
}

void elenco(Caso& caso, Impronta& impronta) {
    const Insieme insieme(caso);
    s_kel_canale* trovati[CANALI] = {};
    unsigned numero = caso.sotto(CANALI + 1);
    impronta.segno(kelFunGetMatchChList(&insieme.set, richiesta(caso), trovati, &numero));
    impronta.numero(numero);
    for (const s_kel_canale* canale : trovati)
        insieme.posto(impronta, canale);
}

template <int (*Decimali)(kel_funpos, const char*)>
void decimali(Caso& caso, Impronta& impronta) {
    char udm[24];
    const kel_funpos fid = caso.fid();
    caso.unita(fid, udm, sizeof udm);
    impronta.segno(Decimali(fid, udm));
}

void dati_tra(Caso& caso, Impronta& impronta) {
    char da[24];
    char a[24];
    const kel_funpos fid = caso.fid();
    caso.unita(fid, da, sizeof da);
    caso.unita(fid, a, sizeof a);
    const s_converter_data dati = kelFunGetConvDatas(fid, da, a);
    impronta.riga(&dati);
}

// Made before the first operation is tried: some run where no system call is allowed.
const kel_test::Recinto RECINTO;

// What a record that nobody has set up points to: a page that may not be read.
const s_converter_data* proibito() {
    return reinterpret_cast<const s_converter_data*>(RECINTO.in_fondo(0));
}

// A converter by chance, and a sample that holds whatever it may read. Its record holds any bytes before it is set up; where
// no unit is needed, there may be none.
struct Convertitore {
    static constexpr unsigned OFFSET = 40;
    static constexpr unsigned PACCHETTO = 64;  // no packet is longer

    explicit Convertitore(Caso& caso)
        : dati{"u", std::bit_cast<float>(caso.bit_reale()), std::bit_cast<float>(caso.bit_reale()),
               static_cast<int>(caso.sotto(2))} {
        s_kel_canale canale;
        std::memset(&canale, 0, sizeof canale);
        canale.fid = caso.uno_su(2) ? caso.pacchetto() : caso.fid();
        canale.tipo_campione = caso.uno_su(64) ? caso.u32() : caso.sotto(kel_test::TIPI_CAMPIONE + 2);
        canale.offset_campione = caso.sotto(OFFSET);
        const kel_funpos fid = caso.uno_su(2) ? canale.fid : caso.sottocampo();
        riempi(caso.u64());
        aspetto(caso);
        const bool in_testa = caso.uno_su(2);
        const bool con_bit = caso.uno_su(4);
        const unsigned pos_bit = con_bit ? caso.sotto(33) : 0;
        const unsigned num_bit = con_bit ? caso.sotto(33) : 0;
        const s_converter_data* unita = this->unita(caso);
        if (caso.uno_su(2) && !kel_test::unita_necessaria(canale.fid, canale.tipo_campione, fid))
            unita = nullptr;
        kelConvInit(&conv, &canale, fid, unita, static_cast<std::uint16_t>(pos_bit),
                    static_cast<std::uint16_t>(num_bit), in_testa ? 1 : 0);
        caso.campione(buffer);
    }

    // The same bytes where they are looked at, however wide a pointer is: from a generator of its own.
    void riempi(std::uint64_t seme) {
        Caso caso(seme);
        auto* byte = reinterpret_cast<unsigned char*>(&conv);
        for (std::size_t i = 0; i < sizeof conv; i++)
            byte[i] = caso.u8();
        conv.dati = proibito();
    }

    const s_converter_data* unita(Caso& caso) {
        const s_grandezza_fisica_uiv* riga = kelFunGetUIVs(caso.fid());
        if (riga == nullptr || riga->num_udm < 1 || caso.uno_su(4))
            return &dati;
        return &riga->udm[caso.sotto(static_cast<std::uint32_t>(riga->num_udm))].dati;
    }

    void aspetto(Caso& caso) {
        conv.larghezza = caso.uno_su(32) ? caso.u32() : caso.sotto(12);
        conv.decimali = caso.uno_su(32) ? caso.u32() : caso.sotto(7);
        conv.auto_decimali = caso.sotto(2);
        conv.formato = static_cast<eFormatoConv>(caso.sotto(3));
    }

    void testo(Impronta& impronta) {
        char testo[32];
        impronta.segno(kelConvGetString(&conv, buffer, testo));
        impronta.byte(testo, sizeof testo);
        impronta.numero(conv.decimali);
    }

    s_converter_data dati;
    s_kel_converter conv{};
    unsigned char buffer[OFFSET + PACCHETTO];
};

void valore(Caso& caso, Impronta& impronta) {
    const Convertitore uno(caso);
    float valore = -1;
    impronta.segno(kelConvGetValFloat(&uno.conv, uno.buffer, &valore));
    impronta.reale(valore);
}

// Automatic decimals remember: the second text depends on the first.
void testo(Caso& caso, Impronta& impronta) {
    Convertitore uno(caso);
    uno.testo(impronta);
    caso.campione(uno.buffer);
    uno.testo(impronta);
}

// The unit by what it holds; that nobody gave one, by itself.
void dati(Caso& caso, Impronta& impronta) {
    const Convertitore uno(caso);
    const s_converter_data* dati = kelConvGetConvData(&uno.conv);
    impronta.numero(dati == proibito() ? 0 : 1);
    if (dati != proibito())
        impronta.riga(dati);
}

void prepara(Caso& caso, Impronta& impronta) {
    const Convertitore uno(caso);
    impronta.numero(uno.conv.offset_campione);
    impronta.numero(uno.conv.pos_bit);
    impronta.numero(uno.conv.num_bit);
    impronta.numero(uno.conv.maschera);
    impronta.numero((uno.conv.valore != nullptr ? 1U : 0U) | (uno.conv.testo != nullptr ? 2U : 0U) |
                    (uno.conv.testo_stato != nullptr ? 4U : 0U));
    // The status words of any sample, and the texts of any status word.
    if (uno.conv.valore != nullptr) {
        std::uint32_t stato = 0xDEAD;
        impronta.reale(uno.conv.valore(&uno.conv, uno.buffer + uno.conv.offset_campione, &stato));
        impronta.numero(stato);
    }
    if (uno.conv.testo_stato != nullptr) {
        char testo[32] = {};
        uno.conv.testo_stato(caso.uno_su(2) ? caso.sotto(17) : caso.u32(), testo);
        impronta.byte(testo, sizeof testo);
    }
}

// clang-format off
constexpr Famiglia FAMIGLIE[] = {
    {"kelFunInit",                 1, [](Caso& c, Impronta& i) { const Insieme s(c); i.numero(s.set.totale); i.numero(s.set.usati); }},
    {"kelFunGetFreeCh",            1, [](Caso& c, Impronta& i) { Insieme s(c); s.posto(i, kelFunGetFreeCh(&s.set)); i.byte(s.canali, sizeof s.canali); }},
    {"kelFunFreeLastCh",           1, [](Caso& c, Impronta& i) { Insieme s(c); i.segno(kelFunFreeLastCh(&s.set)); i.numero(s.set.usati); }},
    {"kelFunGetCanale",            1, [](Caso& c, Impronta& i) { const Insieme s(c); s.posto(i, kelFunGetCanale(&s.set, c.grandezze())); }},
    {"kelFunGetNumChUsed",         1, [](Caso& c, Impronta& i) { const Insieme s(c); i.numero(kelFunGetNumChUsed(&s.set)); }},
    {"kelFunGetNumChTot",          1, [](Caso& c, Impronta& i) { const Insieme s(c); i.numero(kelFunGetNumChTot(&s.set)); }},
    {"kelFunGetSizeBufferValori",  1, [](Caso& c, Impronta& i) { const Insieme s(c); i.numero(kelFunGetSizeBufferValori(&s.set)); }},
    {"kelFunGetNomeCanale",        1, [](Caso& c, Impronta& i) { const Insieme s(c); nome(s, i, kelFunGetNomeCanale(&s.set, c.sotto(CANALI + 2))); }},
    {"kelFunGetNomeCanaleShort",   1, [](Caso& c, Impronta& i) { const Insieme s(c); nome(s, i, kelFunGetNomeCanaleShort(&s.set, c.sotto(CANALI + 2))); }},

    {"kelFunGetMatchCh",           1, [](Caso& c, Impronta& i) { const Insieme s(c); s.posto(i, kelFunGetMatchCh(&s.set, richiesta(c))); }},
    {"kelFunGetMatchChFull",       1, [](Caso& c, Impronta& i) { const Insieme s(c); s.posto(i, kelFunGetMatchChFull(&s.set, richiesta(c))); }},
    {"kelFunGetMatchChList",       1, elenco},

    {"kelFunGetUIVs",              1, [](Caso& c, Impronta& i) { i.riga(kelFunGetUIVs(c.fid())); }},
    {"kelFunGetUnitaBase",         1, [](Caso& c, Impronta& i) { i.testo(kelFunGetUnitaBase(c.fid())); }},
    {"kelFunGetUdmTxt",            1, [](Caso& c, Impronta& i) { i.testo(kelFunGetUdmTxt(c.grandezze())); }},
    {"kelFunGetUdmCode",           1, [](Caso& c, Impronta& i) { char t[24]; c.testo(t, sizeof t); i.segno(kelFunGetUdmCode(t)); }},
    {"kelFunGetNumDecimaliDefault", 1, decimali<kelFunGetNumDecimaliDefault>},
    {"kelFunGetNumDecimaliMax",    1, decimali<kelFunGetNumDecimaliMax>},
    {"kelFunGetNumDecimaliMin",    1, decimali<kelFunGetNumDecimaliMin>},
    {"kelFunGetConvData",          1, [](Caso& c, Impronta& i) { char t[24]; const kel_funpos f = c.fid(); c.unita(f, t, sizeof t); i.riga(kelFunGetConvData(f, c.uno_su(16) ? nullptr : t)); }},
    {"kelFunGetConvDatas",         1, dati_tra},

    {"kelFunGetNomeFunzioneShort", 1, [](Caso& c, Impronta& i) { i.testo(kelFunGetNomeFunzioneShort(nullptr, c.fid()).testo); }},
    {"kelFunGetFidDaID",           1, [](Caso& c, Impronta& i) { char t[40]; c.testo(t, sizeof t); i.numero(kelFunGetFidDaID(c.uno_su(16) ? nullptr : t)); }},
    {"kelFunGetFunVecchiaZumikoDaID", 1, [](Caso& c, Impronta& i) { char t[40]; c.testo(t, sizeof t); i.riga(kelFunGetFunVecchiaZumikoDaID(t)); }},
    {"kelFunGetFunVecchiaZumikoDaFID", 1, [](Caso& c, Impronta& i) { i.riga(kelFunGetFunVecchiaZumikoDaFID(c.fid())); }},
    {"kelFunGetParamZumikoCam",    1, [](Caso& c, Impronta& i) { i.riga(kelFunGetParamZumikoCam(c.fid())); }},
    {"getFunzVisSize",             8, [](Caso&, Impronta& i) { i.numero(getFunzVisSize()); }},
    {"getFunzVisEstSize",          8, [](Caso&, Impronta& i) { i.numero(getFunzVisEstSize()); }},

    {"kelFunGetSamplSize",         1, [](Caso& c, Impronta& i) { i.numero(kelFunGetSamplSize(c.grandezze())); }},
    {"kelF16compress",             1, [](Caso& c, Impronta& i) { i.numero(kelF16compress(c.bit_reale())); }},
    {"kelF16decompress",           1, [](Caso& c, Impronta& i) { i.numero(kelF16decompress(c.u16())); }},

    {"kelConvInit",                1, prepara},
    {"kelConvGetValFloat",         1, valore},
    {"kelConvGetValFloat again",   1, valore},
    {"kelConvGetString",           1, testo},
    {"kelConvGetString again",     1, testo},
    {"kelConvGetConvData",         1, dati},
    {"kelConvGetOffset",           1, [](Caso& c, Impronta& i) { const Convertitore u(c); i.numero(kelConvGetOffset(&u.conv)); }},

    {"kelConvGetSottoCampiLapTime", 4, [](Caso& c, Impronta& i) { i.sottocampi(kelConvGetSottoCampiLapTime(c.uno_su(2) ? c.pacchetto() : c.u32())); }},
    {"kelConvGetSottoCampiDataOra", 4, [](Caso& c, Impronta& i) { i.sottocampi(kelConvGetSottoCampiDataOra(c.uno_su(2) ? c.pacchetto() : c.u32())); }},
    {"kelConvGetSottoCampiGPS",    4, [](Caso& c, Impronta& i) { i.sottocampi(kelConvGetSottoCampiGPS(c.uno_su(2) ? c.pacchetto() : c.u32())); }},
    {"kelConvMatchSottocampo",     1, [](Caso& c, Impronta& i) { const unsigned d = c.sotto(5); const unsigned s = c.sotto(4); i.segno(kelConvMatchSottocampo(d, s, richiesta(c))); }},
    {"getDettagliSottocampo",      1, [](Caso& c, Impronta& i) { const unsigned d = c.sotto(5); const s_sottocampo* t = search_sottocampi_struct(d, c.sotto(4)); i.riga(getDettagliSottocampo(t, richiesta(c))); }},
    {"search_sottocampi_struct",   4, [](Caso& c, Impronta& i) { const unsigned d = c.sotto(5); i.sottocampi(search_sottocampi_struct(d, c.uno_su(4) ? c.u32() : c.sotto(4))); }},
};
// clang-format on

}  // namespace

std::span<const Famiglia> famiglie_flat() {
    return FAMIGLIE;
}

}  // namespace digest
