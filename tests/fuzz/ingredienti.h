// Takes an input apart: numbers, choices and texts from its front, 0 when it has run out.
#ifndef KEL_FUZZ_INGREDIENTI_H
#define KEL_FUZZ_INGREDIENTI_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string>

namespace fuzz {

class Ingredienti {
public:
    Ingredienti(const std::uint8_t* byte, std::size_t quanti) : resto_(byte, quanti) {}

    bool finiti() const { return resto_.empty(); }

    std::uint8_t u8() {
        if (resto_.empty())
            return 0;
        const std::uint8_t byte = resto_.front();
        resto_ = resto_.subspan(1);
        return byte;
    }
    std::uint16_t u16() {
        const unsigned basso = u8();
        return static_cast<std::uint16_t>(basso | static_cast<unsigned>(u8()) << 8);
    }
    std::uint32_t u32() {
        const std::uint32_t basso = u16();
        return basso | static_cast<std::uint32_t>(u16()) << 16;
    }
    float reale() { return std::bit_cast<float>(u32()); }

    // One of `quanti` things, at most 256.
    std::size_t scelta(std::size_t quanti) { return u8() % quanti; }

    // At most so many bytes.
    std::span<const std::uint8_t> byte(std::size_t quanti) {
        const auto presi = resto_.first(std::min(quanti, resto_.size()));
        resto_ = resto_.subspan(presi.size());
        return presi;
    }
    std::span<const std::uint8_t> resto() { return byte(resto_.size()); }

    // A text with its length in front; it may hold NULs.
    std::string testo() {
        const auto presi = byte(u8());
        return {presi.begin(), presi.end()};
    }

private:
    std::span<const std::uint8_t> resto_;
};

// A text as a caller of the flat face has it, in a block of exactly its size: a read past its NUL is noticed.
class TestoEsatto {
public:
    explicit TestoEsatto(const std::string& testo)
        : lungo_(std::strlen(testo.c_str())), blocco_(std::make_unique<char[]>(lungo_ + 1)) {
        std::copy_n(testo.c_str(), lungo_ + 1, blocco_.get());
    }
    const char* c_str() const { return blocco_.get(); }
    std::string str() const { return {blocco_.get(), lungo_}; }

private:
    std::size_t lungo_;
    std::unique_ptr<char[]> blocco_;
};

}  // namespace fuzz

#endif
