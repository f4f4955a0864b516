// Recordings, u-blox streams, laps and Arrow: tables of channels and tracks by chance, read with each set of loops that the
// machine can run, with the library's own choice, in pieces that are pushed, and by Arrow.
#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "comune/tipi_campione.h"
#include "famiglie.h"
#include "kelregistrazioni.h"
#include "tabelle.h"

namespace digest {

namespace {

using Byte = std::vector<unsigned char>;

struct Chiudi {
    void operator()(s_kel_registrazione* reg) const { kelRegChiudi(reg); }
    void operator()(s_kel_giri* giri) const { kelGiriChiudi(giri); }
};
using Registrazione = std::unique_ptr<s_kel_registrazione, Chiudi>;
using Giri = std::unique_ptr<s_kel_giri, Chiudi>;

void scrivi(unsigned char* dove, std::uint64_t valore, std::size_t byte = 4) {
    for (std::size_t i = 0; i < byte; ++i)
        dove[i] = static_cast<unsigned char>(valore >> 8 * i);
}

// A receiver that goes around a square on the equator, where metres are ECEF's own: as far from it as chance has it.
struct Quadrato {
    std::int64_t est, nord, lato, andatura;

    explicit Quadrato(Caso& caso) {
        est = static_cast<std::int64_t>(caso.sotto(40)) * 100;
        nord = static_cast<std::int64_t>(caso.sotto(40)) * 100;
        lato = 5000 + static_cast<std::int64_t>(caso.sotto(20)) * 500;  // cm
        andatura = 1500 + static_cast<std::int64_t>(caso.sotto(4)) * 500;
    }

    double latitudine() const { return static_cast<double>(nord + lato / 2) / 11057430; }
    double longitudine() const { return static_cast<double>(est) / 11131949; }

    // NAV-SOL of a moment, five of them a second.
    std::array<unsigned char, KEL_NAV_SOL_BYTE> nav_sol(std::uint32_t momento, unsigned fix) const {
        std::array<unsigned char, KEL_NAV_SOL_BYTE> dati{};
        const std::int64_t via = andatura / 5 * momento % (4 * lato);
        const std::int64_t oltre = via % lato;
        const auto quale = static_cast<int>(via / lato);
        const std::array<std::int64_t, 4> y = {0, -oltre, -lato, oltre - lato};
        const std::array<std::int64_t, 4> z = {oltre, lato, lato - oltre, 0};
        const std::array<std::int64_t, 4> vy = {0, -andatura, 0, andatura};
        const std::array<std::int64_t, 4> vz = {andatura, 0, -andatura, 0};
        const auto k = static_cast<std::size_t>(quale);
        scrivi(&dati[0], 345600000u + momento * 200u);
        scrivi(&dati[8], 2370, 2);
        dati[10] = static_cast<unsigned char>(fix);
        scrivi(&dati[12], 637813700u);
        scrivi(&dati[16], static_cast<std::uint64_t>(est + y[k]));
        scrivi(&dati[20], static_cast<std::uint64_t>(nord + z[k]));
        scrivi(&dati[24], 150);
        scrivi(&dati[32], static_cast<std::uint64_t>(vy[k]));
        scrivi(&dati[36], static_cast<std::uint64_t>(vz[k]));
        scrivi(&dati[40], 20);
        dati[47] = 9;
        return dati;
    }
};

unsigned fix(Caso& caso) {
    return caso.uno_su(40) ? caso.sotto(6) : 3;
}

// Channels by chance, and samples of them that are, where they carry a position, those of a track.
struct Registrata {
    Byte canali, campioni;
    s_kel_apertura apertura = {};
};

Registrata registrata(Caso& caso) {
    Registrata una;
    const std::uint32_t numero_canali = 1 + caso.sotto(5);
    std::size_t dimensione = 0;
    std::size_t gps = SIZE_MAX;
    for (std::uint32_t i = 0; i < numero_canali; ++i) {
        unsigned char* canale = &*una.canali.insert(una.canali.end(), 112, 0);
        kel_funpos fid = caso.fid();
        std::uint32_t tipo = caso.sotto(kel_test::TIPI_CAMPIONE);
        const std::uint32_t genere = caso.sotto(4);
        if (genere == 0) {
            fid = KEL_FID_GPS_PACCHETTO;
            tipo = KEL_TIPO_GPS_KEL;
            gps = dimensione + 4;
        } else if (genere == 1) {
            fid = caso.pacchetto();
            const int suo = kelRegTipoPacchetto(fid);
            tipo = suo < 0 ? tipo : static_cast<std::uint32_t>(suo);
        }
        scrivi(canale + 12, fid);
        scrivi(canale + 20, tipo);
        caso.testo(reinterpret_cast<char*>(canale) + 32, 20);
        scrivi(canale + 68, dimensione);
        scrivi(canale + 72, kelFunGetSamplSize(tipo));
        dimensione += kelFunGetSamplSize(tipo);
    }
    if (caso.uno_su(16))
        una.canali[una.canali.size() - 112 + 68] ^= 1;  // an offset that does not fit
    una.apertura.compatta = caso.uno_su(4) ? 1 : 0;
    una.apertura.dispositivo = caso.uno_su(4) ? 1 : 0;
    una.apertura.pacchetti = caso.uno_su(4) ? 1 : 0;
    const std::uint32_t orario = caso.sotto(3);
    if (caso.uno_su(8))
        una.apertura.orario = static_cast<eKelOrario>(caso.sotto(5));
    if (orario == 0)
        una.apertura.frequenza = caso.uno_su(2) ? 25 : 0;
    const Quadrato pista(caso);
    const std::uint32_t record = caso.sotto(200);
    std::uint64_t marca = caso.uno_su(4) ? 0xFFFFFFFFu - caso.sotto(9000) : caso.sotto(100000);
    for (std::uint32_t i = 0; i < record; ++i, marca += 40) {
        const std::size_t testa = orario == 0 ? 0 : orario == 1 ? 4 : 8;
        const std::size_t da = una.campioni.size();
        una.campioni.resize(da + testa + dimensione);
        scrivi(una.campioni.data() + da, marca, testa);
        const std::span<unsigned char> suoi(una.campioni.data() + da + testa, dimensione);
        for (std::size_t k = 0; k < dimensione; k += 16)
            caso.campione(suoi.subspan(k, std::min<std::size_t>(16, dimensione - k)));
        if (gps != SIZE_MAX)
            std::ranges::copy(pista.nav_sol(i, fix(caso)), suoi.begin() + static_cast<std::ptrdiff_t>(gps));
    }
    if (caso.uno_su(4))
        una.campioni.resize(una.campioni.size() - caso.sotto(static_cast<std::uint32_t>(una.campioni.size() % 97 + 1)));
    return una;
}

const void* dati(const Byte& byte) {
    return byte.empty() ? "" : static_cast<const void*>(byte.data());
}

void registrazione(Caso& caso, Impronta& impronta) {
    Registrata una = registrata(caso);
    s_kel_errore errore = {};
    const Registrazione reg(kelRegApri(una.canali.data(), una.canali.size(), dati(una.campioni), una.campioni.size(),
                                       &una.apertura, &errore));
    impronta.testo(errore.testo);
    if (!reg)
        return;
    s_kel_descrizione che{};
    kelRegDescrivi(reg.get(), 0, &che);
    std::array<char, 40> udm;
    caso.unita(che.fid, udm.data(), udm.size());
    impronta.segno(kelRegUnita(reg.get(), 0, udm.data()));
    tabella(impronta, reg.get());
    una.apertura.lunghezza = caso.uno_su(2) ? una.campioni.size() : 0;
    const Registrazione pezzi(kelRegApri(una.canali.data(), una.canali.size(), nullptr, 0, &una.apertura, nullptr));
    a_pezzi(caso, impronta, pezzi.get(), una.campioni);
}

Byte flusso(Caso& caso, const Quadrato& pista, std::uint32_t momenti) {
    Byte byte;
    for (std::uint32_t i = 0; i < momenti; ++i) {
        const auto payload = pista.nav_sol(i, fix(caso));
        const std::size_t da = byte.size();
        byte.insert(byte.end(), {0xB5, 0x62, 1, 6, KEL_NAV_SOL_BYTE, 0});
        byte.insert(byte.end(), payload.begin(), payload.end());
        unsigned a = 0;
        unsigned b = 0;
        for (std::size_t k = da + 2; k < byte.size(); ++k)
            b += a += byte[k];
        byte.insert(byte.end(), {static_cast<unsigned char>(a), static_cast<unsigned char>(b)});
        if (caso.uno_su(50))
            byte[byte.size() - 1 - caso.sotto(60)] ^= caso.u8();
        if (caso.uno_su(50))
            byte.insert(byte.end(), {'$', 0xB5, 0x62, 1});
    }
    return byte;
}

void ubx(Caso& caso, Impronta& impronta) {
    const Quadrato pista(caso);
    const Byte byte = flusso(caso, pista, caso.sotto(100));
    const Registrazione reg(kelRegApriUbx(dati(byte), byte.size(), nullptr));
    tabella(impronta, reg.get());
    s_kel_conteggi conteggi{};
    kelRegConteggi(reg.get(), &conteggi);
    for (const std::uint64_t uno :
         {conteggi.byte, conteggi.byte_fuori, conteggi.byte_troncati, conteggi.soluzioni, conteggi.stessa_epoca,
          conteggi.altri, conteggi.lunghezza_errata, conteggi.checksum_errati})
        impronta.numero(uno);
    impronta.numero(kelRegMessaggi(reg.get(), nullptr, 0));
    for (std::uint64_t i = 0; i < kelRegRighe(reg.get()); i += 9) {
        std::array<unsigned char, KEL_NAV_SOL_BYTE> payload;
        kelRegNavSol(reg.get(), i, payload.data());
        impronta.byte(payload.data(), payload.size());
    }
    const Registrazione pezzi(kelRegApriUbx(nullptr, 0, nullptr));
    a_pezzi(caso, impronta, pezzi.get(), byte);
}

void giri(Impronta& impronta, const s_kel_registrazione* reg, const s_kel_scelte_giri& scelte) {
    const Giri suoi(kelGiriApri(reg, nullptr));
    kelGiriAggiungi(suoi.get(), nullptr);
    s_kel_errore errore = {};
    impronta.segno(kelGiriCalcola(suoi.get(), &scelte, &errore));
    impronta.testo(errore.testo);
    impronta.testo(kelGiriDetto(suoi.get()));
    for (unsigned i = 0; i < kelGiriNumero(suoi.get()); ++i) {
        s_kel_giro giro;
        kelGiriGiro(suoi.get(), i, &giro);
        impronta.segno(giro.numero);
        impronta.segno(giro.ms);
        impronta.segno(giro.migliore);
        impronta.numero(giro.sessione);
        impronta.testo(kelGiriNomeStato(giro.stato));
        impronta.numero(giro.campioni);
        for (std::uint32_t k = 0; k < giro.num_settori; ++k)
            impronta.segno(giro.settori[k]);
        for (const double uno : {giro.inizio, giro.distacco, giro.massima, giro.minima, giro.metri})
            numero(impronta, uno, 1e3);
        std::vector<s_kel_punto_giro> punti(kelGiriAndamento(suoi.get(), i, 1000, nullptr, 0));
        kelGiriAndamento(suoi.get(), i, 1000, punti.data(), punti.size());
        for (const s_kel_punto_giro& punto : punti) {
            for (const double uno : {punto.metri, punto.secondi, punto.velocita})
                numero(impronta, uno, 1e3);
            impronta.segno(punto.staccato);
        }
        std::vector<s_kel_fix> fix(kelGiriFix(suoi.get(), i, nullptr, 0));
        kelGiriFix(suoi.get(), i, fix.data(), fix.size());
        for (const s_kel_fix& uno : fix) {
            numero(impronta, uno.latitudine, PARTI);
            numero(impronta, uno.velocita, 1e3);
        }
    }
}

// Laps of a stream at a line that is given or found, and of a recording, whatever it holds.
void di_giri(Caso& caso, Impronta& impronta) {
    const Quadrato pista(caso);
    const Byte byte = flusso(caso, pista, 200 + caso.sotto(200));
    const Registrazione reg(kelRegApriUbx(dati(byte), byte.size(), nullptr));
    // In the middle of the side that is driven north, at times beside it or the other way round.
    s_kel_linea linea = {pista.latitudine(), pista.longitudine(), caso.uno_su(8) ? 180.0 : 5.0 * caso.sotto(9), 0};
    linea.larghezza = 5 + caso.sotto(60);
    const s_kel_intermedio intermedio = {50 + 10.0 * caso.sotto(20), {}, nullptr};
    s_kel_scelte_giri scelte = {};
    scelte.linea = caso.uno_su(4) ? nullptr : &linea;
    scelte.intermedi = &intermedio;
    scelte.num_intermedi = caso.sotto(2);
    scelte.minimo = caso.uno_su(4) ? 1 + caso.sotto(60) : 0;
    scelte.udm = caso.uno_su(2) ? "mph" : nullptr;
    giri(impronta, reg.get(), scelte);
    const Registrata una = registrata(caso);
    const Registrazione altra(kelRegApri(una.canali.data(), una.canali.size(), dati(una.campioni), una.campioni.size(),
                                         &una.apertura, nullptr));
    scelte.fonte = static_cast<eKelFonteGiri>(caso.sotto(3));
    if (altra)
        giri(impronta, altra.get(), scelte);
}

void senza_tabella(Caso& caso, Impronta& impronta) {
    std::array<char, 40> testo;
    const kel_funpos fid = caso.uno_su(2) ? caso.pacchetto() : caso.fid();
    impronta.segno(kelRegTipoPacchetto(fid));
    caso.unita(KEL_FID_GPS_VELOCITA, testo.data(), testo.size());
    numero(impronta, kelRegFattoreVelocita(testo.data()), 1e9);
    caso.testo(testo.data(), testo.size());
    s_kel_linea linea = {};
    impronta.segno(kelGiriLinea(testo.data(), &linea));
}

constexpr Famiglia FAMIGLIE[] = {
    {"kelRegApri", 64, registrazione},
    {"kelRegApriUbx", 64, ubx},
    {"kelGiriCalcola", 128, di_giri},
    {"kelRegTipoPacchetto", 64, senza_tabella},
};

}  // namespace

std::span<const Famiglia> famiglie_registrazioni() {
    return FAMIGLIE;
}

}  // namespace digest
