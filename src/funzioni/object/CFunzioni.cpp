#include "CFunzioni.h"

#include <cstring>
#include <stdexcept>

#include "CConverter.h"
#include "object/conversione_testi.h"

IFunzioni::~IFunzioni() = default;

IFunzioni* IFunzioni::CreateMe(s_kel_canale* canali, unsigned int numCanali) {
    return new CFunzioni(canali, numCanali);
}

IFunzioni* IFunzioni::CreateMe() {
    return new CFunzioni;
}

CFunzioni::CFunzioni() : CFunzioni(nullptr, 0) {}

CFunzioni::CFunzioni(s_kel_canale* canali, unsigned int numCanali)
    : set_{canali, numCanali, numCanali},
      cursore_base_(0),
      cursore_estese_(0),
      dimensione_base_(getFunzVisSize()),
      dimensione_estese_(getFunzVisEstSize()) {}

CFunzioni::~CFunzioni() = default;

std::string CFunzioni::ConvertiIn8(const std::string& testo) const {
    return kel::in_8(testo);
}

std::string CFunzioni::ConvertiDa8(const std::string& testo) const {
    return kel::da_8(testo);
}

// --- Channels ------------------------------------------------------------------------------------------------------

namespace {

// A name of a channel record. Its text ends with its field where the caller left no NUL there. Without an array the
// address is one that only the layout implies, and stands for no name. No name is answered as the standard library
// answers a string built from a null pointer.
std::string testo_canale(const s_set_canali& set, const char* testo, std::size_t byte) {
    if (set.canali == nullptr || testo == nullptr)
        throw std::logic_error("basic_string: construction from null is not valid");
    const void* fine = std::memchr(testo, '\0', byte);
    return std::string(testo, fine != nullptr ? static_cast<const char*>(fine) : testo + byte);
}

}  // namespace

std::string CFunzioni::getNomeCanale(unsigned int indice) {
    return ConvertiDa8(testo_canale(set_, kelFunGetNomeCanale(&set_, indice), sizeof(s_kel_canale::nome)));
}

std::string CFunzioni::getNomeCanaleShort(unsigned int indice) {
    return ConvertiDa8(testo_canale(set_, kelFunGetNomeCanaleShort(&set_, indice), sizeof(s_kel_canale::breve)));
}

unsigned int CFunzioni::getSizeBufferValori() {
    return kelFunGetSizeBufferValori(&set_);
}

unsigned int CFunzioni::getNumChUsed() {
    return kelFunGetNumChUsed(&set_);
}

s_kel_canale* CFunzioni::getFreeCh() {
    return kelFunGetFreeCh(&set_);
}

s_kel_canale* CFunzioni::getCanale(unsigned int indice) {
    return kelFunGetCanale(&set_, indice);
}

s_kel_canale* CFunzioni::getMatchCh(kel_funpos fid) {
    return kelFunGetMatchCh(&set_, fid);
}

// --- Units, decimals and conversions -------------------------------------------------------------------------------

std::string CFunzioni::getUnitaBase(kel_funpos fid) const {
    return ConvertiDa8(kelFunGetUnitaBase(fid));
}

void CFunzioni::getFunzUIVs(kel_funpos fid, std::list<std::string>& unita) const {
    unita.clear();
    const s_grandezza_fisica_uiv* grandezza = kelFunGetUIVs(fid);
    if (grandezza == nullptr)
        return;
    for (int i = 0; i < grandezza->num_udm; ++i)
        unita.push_back(ConvertiDa8(grandezza->udm[i].dati.udm));
}

// The decimals' unit texts do not pass through the character conversion, unlike those of the conversions below.
int CFunzioni::getNumDecimaliDefault(kel_funpos fid, const std::string& udm) const {
    return kelFunGetNumDecimaliDefault(fid, udm.c_str());
}

int CFunzioni::getNumDecimaliMax(kel_funpos fid, const std::string& udm) const {
    return kelFunGetNumDecimaliMax(fid, udm.c_str());
}

int CFunzioni::getNumDecimaliMin(kel_funpos fid, const std::string& udm) const {
    return kelFunGetNumDecimaliMin(fid, udm.c_str());
}

const s_converter_data* CFunzioni::getParamConv(kel_funpos fid, const std::string& udm) const {
    return kelFunGetConvData(fid, ConvertiIn8(udm).c_str());
}

s_converter_data CFunzioni::getParamConv(kel_funpos fid, const std::string& udmDa, const std::string& udmA) const {
    return kelFunGetConvDatas(fid, ConvertiIn8(udmDa).c_str(), ConvertiIn8(udmA).c_str());
}

int CFunzioni::getFormati(kel_funpos, unsigned int*) {
    return 0;
}

// --- Converters ----------------------------------------------------------------------------------------------------

void CFunzioni::getAllInnerFunpos(kel_funpos fid, std::list<kel_funpos>& interni) {
    CConverter::getAllInnerFunpos(fid, interni);
}

IConverter* CFunzioni::CreateConverter(const s_kel_canale* ch, kel_funpos fid, const std::string& udm,
                                       bool sampleAtStart, unsigned int numDec, eFormatoConv format,
                                       unsigned int width) {
    const s_converter_data* dati = kelFunGetConvData(fid, ConvertiIn8(udm).c_str());
    return new CConverter(ch, fid, dati, sampleAtStart, numDec, format, width);
}
