// Every new and delete of a program are counted here, and one of them can be made to fail. A program that is linked with
// assegnazioni.cpp has them in the place of the C++ library's own; the libraries that it loads call them as well.
#ifndef KEL_TEST_ASSEGNAZIONI_H
#define KEL_TEST_ASSEGNAZIONI_H

#include <cstddef>

namespace assegnazioni {

/// From now on so many allocations succeed, then one fails; negative: all succeed.
void fallisca(long dopo);
/// Whether one has failed since `fallisca` was asked for a failure.
bool fallita();
/// Blocks that were allocated and not given back.
long vivi();

/// For what is allocated in other ways: to be asked before; false where this one is to fail.
bool concessa();
/// A block was allocated so, or given back.
void conta(long quanti);

}  // namespace assegnazioni

#endif
