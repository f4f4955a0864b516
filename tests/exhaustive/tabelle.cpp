// Every cell of every exported table.
#include "CFunzioni.h"

#include "comune/celle.h"
#include "exhaustive/spazi.h"
#include "model/camera.h"

namespace esaustivo {

namespace {

class CelleContate : public kel_test::Celle {
public:
    explicit CelleContate(Conta& conta) : conta_(conta) {}

protected:
    void testo(const std::string& dove, const std::string& libreria, const std::string& modello) override {
        conta_.testi(libreria, modello, [&] { return dove; });
    }
    void numero(const std::string& dove, long long libreria, long long modello) override {
        conta_.numeri(libreria, modello, [&] { return dove; });
    }
    void reale(const std::string& dove, float libreria, float modello) override {
        conta_.reali(libreria, modello, [&] { return dove; });
    }

private:
    Conta& conta_;
};

// Which extended rows the camera walk shows: by row, and by parameter code.
void visibili(Conta& conta) {
    CFunzioni funzioni;
    for (const modello::RigaCamera& riga : modello::tabelle().camera_estese)
        if (riga.visibile != "-")
            conta.numeri(funzioni.is_est_valid(riga.codice) ? 1 : 0, riga.visibile == "si" ? 1 : 0,
                         [&] { return "visible " + riga.id; });
    for (int codice = -70000; codice < 1 << 20; codice++)
        conta.numeri(funzioni.is_est_valid(codice) ? 1 : 0, modello::visibile_estesa(codice) ? 1 : 0,
                     [&] { return "visible code " + std::to_string(codice); });
}

void tutte(unsigned /*parte*/, Conta& conta) {
    CelleContate celle(conta);
    celle.campi();
    celle.unita();
    celle.codici_unita();
    celle.grandezze();
    celle.varianti();
    celle.scelte();
    celle.sottocampi();
    celle.camera();
    celle.vecchie();
    visibili(conta);
}

}  // namespace

std::vector<Spazio> spazi_tabelle() {
    return {{"tables", "every cell of every exported table", 1, 1, tutte}};
}

}  // namespace esaustivo
