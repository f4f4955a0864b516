#include "captures/nomi_record.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "captures/canali_record.h"
#include "text/chiavi.h"
#include "text/mostrabile.h"

namespace kel::strumento {

namespace {

// A name that stands on one line and that --only tells from others.
bool scrivibile(const std::string& nome) {
    return !chiave(nome).empty() && nome.front() != ':' && std::none_of(nome.begin(), nome.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    });
}

// A shell passes on the word as it was typed.
std::string con_casa(const std::string& file) {
    const char* casa = std::getenv("HOME");
    return file.starts_with("~/") && casa != nullptr ? casa + file.substr(1) : file;
}

std::string breve(const CanaleRecord& canale) {
    const auto& suo = canale.record.breve;
    return {suo, std::find(suo, std::end(suo), '\0')};
}

class Nomi {
public:
    void aggiungi(const std::string& nome, const std::string& spiegazione, const std::vector<std::string>& unita) {
        if (!scrivibile(nome))
            return;
        auto posto = std::find_if(nomi_.begin(), nomi_.end(), [&](const NomeRecord& n) { return n.nome == nome; });
        if (posto == nomi_.end())
            posto = nomi_.insert(posto, {nome, mostrabile(spiegazione), {}});
        for (const std::string& una : unita)
            if (std::find(posto->unita.begin(), posto->unita.end(), una) == posto->unita.end())
                posto->unita.push_back(una);
    }
    std::vector<NomeRecord> tutti() && { return std::move(nomi_); }

private:
    std::vector<NomeRecord> nomi_;
};

std::vector<NomeRecord> nomi(const IFunzioni& catalogo, const Registrazione& reg) {
    const std::vector<CanaleRecord>& canali = reg.canali();
    const std::vector<ColonnaRecord> colonne = colonne_record(catalogo, reg);
    Nomi nomi;
    for (const ColonnaRecord& colonna : colonne) {
        const CanaleRecord& canale = canali[colonna.indice];
        const bool interno = colonna.fid != canale.record.fid;
        if (interno)
            nomi.aggiungi(canale.nome, "all of this packet", {});
        nomi.aggiungi(colonna.nome, interno ? "of " + canale.nome : catalogo.getNomeFunzione(colonna.fid, false),
                      colonna.unita_possibili(catalogo));
    }
    for (const ColonnaRecord& colonna : colonne)
        nomi.aggiungi(breve(canali[colonna.indice]), canali[colonna.indice].nome, colonna.unita_possibili(catalogo));
    return std::move(nomi).tutti();
}

}  // namespace

std::vector<NomeRecord> nomi_record(IFunzioni& catalogo, const std::string& file, bool compatta) {
    std::error_code errore;
    const std::string percorso = con_casa(file);
    if (file == "-" || !std::filesystem::is_regular_file(percorso, errore))
        return {};
    try {
        s_kel_apertura apertura{};
        apertura.compatta = compatta ? 1 : 0;
        return nomi(catalogo, Registrazione(percorso, apertura));
    } catch (const std::runtime_error&) {
        return {};
    }
}

}  // namespace kel::strumento
