#include "recordings/lettore_record.h"

#include <algorithm>
#include <span>
#include <utility>

#include "common/interi.h"

namespace kel_registrazioni {

namespace {

constexpr std::size_t BUFFER = 65536;
constexpr std::uint32_t ORA_MS = 3600000;

}  // namespace

std::size_t byte_orario(Orario orario) {
    return orario == Orario::u32ms ? 4 : orario == Orario::u64us ? 8 : 0;
}

LettoreRecord::LettoreRecord(Fonte fonte, std::size_t dimensione, Orario orario)
    : fonte_(std::move(fonte)),
      orario_(orario),
      passo_(dimensione + byte_orario(orario)),
      buffer_(std::max(BUFFER, passo_)) {}

bool LettoreRecord::prossimo() {
    while (fine_ - inizio_ < passo_) {
        // What is left goes to the front: less than a record, once in a buffer's length.
        std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(inizio_),
                  buffer_.begin() + static_cast<std::ptrdiff_t>(fine_), buffer_.begin());
        fine_ -= std::exchange(inizio_, 0);
        const std::size_t letti = fonte_(buffer_.data() + fine_, buffer_.size() - fine_);
        if (letti == 0)
            return false;
        fine_ += letti;
        byte_ += letti;
    }
    corrente_ = inizio_;
    inizio_ += passo_;
    ++record_;
    leggi_orario();
    return true;
}

const std::uint8_t* LettoreRecord::campioni() const {
    return buffer_.data() + corrente_ + byte_orario(orario_);
}

void LettoreRecord::leggi_orario() {
    const auto byte = std::span<const std::uint8_t>(buffer_).subspan(corrente_);
    if (orario_ == Orario::u64us)
        orario_letto_ = intero<std::uint64_t>(byte, 0);
    if (orario_ != Orario::u32ms)
        return;
    const auto nuovo = intero<std::uint32_t>(byte, 0);
    const auto prima = static_cast<std::uint32_t>(orario_letto_);
    const std::uint64_t giri = record_ > 1 ? orario_letto_ >> 32 : 0;
    // Within an hour over the end: the counter began anew, no other session.
    const bool oltre = record_ > 1 && nuovo < prima && nuovo - prima <= ORA_MS;
    orario_letto_ = (giri + (oltre ? 1 : 0)) << 32 | nuovo;
}

}  // namespace kel_registrazioni
