// The messages of a u-blox byte stream (UBX protocol), out of whatever else is in it.
//
// A message is B5 62, class, id, length (16 bits, little-endian), payload, two checksum bytes (8-bit Fletcher, RFC 1145,
// over class to the end of the payload). Text of other protocols, lost bytes and damaged messages may stand anywhere
// between: the reader tries every B5 62 and goes on from the byte after it when what follows is no good message, so
// that no good message is lost to a bad one.
#ifndef KEL_REGISTRAZIONI_FLUSSO_UBX_H
#define KEL_REGISTRAZIONI_FLUSSO_UBX_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace kel_registrazioni {

/// What was found in a stream. Every byte of it is counted once: in a message, outside, or in what the end cut off.
struct ConteggiUbx {
    std::uint64_t byte = 0;             ///< bytes read
    std::uint64_t messaggi = 0;         ///< good messages of any kind
    std::uint64_t byte_messaggi = 0;    ///< their bytes, frames included
    std::uint64_t byte_fuori = 0;       ///< bytes that belong to no good message
    std::uint64_t checksum_errati = 0;  ///< sync bytes followed by a whole message whose checksum is wrong
    std::uint64_t byte_troncati = 0;    ///< bytes of a message that the end of the stream cut off
};

struct MessaggioUbx {
    std::uint8_t classe = 0;
    std::uint8_t id = 0;
    std::vector<std::uint8_t> dati;  ///< payload
};

class LettoreUbx {
public:
    /// Fills a buffer, at most so many bytes, and gives how many; 0 at the end of the stream, ANCORA where there is nothing
    /// now and more may come.
    using Fonte = std::function<std::size_t(std::uint8_t*, std::size_t)>;

    static constexpr std::size_t ANCORA = static_cast<std::size_t>(-1);

    explicit LettoreUbx(Fonte fonte);

    /// The next good message; false at the end of the stream, and where its source has nothing now: asked again, it goes on.
    bool prossimo(MessaggioUbx& messaggio);
    /// Behind a message: where its payload begins, bytes from the start of the stream.
    std::uint64_t posto() const { return posto_; }
    /// Bytes that wait for more, to be a message or none.
    std::size_t in_attesa() const { return fine_ - inizio_; }

    const ConteggiUbx& conteggi() const { return conteggi_; }

private:
    bool assicura(std::size_t quanti);
    bool leggi();
    void scarta(std::size_t quanti);
    bool checksum_giusto(std::size_t lunghezza) const;

    Fonte fonte_;
    ConteggiUbx conteggi_;
    bool sospeso_ = false;  // the source has nothing now
    std::uint64_t posto_ = 0;
    bool finito_ = false;     // the source has said that it ended
    std::size_t inizio_ = 0;  // first byte not dealt with yet
    std::size_t fine_ = 0;    // one past the last byte read
    std::vector<std::uint8_t> byte_;
    // Running sums up to each byte, modulo 256: the checksum of any stretch is then a matter of four look-ups, and a
    // stream of nothing but sync bytes takes no longer than any other.
    std::vector<std::uint8_t> somma_;
    std::vector<std::uint8_t> somma_delle_somme_;
};

}  // namespace kel_registrazioni

#endif
