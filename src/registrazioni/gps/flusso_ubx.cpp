#include "gps/flusso_ubx.h"

#include <algorithm>
#include <cstring>

namespace kel_registrazioni {

namespace {

constexpr std::uint8_t SYNC_1 = 0xB5;
constexpr std::uint8_t SYNC_2 = 0x62;
constexpr std::size_t TESTATA = 6;  // sync, class, id, length
constexpr std::size_t CODA = 2;     // checksum
constexpr std::size_t MESSAGGIO_MASSIMO = TESTATA + 0xFFFF + CODA;
constexpr std::size_t CAPIENZA = 2 * MESSAGGIO_MASSIMO;  // so that a move happens at most once a message length

}  // namespace

LettoreUbx::LettoreUbx(Fonte fonte)
    : fonte_(std::move(fonte)), byte_(CAPIENZA), somma_(CAPIENZA + 1), somma_delle_somme_(CAPIENZA + 1) {}

// Makes `quanti` bytes available from inizio_ on; false when the stream ends before.
bool LettoreUbx::assicura(std::size_t quanti) {
    while (fine_ - inizio_ < quanti)
        if (!leggi())
            return false;
    return true;
}

bool LettoreUbx::leggi() {
    if (finito_)
        return false;
    if (CAPIENZA - inizio_ < MESSAGGIO_MASSIMO) {
        std::memmove(byte_.data(), byte_.data() + inizio_, fine_ - inizio_);
        std::memmove(somma_.data(), somma_.data() + inizio_, fine_ - inizio_ + 1);
        std::memmove(somma_delle_somme_.data(), somma_delle_somme_.data() + inizio_, fine_ - inizio_ + 1);
        fine_ -= inizio_;
        inizio_ = 0;
    }
    const std::size_t letti = fonte_(byte_.data() + fine_, CAPIENZA - fine_);
    sospeso_ = letti == ANCORA;
    if (sospeso_)
        return false;
    finito_ = letti == 0;
    conteggi_.byte += letti;
    for (std::size_t i = fine_; i < fine_ + letti; ++i) {
        somma_[i + 1] = static_cast<std::uint8_t>(somma_[i] + byte_[i]);
        somma_delle_somme_[i + 1] = static_cast<std::uint8_t>(somma_delle_somme_[i] + somma_[i + 1]);
    }
    fine_ += letti;
    return !finito_;
}

void LettoreUbx::scarta(std::size_t quanti) {
    inizio_ += quanti;
    conteggi_.byte_fuori += quanti;
}

// A = sum of the bytes, B = sum of the values that A takes. With S the running sum from the start of the buffer, A after
// byte k is S(k) - S(0), so that B is the difference of the sums of S less n times S(0).
bool LettoreUbx::checksum_giusto(std::size_t lunghezza) const {
    const std::size_t da = inizio_ + 2;
    const std::size_t a = inizio_ + TESTATA + lunghezza;
    const auto somma = static_cast<std::uint8_t>(somma_[a] - somma_[da]);
    const auto delle_somme =
        static_cast<std::uint8_t>(somma_delle_somme_[a] - somma_delle_somme_[da] - (a - da) * somma_[da]);
    return byte_[a] == somma && byte_[a + 1] == delle_somme;
}

bool LettoreUbx::prossimo(MessaggioUbx& messaggio) {
    sospeso_ = false;
    std::uint64_t troncati_da = 0;  // length of the stream from the first message that its end cut off
    for (;;) {
        // To the next sync byte.
        if (inizio_ == fine_ && !leggi()) {
            if (sospeso_)
                return false;
            break;
        }
        const auto* da = byte_.data() + inizio_;
        const auto* sync = std::find(da, static_cast<const std::uint8_t*>(byte_.data() + fine_), SYNC_1);
        scarta(static_cast<std::size_t>(sync - da));
        if (inizio_ == fine_)
            continue;
        const bool testata = assicura(TESTATA);
        if (sospeso_)
            return false;
        if (fine_ - inizio_ >= 2 && byte_[inizio_ + 1] != SYNC_2) {
            scarta(1);
            continue;
        }
        const std::size_t lunghezza = testata ? byte_[inizio_ + 4] + 256u * byte_[inizio_ + 5] : 0;
        const bool intero = testata && assicura(TESTATA + lunghezza + CODA);
        if (sospeso_)
            return false;
        if (!intero) {
            // Cut off by the end; but a good message may yet stand in what looked like its payload.
            troncati_da = std::max<std::uint64_t>(troncati_da, fine_ - inizio_);
            scarta(1);
            continue;
        }
        if (!checksum_giusto(lunghezza)) {
            ++conteggi_.checksum_errati;
            scarta(1);
            continue;
        }
        const auto* dati = byte_.data() + inizio_ + TESTATA;
        messaggio.classe = byte_[inizio_ + 2];
        messaggio.id = byte_[inizio_ + 3];
        messaggio.dati.assign(dati, dati + lunghezza);
        posto_ = conteggi_.byte - (fine_ - inizio_) + TESTATA;
        inizio_ += TESTATA + lunghezza + CODA;
        ++conteggi_.messaggi;
        conteggi_.byte_messaggi += TESTATA + lunghezza + CODA;
        return true;
    }
    // No good message followed: what began the cut-off message was outside no longer.
    conteggi_.byte_troncati = troncati_da;
    conteggi_.byte_fuori -= troncati_da;
    return false;
}

}  // namespace kel_registrazioni
