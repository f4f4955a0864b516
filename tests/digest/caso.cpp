#include "caso.h"

#include <iterator>
#include <utility>

namespace digest {

namespace {

constexpr std::uint32_t FINE = 32;  // quantity of the row that ends a table

void copia(char* dove, std::size_t spazio, const char* testo) {
    std::size_t i = 0;
    for (; i + 1 < spazio && testo[i] != '\0'; i++)
        dove[i] = testo[i];
    dove[i] = '\0';
}

std::size_t lunghezza(const char* testo) {
    std::size_t n = 0;
    while (testo[n] != '\0')
        n++;
    return n;
}

// Runs `scegli` untold, then tells what came out.
template <typename Scegli, typename Di>
auto una(Racconto*& racconto, Scegli scegli, Di di) {
    Racconto* const ascolta = std::exchange(racconto, nullptr);
    const auto valore = scegli();
    racconto = ascolta;
    if (ascolta != nullptr)
        di(*ascolta, valore);
    return valore;
}

void di_numero(Racconto& racconto, std::uint32_t valore) {
    racconto.numero(valore);
}
void di_esadecimale(Racconto& racconto, std::uint32_t valore) {
    racconto.esadecimale(valore);
}
void di_testo(Racconto& racconto, const char* testo) {
    racconto.testo(testo);
}

}  // namespace

std::uint32_t Caso::grandezze() {
    return una(
        racconto_, [this] { return scegli_grandezze(); }, di_numero);
}
std::uint32_t Caso::bit_reale() {
    return una(
        racconto_, [this] { return scegli_bit_reale(); }, di_esadecimale);
}
kel_funpos Caso::fid() {
    return una(
        racconto_, [this] { return scegli_fid(); }, di_esadecimale);
}
kel_funpos Caso::pacchetto() {
    return una(
        racconto_, [this] { return scegli_pacchetto(); }, di_esadecimale);
}
kel_funpos Caso::sottocampo() {
    return una(
        racconto_, [this] { return scegli_sottocampo(); }, di_esadecimale);
}
void Caso::campione(std::span<unsigned char> byte) {
    una(
        racconto_,
        [&] {
            scegli_campione(byte);
            return byte;
        },
        [](Racconto& racconto, std::span<unsigned char> scelti) { racconto.byte(scelti.data(), scelti.size()); });
}
void Caso::testo(char* dove, std::size_t spazio) {
    una(
        racconto_,
        [&] {
            scegli_testo(dove, spazio);
            return dove;
        },
        di_testo);
}
void Caso::unita(kel_funpos fid, char* dove, std::size_t spazio) {
    una(
        racconto_,
        [&] {
            scegli_unita(fid, dove, spazio);
            return dove;
        },
        di_testo);
}
void Caso::tempo(char* dove, std::size_t spazio) {
    una(
        racconto_,
        [&] {
            scegli_tempo(dove, spazio);
            return dove;
        },
        di_testo);
}

std::uint32_t Caso::scegli_grandezze() {
    const std::uint32_t tutti = u32();
    return tutti >> sotto(32);
}

std::uint32_t Caso::scegli_bit_reale() {
    if (uno_su(4))
        return u32();
    // Sign, an exponent round that of 1, any fraction.
    const std::uint32_t resto = u32() & 0x807FFFFFU;
    return resto | (107U + sotto(50)) << 23;
}

kel_funpos Caso::scegli_pacchetto() {
    constexpr kel_funpos noti[] = {0x1A, 0x9A, 0x809A, 0x1009A, 0x11A, 0x19A, 0x819A, 0x1019A, 0x21A};
    return noti[sotto(std::size(noti))];
}

kel_funpos Caso::scegli_sottocampo() {
    const s_sottocampo* tabella = nullptr;
    while (tabella == nullptr) {
        const std::uint32_t dettagli = 1 + sotto(3);
        tabella = search_sottocampi_struct(dettagli, sotto(3));
    }
    std::uint32_t righe = 0;
    while ((tabella[righe].fid & 0x7F) != FINE)
        righe++;
    return tabella[sotto(righe + 1)].fid;
}

kel_funpos Caso::scegli_fid() {
    switch (sotto(8)) {
        case 0:
            return u32();
        case 1:
            return funz_ZumikoCam_base[sotto(std::size(funz_ZumikoCam_base))].fid;
        case 2:
            return funz_ZumikoCam_estese[sotto(std::size(funz_ZumikoCam_estese))].fid;
        case 3:
            return funz_Kel[sotto(std::size(funz_Kel))].fid;
        case 4:
            return pacchetto();
        case 5:
            return sottocampo();
        default: {
            const kel_funpos chiave = uib_grandezza_fisica_uiv[sotto(std::size(uib_grandezza_fisica_uiv))].chiave;
            const kel_funpos lati = uno_su(2) ? u32() & 0x3FF00000U : 0;
            return (chiave & 0x7FFF) | (uno_su(2) ? sotto(32) << 15 : 0) | lati;
        }
    }
}

void Caso::scegli_campione(std::span<unsigned char> byte) {
    const std::uint32_t come = sotto(6);
    for (std::size_t i = 0; i < byte.size(); i++)
        byte[i] = come == 0 ? (i % 2 == 0 ? 0xFF : 0x7F) : come == 1 ? 0 : u8();
    if (come == 1 && !byte.empty()) {
        const std::uint8_t uno = u8();
        byte[sotto(static_cast<std::uint32_t>(byte.size()))] = uno;
    }
    // Numbers that a text shows, in every place where one may lie.
    if (come < 4)
        return;
    for (std::size_t i = 0; i + 4 <= byte.size(); i += 4) {
        const std::uint32_t numero = come == 4 ? bit_reale() : (uno_su(2) ? 0U - grandezze() : grandezze());
        for (std::size_t k = 0; k < 4; k++)
            byte[i + k] = static_cast<unsigned char>(numero >> (8 * k));
    }
}

const char* Caso::testo_di_tabella() {
    switch (sotto(7)) {
        case 0:
            return funz_ZumikoCam_base[sotto(std::size(funz_ZumikoCam_base))].id;
        case 1:
            return funz_ZumikoCam_estese[sotto(std::size(funz_ZumikoCam_estese))].id;
        case 2:
            return funz_Kel[sotto(std::size(funz_Kel))].id;
        case 3:
            return udm_codici[sotto(std::size(udm_codici))].testo;
        case 4:
            return grandezza_fisica_FunzKel[sotto(std::size(grandezza_fisica_FunzKel))].xml;
        case 5:
            return oggetto_misurato_FunzKel[sotto(std::size(oggetto_misurato_FunzKel))].xml;
        default:
            return posizione_FunzKel[sotto(std::size(posizione_FunzKel))].xml;
    }
}

void Caso::scegli_testo(char* dove, std::size_t spazio) {
    if (uno_su(4)) {
        const std::size_t n = sotto(static_cast<std::uint32_t>(spazio));
        for (std::size_t i = 0; i < n; i++)
            dove[i] = static_cast<char>(1 + sotto(255));
        dove[n] = '\0';
        return;
    }
    copia(dove, spazio, testo_di_tabella());
    const std::size_t n = lunghezza(dove);
    if (n != 0 && uno_su(4)) {
        const auto altro = static_cast<char>(' ' + sotto(95));
        dove[sotto(static_cast<std::uint32_t>(n))] = altro;
    }
}

void Caso::scegli_unita(kel_funpos fid, char* dove, std::size_t spazio) {
    const s_grandezza_fisica_uiv* riga = kelFunGetUIVs(uno_su(4) ? this->fid() : fid);
    if (riga == nullptr || riga->num_udm < 1 || uno_su(8))
        return scegli_testo(dove, spazio);
    copia(dove, spazio, riga->udm[sotto(static_cast<std::uint32_t>(riga->num_udm))].dati.udm);
}

void Caso::scegli_tempo(char* dove, std::size_t spazio) {
    constexpr char caratteri[] = "0123456789012345678901234567890123456789:::...  +-\t\nxabe";
    const std::size_t n = sotto(static_cast<std::uint32_t>(spazio));
    for (std::size_t i = 0; i < n; i++)
        dove[i] = caratteri[sotto(sizeof caratteri - 1)];
    // As a time is written.
    if (n >= 8 && uno_su(2)) {
        dove[1] = ':';
        dove[4] = '.';
    }
    dove[n] = '\0';
}

}  // namespace digest
