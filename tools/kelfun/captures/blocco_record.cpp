#include "captures/blocco_record.h"

#include <algorithm>
#include <utility>

#include "text/errori.h"

namespace kel::strumento {

namespace {

constexpr std::size_t TESTO = 32;
constexpr std::size_t MEMORIA = std::size_t{1} << 19;  // bytes of all columns together
constexpr std::size_t RIGHE_MINIME = 8;
constexpr std::size_t RIGHE_MASSIME = 1024;

std::size_t righe_in_memoria(const std::vector<VoceBlocco>& voci) {
    std::size_t byte = sizeof(double);
    for (const VoceBlocco& voce : voci)
        byte += sizeof(double) + (voce.testi ? TESTO : 0);
    return std::clamp(MEMORIA / byte, RIGHE_MINIME, RIGHE_MASSIME);
}

}  // namespace

void* BloccoRecord::Memoria::valori(eKelValori quali) {
    switch (quali) {
        case KEL_VALORI_FLOAT:
            return corti.data();
        case KEL_VALORI_DOUBLE:
            return lunghi.data();
        case KEL_VALORI_UINT32:
            return interi.data();
        case KEL_VALORI_ISTANTE:
            return istanti.data();
        case KEL_VALORI_NESSUNO:
            break;
    }
    return nullptr;
}

BloccoRecord::BloccoRecord(const Registrazione& reg, std::vector<VoceBlocco> voci)
    : reg_(reg.reg()),
      voci_(std::move(voci)),
      capienza_(righe_in_memoria(voci_)),
      memorie_(voci_.size()),
      tempi_(capienza_) {
    for (std::size_t i = 0; i < voci_.size(); ++i) {
        const VoceBlocco& voce = voci_[i];
        Memoria& sua = memorie_[i];
        sua.corti.resize(voce.valori == KEL_VALORI_FLOAT ? capienza_ : 0);
        sua.lunghi.resize(voce.valori == KEL_VALORI_DOUBLE ? capienza_ : 0);
        sua.interi.resize(voce.valori == KEL_VALORI_UINT32 ? capienza_ : 0);
        sua.istanti.resize(voce.valori == KEL_VALORI_ISTANTE ? capienza_ : 0);
        sua.validi.resize((capienza_ + 7) / 8);
        sua.testi.resize(voce.testi ? capienza_ * TESTO : 0);
        letture_.push_back(
            {voce.quale, sua.valori(voce.valori), sua.validi.data(), voce.testi ? sua.testi.data() : nullptr});
    }
}

void BloccoRecord::leggi(std::uint64_t da, std::size_t quante) {
    if (kelRegLeggi(reg_, da, quante, letture_.data(), static_cast<unsigned>(letture_.size())) == 0)
        throw NonTrovato("out of memory");
    con_tempi_ = kelRegTempi(reg_, da, quante, tempi_.data()) != 0;
    prima_ = da;
    righe_ = quante;
}

std::optional<double> BloccoRecord::valore(std::size_t voce, std::size_t riga) const {
    if (voci_[voce].valori == KEL_VALORI_NESSUNO || !valido(voce, riga))
        return std::nullopt;
    const Memoria& sua = memorie_[voce];
    switch (voci_[voce].valori) {
        case KEL_VALORI_FLOAT:
            return static_cast<double>(sua.corti[riga]);
        case KEL_VALORI_DOUBLE:
            return sua.lunghi[riga];
        case KEL_VALORI_UINT32:
            return sua.interi[riga];
        default:
            return std::nullopt;
    }
}

std::string_view BloccoRecord::testo(std::size_t voce, std::size_t riga) const {
    const char* suo = memorie_[voce].testi.data() + riga * TESTO;
    return {suo, static_cast<std::size_t>(std::find(suo, suo + TESTO, '\0') - suo)};
}

}  // namespace kel::strumento
