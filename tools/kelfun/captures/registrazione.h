// A recording: a set of channels, and records that hold one sample of each.
#ifndef KELFUN_CAPTURES_REGISTRAZIONE_H
#define KELFUN_CAPTURES_REGISTRAZIONE_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "kelfunzioni.h"

namespace kel::strumento {

constexpr std::size_t CANALE_BYTE = 112;
constexpr std::size_t CANALI_MASSIMI = 65536;                 ///< a channel's index has 16 bits
constexpr std::size_t RECORD_MASSIMO = std::size_t{1} << 20;  ///< bytes; more is no logger's record

/// Where the samples of a channel set lie.
enum class Disposizione {
    dichiarata,  ///< where each channel record says; the record is as long as their sample buffers together
    compatta     ///< one behind the other in the order of the channels, each as long as its type
};

/// The channel set of a file: records of 112 bytes, little-endian, as they lie in the device's memory.
/// @throws NonTrovato  when they are no such records: one line that names the channel at fault.
std::vector<s_kel_canale> leggiCanali(std::span<const std::uint8_t> byte, Disposizione disposizione);

/// Bytes of one record of samples of a set that `leggiCanali` gave.
std::size_t dimensioneRecord(std::span<const s_kel_canale> canali);

/// A channel's name: the long one, else the short one, else that of its function.
std::string nomeCanale(const s_kel_canale& canale);

/// Time stamp in front of every record of samples.
enum class Orario { nessuno, u32ms, u64us };

/// Bytes of a time stamp.
std::size_t dimensione(Orario orario);

/// Records of samples out of a stream of bytes, in constant memory.
class LettoreRecord {
public:
    /// Fills a buffer, at most so many bytes, and gives how many; 0 at the end of the stream.
    using Fonte = std::function<std::size_t(std::uint8_t*, std::size_t)>;

    /// @param dimensione  bytes of a record without its time stamp, at least 1.
    LettoreRecord(Fonte fonte, std::size_t dimensione, Orario orario);

    /// The next whole record; false at the end of the stream.
    bool prossimo();

    /// The samples of the record now at hand.
    const std::uint8_t* campioni() const;
    /// Its time stamp: milliseconds or microseconds; 0 when there is none. Where a counter of 32 bits has come to its end
    /// it goes on behind it.
    std::uint64_t orario() const { return orario_letto_; }

    std::uint64_t record() const { return record_; }  ///< whole records so far
    std::uint64_t byte() const { return byte_; }      ///< bytes read
    /// At the end: the bytes behind the last whole record.
    std::size_t avanzo() const { return fine_ - inizio_; }

private:
    void leggiOrario();

    Fonte fonte_;
    Orario orario_;
    std::uint64_t orario_letto_ = 0;
    std::size_t passo_;  // bytes of a record with its time stamp
    std::vector<std::uint8_t> buffer_;
    std::size_t corrente_ = 0;
    std::size_t inizio_ = 0;  // what has not been handed out yet
    std::size_t fine_ = 0;
    std::uint64_t record_ = 0;
    std::uint64_t byte_ = 0;
};

}  // namespace kel::strumento

#endif
