// Every cell of the library's tables, beside the cell of tests/model/tables that it must be equal to.
#ifndef KEL_TEST_CELLE_H
#define KEL_TEST_CELLE_H

#include <cstddef>
#include <string>

namespace kel_test {

// What to do with a pair of cells is the derived class's matter.
class Celle {
public:
    virtual ~Celle() = default;

    void campi();
    void unita();
    void codici_unita();
    void grandezze();
    void varianti();
    void scelte();
    void sottocampi();
    void camera();
    void vecchie();

protected:
    // `dove` is "table[row].column".
    virtual void testo(const std::string& dove, const std::string& libreria, const std::string& modello) = 0;
    virtual void numero(const std::string& dove, long long libreria, long long modello) = 0;
    virtual void reale(const std::string& dove, float libreria, float modello) = 0;  // equal in every bit

private:
    // One row after the other; first, that there are as many.
    template <typename Righe, typename Attese, typename Confronto>
    void righe(const std::string& tabella, const Righe& libreria, const Attese& attese, Confronto confronta);
    // All tables of a kind; first, that there are as many.
    template <typename Tabelle, typename Attese, typename Confronto>
    void tabelle(const char* file, const Tabelle& libreria, const Attese& attese, Confronto confronta);

    template <typename Libreria, typename Modello>
    void cella(const std::string& colonna, const Libreria& libreria, const Modello& modello);

    std::string tabella_;
    std::size_t riga_ = 0;
};

}  // namespace kel_test

#endif
