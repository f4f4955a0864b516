// A signed 16-bit sample to a value in a unit.
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>

#ifdef KEL_PARI_UDUNITS2
#include <udunits2.h>
#endif
#ifdef KEL_PARI_LIBSIGROK
#include <libsigrok/libsigrok.h>
#endif
#ifdef KEL_PARI_LIBIIO
#include <iio.h>
#endif

#include "comune/convertitore.h"
#include "comune/prova.h"
#include "righe.h"

using namespace prova;

namespace {

// The eight bytes of a CAN frame; the signal is the second 16-bit word.
using Frame = std::array<unsigned char, 8>;

constexpr std::size_t POSTO = 2;
constexpr float GAIN = 1.8f;
constexpr float OFFSET = 32.0f;
constexpr const char* RIGA = "int16 to value";

std::int16_t grezzo(const Frame& frame) {
    std::int16_t valore = 0;
    std::memcpy(&valore, frame.data() + POSTO, sizeof valore);
    return valore;
}

// A decoder as CAN libraries have it: one function for any signal, described by a record.
struct Segnale {
    unsigned primo_bit;
    unsigned numero_bit;
    bool con_segno;
    bool big_endian;
    double fattore;
    double base;
};

__attribute__((noinline)) double decodifica(const Segnale& segnale, const unsigned char* frame) {
    std::uint64_t parola = 0;
    std::memcpy(&parola, frame, sizeof parola);
    if (segnale.big_endian)
        parola = __builtin_bswap64(parola);
    const unsigned vuoti = 64 - segnale.numero_bit;
    parola = parola >> segnale.primo_bit << vuoti;
    const double numero = segnale.con_segno ? static_cast<double>(static_cast<std::int64_t>(parola) >> vuoti)
                                            : static_cast<double>(parola >> vuoti);
    return numero * segnale.fattore + segnale.base;
}

void decodificatore_can(const Ingressi<Frame>& frame) {
    static const Segnale segnale = {8 * POSTO, 16, true, false, 1.8, 32.0};
    double (*volatile funzione)(const Segnale&, const unsigned char*) = decodifica;
    serie(RIGA, Ruolo::pari, "CAN decoder", frame, [funzione = funzione](const Frame& ingresso) {
        return static_cast<float>(funzione(segnale, ingresso.data()));
    });
}

#ifdef KEL_PARI_UDUNITS2
void con_udunits2(const Ingressi<Frame>& frame) {
    ut_set_error_message_handler(ut_ignore);
    ut_system* const sistema = ut_read_xml(nullptr);
    ut_unit* const da = ut_parse(sistema, "degC", UT_ASCII);
    ut_unit* const a = ut_parse(sistema, "degF", UT_ASCII);
    const std::shared_ptr<cv_converter> conversione(ut_get_converter(da, a), cv_free);
    ut_free(da);
    ut_free(a);
    ut_free_system(sistema);
    serie(RIGA, Ruolo::pari, "udunits2", frame, [conversione](const Frame& ingresso) {
        return cv_convert_float(conversione.get(), static_cast<float>(grezzo(ingresso)));
    });
}
#endif

#ifdef KEL_PARI_LIBSIGROK
void con_libsigrok(const Ingressi<Frame>& frame) {
    static sr_analog_encoding codifica = {};
    codifica.unitsize = 2;
    codifica.is_signed = TRUE;
    codifica.scale = {18, 10};
    codifica.offset = {32, 1};
    static sr_channel canale = {};
    static GSList canali = {&canale, nullptr};
    static sr_analog_meaning significato = {};
    significato.channels = &canali;
    serie(RIGA, Ruolo::pari, "libsigrok", frame, [](const Frame& ingresso) {
        sr_datafeed_analog analogico = {};
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the peer reads from a pointer to variables
        analogico.data = const_cast<unsigned char*>(ingresso.data()) + POSTO;
        analogico.num_samples = 1;
        analogico.encoding = &codifica;
        analogico.meaning = &significato;
        float valore = 0.0f;
        sr_analog_to_float(&analogico, &valore);
        return valore;
    });
}
#endif

#ifdef KEL_PARI_LIBIIO
void con_libiio(const Ingressi<Frame>& frame) {
    static const std::string dispositivo =
        R"(<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE context [<!ELEMENT context (device)*><!ELEMENT device (channel)*><!ELEMENT channel (scan-element?)>
<!ELEMENT scan-element EMPTY><!ATTLIST context name CDATA #REQUIRED><!ATTLIST device id CDATA #REQUIRED>
<!ATTLIST channel id CDATA #REQUIRED type (input|output) #REQUIRED>
<!ATTLIST scan-element index CDATA #REQUIRED format CDATA #REQUIRED scale CDATA #IMPLIED>]>
<context name="bench"><device id="iio:device0"><channel id="temp0" type="input">
<scan-element index="0" format="le:S16/16&gt;&gt;0" scale="1.8" /></channel></device></context>)";
    const std::shared_ptr<iio_context> contesto(iio_create_xml_context_mem(dispositivo.data(), dispositivo.size()),
                                                iio_context_destroy);
    if (contesto == nullptr)
        return;
    const iio_channel* const canale = iio_device_get_channel(iio_context_get_device(contesto.get(), 0), 0);
    const double scala = iio_channel_get_data_format(canale)->scale;
    serie(RIGA, Ruolo::pari, "libiio", frame, [contesto, canale, scala](const Frame& ingresso) {
        std::int16_t campione = 0;
        iio_channel_convert(canale, &campione, ingresso.data() + POSTO);
        return static_cast<float>(campione * scala + 32.0);
    });
}
#endif

}  // namespace

void righe_valore() {
    const auto frame = genera([](Casuale& casuale) {
        Frame fatto;
        for (unsigned char& byte : fatto)
            byte = static_cast<unsigned char>(sotto(casuale, 256));
        // The values from 32765 on are reserved.
        const auto campione = static_cast<std::int16_t>(static_cast<int>(sotto(casuale, 60000)) - 30000);
        std::memcpy(fatto.data() + POSTO, &campione, sizeof campione);
        return fatto;
    });
    s_kel_canale canale = {};
    canale.fid = 0x1091;
    canale.tipo_campione = KEL_TIPO_INT16;
    canale.offset_campione = POSTO;
    s_kel_converter conv = {};
    kelConvInit(&conv, &canale, canale.fid, kelFunGetConvData(canale.fid, "F"), 0, 0, 0);
    const auto nostro = [conv](const Frame& ingresso) {
        float valore = 0.0f;
        kelConvGetValFloat(&conv, ingresso.data(), &valore);
        return valore;
    };
    const auto limite = [](const Frame& ingresso) { return static_cast<float>(grezzo(ingresso)) * GAIN + OFFSET; };
    concordi(RIGA, frame, nostro, limite);
    serie(RIGA, Ruolo::nostro, "kelConvGetValFloat", frame, nostro);
    serie(RIGA, Ruolo::limite, "inlined", frame, limite);
    decodificatore_can(frame);
#ifdef KEL_PARI_UDUNITS2
    con_udunits2(frame);
#endif
#ifdef KEL_PARI_LIBSIGROK
    con_libsigrok(frame);
#endif
#ifdef KEL_PARI_LIBIIO
    con_libiio(frame);
#endif
}
