// The whole program: a command line, and the exit status it ends with.
#ifndef KELFUN_PROGRAMMA_H
#define KELFUN_PROGRAMMA_H

namespace kel::strumento {

/// Reads the arguments as main gets them, runs the command and reports what went wrong on standard error.
///
/// @returns 0 success; 1 no such thing, bad data, or it cannot be read or written; 2 wrong usage.
int kelfun(int argc, char** argv);

}  // namespace kel::strumento

#endif
