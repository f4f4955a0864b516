// The whole program: a command line, and the exit status it ends with.
#ifndef KELFUN_PROGRAMMA_H
#define KELFUN_PROGRAMMA_H

namespace kel::strumento {

/// Reads the arguments as main gets them, runs the command and reports what went wrong on standard error.
///
/// @returns 0 fine, 1 no such thing or it cannot be read or written, 2 wrong argument.
int kelfun(int argc, char** argv);

}  // namespace kel::strumento

#endif
