#include "exhaustive/corsa.h"

#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <ctime>
#include <map>
#include <mutex>
#include <thread>

namespace esaustivo {

namespace {

double secondi_del_filo() {
    timespec ora{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ora);
    return static_cast<double>(ora.tv_sec) + static_cast<double>(ora.tv_nsec) / 1e9;
}

Esito esegui(const Compito& compito, std::size_t da_mostrare) {
    const double inizio = secondi_del_filo();
    Conta conta(da_mostrare);
    compito.spazio->esegui(compito.parte, conta);
    Esito esito = conta.esito();
    esito.secondi = secondi_del_filo() - inizio;
    return esito;
}

class Corsa {
public:
    Corsa(std::vector<Compito> compiti, Risultati& risultati, unsigned lavoratori, std::size_t da_mostrare)
        : compiti_(std::move(compiti)), risultati_(risultati), lavoratori_(lavoratori), da_mostrare_(da_mostrare) {}

    void corri() {
        std::vector<std::thread> fili;
        for (unsigned i = 0; i < lavoratori_; i++)
            fili.emplace_back([this] { lavora(); });
        if (isatty(STDERR_FILENO) != 0)
            mostra();
        for (std::thread& filo : fili)
            filo.join();
    }

private:
    void lavora() {
        while (true) {
            std::unique_lock blocco(mutex_);
            if (prossimo_ == compiti_.size())
                return;
            const Compito compito = compiti_[prossimo_++];
            blocco.unlock();
            const Esito esito = esegui(compito, da_mostrare_);
            blocco.lock();
            risultati_.aggiungi(compito.spazio->nome, compito.parte, esito);
            differenze_ += esito.differenze;
            fatti_ += 1;
            finito_.notify_all();
        }
    }

    // Seconds of work that the parts not yet started will take: each as long as the parts of its space that have run,
    // or as the average of all.
    double lavoro_rimasto() {
        double secondi_tutti = 0;
        double parti_tutte = 0;
        std::map<std::string, double> media;
        for (const Compito& compito : compiti_) {
            const auto& esiti = risultati_.di(compito.spazio->nome);
            const auto esito = esiti.find(compito.parte);
            if (esito != esiti.end()) {
                secondi_tutti += esito->second.secondi;
                parti_tutte += 1;
            }
            if (!esiti.empty() && !media.contains(compito.spazio->nome)) {
                double somma = 0;
                for (const auto& [parte, uno] : esiti)
                    somma += uno.secondi;
                media[compito.spazio->nome] = somma / static_cast<double>(esiti.size());
            }
        }
        double rimasti = 0;
        for (std::size_t i = fatti_; i < compiti_.size(); i++) {
            const auto nota = media.find(compiti_[i].spazio->nome);
            rimasti += nota != media.end() ? nota->second : parti_tutte > 0 ? secondi_tutti / parti_tutte : 0;
        }
        return rimasti;
    }

    void mostra() {
        const auto inizio = std::chrono::steady_clock::now();
        std::unique_lock blocco(mutex_);
        while (fatti_ < compiti_.size()) {
            finito_.wait_for(blocco, std::chrono::seconds(1));
            const auto trascorsi = std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
            const double rimasti = lavoro_rimasto() / lavoratori_;
            const std::string& nome = compiti_[fatti_ < compiti_.size() ? fatti_ : compiti_.size() - 1].spazio->nome;
            std::fprintf(stderr, "\r\033[K%zu of %zu parts, %s; %.0f s gone, about %.0f s left; %llu differences",
                         fatti_, compiti_.size(), nome.c_str(), trascorsi, rimasti,
                         static_cast<unsigned long long>(differenze_));
        }
        std::fprintf(stderr, "\r\033[K");
    }

    std::vector<Compito> compiti_;
    Risultati& risultati_;
    unsigned lavoratori_;
    std::size_t da_mostrare_;
    std::mutex mutex_;
    std::condition_variable finito_;
    std::size_t prossimo_ = 0;
    std::size_t fatti_ = 0;
    std::uint64_t differenze_ = 0;
};

}  // namespace

void corri(const std::vector<Compito>& compiti, Risultati& risultati, unsigned lavoratori, std::size_t da_mostrare) {
    std::vector<Compito> da_fare;
    for (const Compito& compito : compiti)
        if (!risultati.di(compito.spazio->nome).contains(compito.parte))
            da_fare.push_back(compito);
    if (!da_fare.empty())
        Corsa(std::move(da_fare), risultati, lavoratori, da_mostrare).corri();
}

}  // namespace esaustivo
