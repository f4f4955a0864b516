// Records of samples out of a stream, each behind its time stamp.
#ifndef KEL_REGISTRAZIONI_LETTORE_RECORD_H
#define KEL_REGISTRAZIONI_LETTORE_RECORD_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace kel_registrazioni {

/// Time stamp in front of every record of samples.
enum class Orario { nessuno, u32ms, u64us };

/// Bytes of a time stamp.
std::size_t byte_orario(Orario orario);

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
    void leggi_orario();

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

}  // namespace kel_registrazioni

#endif
