// The calls of a run, and the digests of their results.
//
// Every call has arguments of its own, drawn from the operation's name and the call's number: what one call gives depends on
// no other call. So the first results of a long run are those of a short one, and a change of one operation shows at that
// operation alone.
#ifndef KEL_DIGEST_CORSA_H
#define KEL_DIGEST_CORSA_H

#include <cstdint>
#include <vector>

#include "famiglie.h"

namespace digest {

// Calls are counted from 1. Those of an operation are divided into blocks, each an eighth as long as all before it and at
// least one call: an early difference is found to the call, a late one nearly so, and few blocks reach far.
constexpr std::uint32_t blocco_dopo(std::uint32_t primo) {
    return primo + (primo < 8 ? 1 : primo / 8);
}

/// The results of one operation.
struct Conto {
    const Famiglia* famiglia;
    std::uint32_t chiamate = 0;
    Impronta tutte = Impronta();
    std::vector<std::uint16_t> blocchi = {};  ///< some bits of the digest of each block that is complete
    Impronta blocco = Impronta();             ///< the block that is not complete yet
    std::uint32_t prossimo = 2;               ///< first call of the next block
};

class Corsa {
public:
    /// Without any call so far.
    explicit Corsa(bool flat);

    /// Goes on until every operation had its calls of so many rounds: in each round one, or in every `ogni`th.
    void fino(std::uint32_t giri);

    const std::vector<Conto>& conti() const { return conti_; }

private:
    std::vector<Conto> conti_;
    std::uint32_t giri_ = 0;
};

/// Makes one call, and tells what it was given and what it gave.
void racconta(const Famiglia& famiglia, std::uint32_t chiamata, Racconto& dati, Racconto& risultati);

}  // namespace digest

#endif
