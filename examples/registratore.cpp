// A recorder: writes a channel set and a few records of samples into two files, reads them back, and shows them.
//
//     registratore [CHANNELS SAMPLES]
//
// The first file holds the channel records as they are in memory, 112 bytes each. The second holds the records of samples,
// one after the other; the channel set tells how many bytes each has. To read the samples a program needs only the first
// file. "kelfun record CHANNELS SAMPLES" shows the two as a table.
#include <IFunzioni.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

// --- Writing --------------------------------------------------------------------------------------------------------

// Writes a little-endian integer into a record. Samples may lie at any address.
template <typename Intero>
void scrivi(std::string& record, std::size_t dove, Intero valore) {
    for (std::size_t i = 0; i < sizeof valore; ++i)
        record[dove + i] = static_cast<char>(static_cast<std::uint64_t>(valore) >> 8 * i & 0xFF);
}

// Adds a channel after the others, with its sample after theirs.
const s_kel_canale& aggiungi(s_set_canali& set, kel_funpos fid, std::uint32_t tipo, const char* breve,
                             const char* nome) {
    const std::uint32_t offset = kelFunGetSizeBufferValori(&set);
    s_kel_canale& canale = *kelFunGetFreeCh(&set);  // cleared, so that the names end with NUL
    canale.fid = fid;
    canale.tipo_campione = tipo;
    canale.offset_campione = offset;
    canale.dim_buffer = kelFunGetSamplSize(tipo);
    std::strncpy(canale.breve, breve, sizeof canale.breve - 1);
    std::strncpy(canale.nome, nome, sizeof canale.nome - 1);
    return canale;
}

bool registra(const char* file_canali, const char* file_campioni) {
    std::vector<s_kel_canale> canali(4);
    s_set_canali set;
    kelFunInit(&set, canali.data(), static_cast<unsigned>(canali.size()), 0);
    const auto& rpm = aggiungi(set, FID_PHI_RPM, KEL_TIPO_UINT16, "RPM", "Engine RPM");
    const auto& olio =
        aggiungi(set, kelFidComponi(FID_PHI_PRESSURE, FID_OBJ_OIL, 0), KEL_TIPO_MEZZO_FLOAT, "OilP", "Oil Pressure");
    const auto& giro = aggiungi(set, kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2G),
                                KEL_TIPO_LAP_2G, "Lap", "Lap packet");
    const auto& gps = aggiungi(set, kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL),
                               KEL_TIPO_GPS_KEL, "GPS", "GPS packet");
    std::ofstream(file_canali, std::ios::binary)
        .write(reinterpret_cast<const char*>(canali.data()),
               static_cast<std::streamsize>(sizeof canali[0] * kelFunGetNumChUsed(&set)));

    std::ofstream campioni(file_campioni, std::ios::binary);
    for (std::uint32_t i = 0; i < 3; ++i) {
        std::string record(kelFunGetSizeBufferValori(&set), '\0');
        scrivi<std::uint16_t>(record, rpm.offset_campione, static_cast<std::uint16_t>(9800 + 350 * i));
        scrivi<std::uint16_t>(record, olio.offset_campione,
                              static_cast<std::uint16_t>(0x4400 + 0x20 * i));  // 4.0 bar on

        scrivi<std::uint16_t>(record, giro.offset_campione + 2, 7);               // lap 7
        scrivi<std::uint32_t>(record, giro.offset_campione + 4, 83456);           // which took 1:23.456
        scrivi<std::uint32_t>(record, giro.offset_campione + 16, 1200 + 40 * i);  // time on the lap now running

        // The packet is a 32-bit time and a NAV-SOL payload: fix type, ECEF position and velocity in cm and cm/s,
        // number of satellites. In the last record the receiver has lost its fix.
        record[gps.offset_campione + 14] = i < 2 ? 3 : 0;
        scrivi<std::int32_t>(record, gps.offset_campione + 16, 443217000);
        scrivi<std::int32_t>(record, gps.offset_campione + 20, 79856000);
        scrivi<std::int32_t>(record, gps.offset_campione + 24, 450412000);
        scrivi<std::int32_t>(record, gps.offset_campione + 36, static_cast<std::int32_t>(2500 + 250 * i));
        record[gps.offset_campione + 51] = i < 2 ? 9 : 2;
        campioni.write(record.data(), static_cast<std::streamsize>(record.size()));
    }
    campioni.flush();
    return campioni.good();
}

// --- Reading --------------------------------------------------------------------------------------------------------

struct Riga {
    std::string titolo;
    std::unique_ptr<IConverter> converter;
};

std::string leggi_file(const char* file) {
    std::ifstream aperto(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(aperto), std::istreambuf_iterator<char>()};
}

bool mostra(const char* file_canali, const char* file_campioni) {
    const std::string byte_canali = leggi_file(file_canali);
    const std::string campioni = leggi_file(file_campioni);
    std::vector<s_kel_canale> canali(byte_canali.size() / sizeof(s_kel_canale));
    if (canali.empty() || byte_canali.size() % sizeof(s_kel_canale) != 0)
        return false;
    std::memcpy(canali.data(), byte_canali.data(), byte_canali.size());

    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe(canali.data(), static_cast<unsigned>(canali.size())));
    const std::size_t dim_record = catalogo->getSizeBufferValori();
    if (dim_record == 0 || campioni.size() % dim_record != 0)
        return false;

    // One line for each channel. A packet channel has a line for the packet, and one for each subfield that has a name.
    std::map<unsigned int, IFunzioni::NomiDefaultCanale> nomi;
    catalogo->getCanaliGPS(nomi);
    catalogo->getCanaliLapNum(nomi);
    catalogo->getCanaliLapTime(nomi);
    std::vector<Riga> righe;
    for (const s_kel_canale& canale : canali) {
        std::list<kel_funpos> funzioni;
        catalogo->getAllInnerFunpos(canale.fid, funzioni);
        funzioni.remove_if([&nomi](kel_funpos fid) { return nomi.count(fid) == 0; });
        funzioni.push_front(canale.fid);
        for (const kel_funpos fid : funzioni) {
            const std::string udm = catalogo->getUnitaBase(fid);
            const auto decimali = static_cast<unsigned>(catalogo->getNumDecimaliDefault(fid, udm));
            Riga riga;
            riga.titolo = fid == canale.fid ? canale.nome : nomi[fid].nome + " (" + udm + ")";
            riga.converter.reset(catalogo->CreateConverter(&canale, fid, udm, false, decimali, FORMATO_COMPATTO, 8));
            righe.push_back(std::move(riga));
        }
    }

    for (const Riga& riga : righe) {
        std::printf("%-20s", riga.titolo.c_str());
        for (std::size_t inizio = 0; inizio < campioni.size(); inizio += dim_record) {
            std::string testo;
            riga.converter->GetString(campioni.data() + inizio, testo);
            std::printf(" %16s", testo.c_str());
        }
        std::printf("\n");
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const char* file_canali = argc == 3 ? argv[1] : "sessione.canali";
    const char* file_campioni = argc == 3 ? argv[2] : "sessione.campioni";
    if (!registra(file_canali, file_campioni) || !mostra(file_canali, file_campioni)) {
        std::fprintf(stderr, "cannot write or read %s and %s\n", file_canali, file_campioni);
        return 1;
    }
}
