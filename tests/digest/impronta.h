// A digest of results: 128 bits, the same on every machine for the same results. Contents alone take part, no addresses.
#ifndef KEL_DIGEST_IMPRONTA_H
#define KEL_DIGEST_IMPRONTA_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "kelfunzioni.h"
#include "racconto.h"

#if defined(__has_feature)
#if __has_feature(memory_sanitizer)
#include <sanitizer/msan_interface.h>
#define KEL_CON_MSAN 1
#endif
#endif

namespace digest {

class Impronta {
public:
    explicit Impronta(Racconto* racconto = nullptr) : racconto_(racconto) {}

    void numero(std::uint64_t valore) {
        if (racconto_ != nullptr)
            racconto_->numero(valore);
        entra(valore);
    }
    void segno(std::int64_t valore) {
        if (racconto_ != nullptr)
            racconto_->segno(valore);
        entra(static_cast<std::uint64_t>(valore));
    }

    // All NaNs count as one: which of them an operation gives is the processor's choice.
    void reale(float valore) {
        if (racconto_ != nullptr)
            racconto_->reale(valore);
        entra(valore == valore ? std::bit_cast<std::uint32_t>(valore) : 0x7FC00000U);
    }

    void byte(const void* dove, std::size_t quanti) {
        if (racconto_ != nullptr)
            racconto_->byte(dove, quanti);
        entrano(dove, quanti);
    }
    void testo(std::string_view testo) {
        if (racconto_ != nullptr)
            racconto_->testo(testo);
        entrano(testo.data(), testo.size());
    }
    // Null is not the same as "".
    void testo(const char* testo) {
        entra(testo == nullptr ? 0 : 1);
        if (testo != nullptr)
            this->testo(std::string_view(testo));
        else if (racconto_ != nullptr)
            racconto_->voce("null");
    }

    // Rows of tables by what they hold.
    void riga(const s_converter_data* riga);
    void riga(const s_grandezza_fisica_uiv* riga);
    void riga(const s_sottocampo* riga);
    void riga(const t_SFunzioneZumikoCam* riga);
    // All rows of a table of subfields, the end row included.
    void sottocampi(const s_sottocampo* tabella);

    std::uint64_t alto() const { return alto_; }
    std::uint64_t basso() const { return basso_; }

private:
    void entra(std::uint64_t valore) {
#ifdef KEL_CON_MSAN
        __msan_check_mem_is_initialized(&valore, sizeof valore);
#endif
        // Multiplications by odd constants (those of xxHash), in two lanes that nothing joins.
        alto_ = mescola(alto_ ^ valore, 0x9E3779B185EBCA87U);
        basso_ = mescola(basso_ + valore, 0xC2B2AE3D27D4EB4FU);
    }

    void entrano(const void* dove, std::size_t quanti) {
        entra(quanti);
        const auto* uno = static_cast<const unsigned char*>(dove);
        while (quanti > 0) {
            const std::size_t ora = quanti < 8 ? quanti : 8;
            std::uint64_t parola = 0;
            for (std::size_t i = 0; i < ora; i++)
                parola |= std::uint64_t{uno[i]} << (8 * i);
            entra(parola);
            uno += ora;
            quanti -= ora;
        }
    }

    static std::uint64_t mescola(std::uint64_t stato, std::uint64_t fattore) {
        stato *= fattore;
        return stato ^ stato >> 29;
    }

    std::uint64_t alto_ = 0x27D4EB2F165667C5U;
    std::uint64_t basso_ = 0x165667B19E3779F9U;
    Racconto* racconto_;
};

}  // namespace digest

#endif
