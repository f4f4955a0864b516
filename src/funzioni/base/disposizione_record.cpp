// The byte layout of the records, proved. Programs are compiled against it, so no byte may move.
#include <bit>
#include <cstddef>

#include "kelfunzioni.h"

namespace {

// Where pointers are 32 bits wide, as on the device, every byte is fixed; elsewhere only the order of the members is.
constexpr bool PUNTATORI_LARGHI = sizeof(void*) != 4;

template <typename Record>
constexpr bool byte_sul_dispositivo(std::size_t byte) {
    return PUNTATORI_LARGHI || (sizeof(Record) == byte && alignof(Record) == 4);
}

constexpr bool sul_dispositivo(std::size_t offset, std::size_t atteso) {
    return PUNTATORI_LARGHI || offset == atteso;
}

}  // namespace

static_assert(std::endian::native == std::endian::little,
              "channel records and samples are little-endian, read in place");
static_assert(sizeof(kel_funpos) == 4 && sizeof(float) == 4 && sizeof(unsigned) == 4 && sizeof(unsigned short) == 2,
              "arguments and results of the flat functions are 32 bits wide");
static_assert(sizeof(eFormatoConv) == 4 && sizeof(GRANDEZZA_FISICA_FUNZKEL) == 4 &&
                  sizeof(OGGETTO_MISURATO_FUNZKEL) == 4 && sizeof(POSIZIONE_FUNZKEL) == 4,
              "enumerations are 32 bits wide");

// The channel record: the same 112 bytes everywhere.
static_assert(sizeof(s_kel_canale) == 112 && alignof(s_kel_canale) == 1, "programs keep arrays of these");
static_assert(offsetof(s_kel_canale, indice) == 0, "fixed byte");
static_assert(offsetof(s_kel_canale, riservato1) == 2, "fixed byte");
static_assert(offsetof(s_kel_canale, fid) == 12, "fixed byte");
static_assert(offsetof(s_kel_canale, riservato2) == 16, "fixed byte");
static_assert(offsetof(s_kel_canale, tipo_campione) == 20, "fixed byte");
static_assert(offsetof(s_kel_canale, breve) == 24, "fixed byte");
static_assert(offsetof(s_kel_canale, nome) == 32, "fixed byte");
static_assert(offsetof(s_kel_canale, offset_campione) == 68, "fixed byte");
static_assert(offsetof(s_kel_canale, dim_buffer) == 72, "fixed byte");
static_assert(offsetof(s_kel_canale, riservato3) == 76, "fixed byte");

static_assert(sizeof(s_nome_breve) == 32 && alignof(s_nome_breve) == 1, "short names are 32 characters by value");

static_assert(byte_sul_dispositivo<s_campo_fid>(16), "device layout");
static_assert(sul_dispositivo(offsetof(s_campo_fid, xml), 4), "device layout");
static_assert(sul_dispositivo(offsetof(s_campo_fid, breve), 8), "device layout");
static_assert(sul_dispositivo(offsetof(s_campo_fid, testo), 12), "device layout");

static_assert(byte_sul_dispositivo<s_scelta_fid>(12), "device layout");
static_assert(sul_dispositivo(offsetof(s_scelta_fid, breve), 4), "device layout");
static_assert(sul_dispositivo(offsetof(s_scelta_fid, testo), 8), "device layout");

static_assert(byte_sul_dispositivo<s_variante_posizione>(36), "device layout");
static_assert(sul_dispositivo(offsetof(s_variante_posizione, breve), 4), "device layout");
static_assert(sul_dispositivo(offsetof(s_variante_posizione, testo), 8), "device layout");
static_assert(sul_dispositivo(offsetof(s_variante_posizione, num_inout), 12), "device layout");
static_assert(sul_dispositivo(offsetof(s_variante_posizione, inout), 16), "device layout");
static_assert(sul_dispositivo(offsetof(s_variante_posizione, primo), 20), "device layout");
static_assert(sul_dispositivo(offsetof(s_variante_posizione, ultimo), 24), "device layout");
static_assert(sul_dispositivo(offsetof(s_variante_posizione, num_lati), 28), "device layout");
static_assert(sul_dispositivo(offsetof(s_variante_posizione, lati), 32), "device layout");

static_assert(byte_sul_dispositivo<s_converter_data>(16), "device layout");
static_assert(sul_dispositivo(offsetof(s_converter_data, offset), 4), "device layout");
static_assert(sul_dispositivo(offsetof(s_converter_data, gain), 8), "device layout");
static_assert(sul_dispositivo(offsetof(s_converter_data, reciproco), 12), "device layout");

static_assert(byte_sul_dispositivo<s_udm_associata>(28), "device layout");
static_assert(offsetof(s_udm_associata, dati) == 0, "a unit row is read as its conversion data");
static_assert(sul_dispositivo(offsetof(s_udm_associata, decimali_default), 16), "device layout");
static_assert(sul_dispositivo(offsetof(s_udm_associata, decimali_max), 20), "device layout");
static_assert(sul_dispositivo(offsetof(s_udm_associata, decimali_min), 24), "device layout");

static_assert(byte_sul_dispositivo<s_grandezza_fisica_uiv>(28), "device layout");
static_assert(sul_dispositivo(offsetof(s_grandezza_fisica_uiv, breve), 4), "device layout");
static_assert(sul_dispositivo(offsetof(s_grandezza_fisica_uiv, testo), 8), "device layout");
static_assert(sul_dispositivo(offsetof(s_grandezza_fisica_uiv, num_udm), 12), "device layout");
static_assert(sul_dispositivo(offsetof(s_grandezza_fisica_uiv, udm), 16), "device layout");
static_assert(sul_dispositivo(offsetof(s_grandezza_fisica_uiv, num_varianti), 20), "device layout");
static_assert(sul_dispositivo(offsetof(s_grandezza_fisica_uiv, varianti), 24), "device layout");

static_assert(byte_sul_dispositivo<s_codice_udm>(8), "device layout");
static_assert(sul_dispositivo(offsetof(s_codice_udm, codice), 4), "device layout");

static_assert(byte_sul_dispositivo<s_set_canali>(12), "device layout");
static_assert(sul_dispositivo(offsetof(s_set_canali, totale), 4), "device layout");
static_assert(sul_dispositivo(offsetof(s_set_canali, usati), 8), "device layout");

static_assert(byte_sul_dispositivo<s_kel_converter>(44), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, pos_bit), 4), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, num_bit), 6), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, maschera), 8), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, dati), 12), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, larghezza), 16), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, decimali), 20), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, auto_decimali), 24), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, formato), 28), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, valore), 32), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, testo), 36), "device layout");
static_assert(sul_dispositivo(offsetof(s_kel_converter, testo_stato), 40), "device layout");

static_assert(byte_sul_dispositivo<s_sottocampo>(40), "device layout");
static_assert(sul_dispositivo(offsetof(s_sottocampo, offset), 4), "device layout");
static_assert(sul_dispositivo(offsetof(s_sottocampo, pos_bit), 8), "device layout");
static_assert(sul_dispositivo(offsetof(s_sottocampo, num_bit), 10), "device layout");
static_assert(sul_dispositivo(offsetof(s_sottocampo, maschera), 12), "device layout");
static_assert(sul_dispositivo(offsetof(s_sottocampo, tipo_campione), 16), "device layout");
static_assert(sul_dispositivo(offsetof(s_sottocampo, valore), 20), "device layout");
static_assert(sul_dispositivo(offsetof(s_sottocampo, valore_reciproco), 24), "device layout");
static_assert(sul_dispositivo(offsetof(s_sottocampo, conv_testo), 28), "device layout");
static_assert(sul_dispositivo(offsetof(s_sottocampo, breve), 32), "device layout");
static_assert(sul_dispositivo(offsetof(s_sottocampo, testo), 36), "device layout");

static_assert(byte_sul_dispositivo<t_SFunzioneZumikoCam>(36), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneZumikoCam, udm), 4), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneZumikoCam, scala), 8), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneZumikoCam, codice), 12), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneZumikoCam, fattore), 16), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneZumikoCam, breve), 20), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneZumikoCam, testo), 24), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneZumikoCam, id), 28), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneZumikoCam, tipo_campione), 32), "device layout");

static_assert(byte_sul_dispositivo<t_SFunzioneVecchia>(16), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneVecchia, testo), 4), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneVecchia, id), 8), "device layout");
static_assert(sul_dispositivo(offsetof(t_SFunzioneVecchia, fid), 12), "device layout");
