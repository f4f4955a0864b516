// Arrow structures over memory of Python. Whoever consumes them may release them in any thread, at any time, even while Python
// ends; so Python is told of it only until it says that it ends.
#include <sys/mman.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "kelregistrazioni.h"
#include "risposta.h"

namespace {

using Avviso = void (*)(std::size_t segno);
using PuntatoreDi = void* (*)(void* capsula, const char* nome);

std::atomic<Avviso> avviso{nullptr};
std::atomic<PuntatoreDi> puntatore_di{nullptr};

// Python keeps the memory of a mark until it is told of it.
void libera(std::size_t segno) {
    if (const Avviso chiama = avviso.load())
        chiama(segno);
}

struct Schema {
    std::string formato;
    std::string nome;
    std::string dati;
};

struct Colonna {
    std::size_t segno;
    const void* buffer[3];
};

struct Flusso {
    std::size_t segno;
    void* file;  // that is read, mapped; null for none
    std::size_t byte;
    ArrowArrayStream interno;
};

void libera_schema(ArrowSchema* schema) {
    delete static_cast<Schema*>(schema->private_data);
    schema->release = nullptr;
}

void libera_colonna(ArrowArray* array) {
    auto* colonna = static_cast<Colonna*>(array->private_data);
    const std::size_t segno = colonna->segno;
    delete colonna;
    array->release = nullptr;
    libera(segno);
}

ArrowArrayStream* interno(ArrowArrayStream* flusso) {
    return &static_cast<Flusso*>(flusso->private_data)->interno;
}

// The next rows. What was read of a large file stays in the system's cache, and not in the memory of the process.
int prossime(ArrowArrayStream* flusso, ArrowArray* array) {
    const auto* nostro = static_cast<Flusso*>(flusso->private_data);
    const int esito = interno(flusso)->get_next(interno(flusso), array);
    if (nostro->file != nullptr)
        madvise(nostro->file, nostro->byte, MADV_DONTNEED);
    return esito;
}

void libera_flusso(ArrowArrayStream* flusso) {
    auto* nostro = static_cast<Flusso*>(flusso->private_data);
    const std::size_t segno = nostro->segno;
    nostro->interno.release(&nostro->interno);
    delete nostro;
    flusso->release = nullptr;
    libera(segno);
}

template <typename Struttura>
void distruggi(void* capsula, const char* nome) {
    const PuntatoreDi di = puntatore_di.load();
    auto* struttura = di == nullptr ? nullptr : static_cast<Struttura*>(di(capsula, nome));
    if (struttura == nullptr)
        return;
    if (struttura->release != nullptr)
        struttura->release(struttura);
    std::free(struttura);
}

}  // namespace

/// Sets whom to tell of a mark, and Python's PyCapsule_GetPointer. Null for both: Python ends.
KELPYTHON_API void kelpy_arrow_avvia(Avviso chi, PuntatoreDi di) {
    avviso = chi;
    puntatore_di = di;
}

KELPYTHON_API void kelpy_distruggi_schema(void* capsula) {
    distruggi<ArrowSchema>(capsula, "arrow_schema");
}
KELPYTHON_API void kelpy_distruggi_array(void* capsula) {
    distruggi<ArrowArray>(capsula, "arrow_array");
}
KELPYTHON_API void kelpy_distruggi_flusso(void* capsula) {
    distruggi<ArrowArrayStream>(capsula, "arrow_array_stream");
}

/// A field. `dati` are its metadata in Arrow's form. Null when memory runs out.
KELPYTHON_API void* kelpy_schema(const char* formato, const char* nome, const char* dati, std::size_t quanti) noexcept {
    auto* schema = static_cast<ArrowSchema*>(std::calloc(1, sizeof(ArrowSchema)));
    auto* nostro = new (std::nothrow) Schema;
    if (schema == nullptr || nostro == nullptr) {
        std::free(schema);
        delete nostro;
        return nullptr;
    }
    nostro->formato = formato;
    nostro->nome = nome;
    nostro->dati.assign(dati, quanti);
    *schema = {nostro->formato.c_str(),
               nostro->nome.c_str(),
               nostro->dati.data(),
               ARROW_FLAG_NULLABLE,
               0,
               nullptr,
               nullptr,
               &libera_schema,
               nostro};
    return schema;
}

/// A column over memory that Python keeps until it is told of the mark: numbers, or the ends of texts and their bytes. Null
/// when memory runs out.
KELPYTHON_API void* kelpy_array(std::int64_t numero, std::int64_t nulli, const void* validi, const void* valori,
                                const void* testi, std::size_t segno) noexcept {
    auto* array = static_cast<ArrowArray*>(std::calloc(1, sizeof(ArrowArray)));
    auto* nostra = new (std::nothrow) Colonna{segno, {validi, valori, testi}};
    if (array == nullptr || nostra == nullptr) {
        std::free(array);
        delete nostra;
        return nullptr;
    }
    *array = {numero, nulli, 0, testi == nullptr ? 2 : 3, 0, nostra->buffer, nullptr, nullptr, &libera_colonna, nostra};
    return array;
}

/// The rows of a recording, read from a mapped file or, if that is null, from other memory. Null: see `errore`.
KELPYTHON_API void* kelpy_flusso(s_kel_registrazione* reg, std::uint64_t da, std::uint64_t quante, int testi,
                                 void* file, std::size_t byte, std::size_t segno, s_kel_errore* errore) noexcept {
    auto* flusso = static_cast<ArrowArrayStream*>(std::calloc(1, sizeof(ArrowArrayStream)));
    auto* nostro = new (std::nothrow) Flusso{segno, file, byte, {}};
    if (flusso == nullptr || nostro == nullptr || kelRegArrow(reg, da, quante, testi, &nostro->interno, errore) == 0) {
        std::free(flusso);
        delete nostro;
        return nullptr;
    }
    *flusso = {[](ArrowArrayStream* f, ArrowSchema* s) { return interno(f)->get_schema(interno(f), s); }, &prossime,
               [](ArrowArrayStream* f) { return interno(f)->get_last_error(interno(f)); }, &libera_flusso, nostro};
    return flusso;
}
