// Table texts on their way to the client: through the catalogue's character conversion.
#ifndef KEL_CATALOGUE_CONVERSIONE_TESTI_H
#define KEL_CATALOGUE_CONVERSIONE_TESTI_H

#include <string>
#include <typeinfo>

#include "CFunzioni.h"

namespace kel {

// Only a derived catalogue can convert: the texts of this one go out as they are, without copies on the way.
class ConversioneTesti {
public:
    explicit ConversioneTesti(const CFunzioni& catalogo)
        : catalogo_(typeid(catalogo) == typeid(CFunzioni) ? nullptr : &catalogo) {}

    std::string operator()(const char* testo) const {
        return catalogo_ == nullptr ? std::string(testo) : catalogo_->ConvertiDa8(testo);
    }

    void aggiungi(std::string& a, const char* testo) const {
        if (catalogo_ == nullptr)
            a += testo;
        else
            a += catalogo_->ConvertiDa8(testo);
    }

private:
    const CFunzioni* catalogo_;  // null: nothing to convert
};

}  // namespace kel

#endif
