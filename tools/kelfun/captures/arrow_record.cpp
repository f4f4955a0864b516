#include "captures/arrow_record.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

#include "io/uscita.h"
#include "output/flusso_arrow.h"
#include "text/errori.h"

namespace kel::strumento {

namespace {

struct Chiudi {
    void operator()(std::FILE* file) const {
        if (file != stdout)
            std::fclose(file);
    }
};

// What the library hands out is released, whatever happens.
template <typename Cosa>
struct Rilasciata : Cosa {
    Rilasciata() : Cosa{} {}
    Rilasciata(const Rilasciata&) = delete;
    Rilasciata& operator=(const Rilasciata&) = delete;
    ~Rilasciata() {
        if (this->release != nullptr)
            this->release(this);
    }
};

// The rows at hand.
class Rese {
public:
    Rese(const Registrazione& reg, bool testi) {
        s_kel_errore errore{};
        if (kelRegArrow(reg.reg(), kelRegPrima(reg.reg()), kelRegRighe(reg.reg()), testi ? 1 : 0, &flusso_, &errore) ==
            0)
            throw NonTrovato(errore.testo);
        riuscito(flusso_.get_schema(&flusso_, &schema_));
    }
    const ArrowSchema& schema() const { return schema_; }
    void scrivi(FlussoArrow& dove) {
        for (;;) {
            Rilasciata<ArrowArray> array;
            riuscito(flusso_.get_next(&flusso_, &array));
            if (array.release == nullptr)
                return;
            dove.blocco(schema_, array);
        }
    }

private:
    void riuscito(int stato) {
        if (stato == 0)
            return;
        const char* perche = flusso_.get_last_error(&flusso_);
        throw NonTrovato(perche != nullptr ? perche : std::strerror(stato));
    }

    Rilasciata<ArrowArrayStream> flusso_;
    Rilasciata<ArrowSchema> schema_;
};

}  // namespace

void scrivi_arrow(const std::string& nome, const Registrazione& reg, std::span<const ColonnaRecord> colonne, bool testi,
                  FileCampioni& campioni) {
    const std::unique_ptr<std::FILE, Chiudi> file(nome == "-" ? stdout : std::fopen(nome.c_str(), "wb"));
    if (!file)
        throw NonTrovato("cannot write '" + nome + "': " + std::strerror(errno));
    Rese prime(reg, testi);
    // Before the columns stands the time, where there is one.
    const auto tempo = static_cast<std::size_t>(prime.schema().n_children) - kelRegNumColonne(reg.reg());
    std::vector<std::size_t> scelte;
    for (std::size_t i = 0; i < tempo; ++i)
        scelte.push_back(i);
    for (const ColonnaRecord& colonna : colonne)
        scelte.push_back(tempo + colonna.quale);
    FlussoArrow flusso(file.get(), std::move(scelte));
    flusso.schema(prime.schema());
    while (campioni.prossimo()) {
        Rese(reg, testi).scrivi(flusso);
        manda_uscita(file.get());
    }
    flusso.fine();
    manda_uscita(file.get());
}

}  // namespace kel::strumento
