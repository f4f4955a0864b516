// kelfun: the function catalogue on the command line.
#include "programma.h"

int main(int argc, char** argv) {
    return kel::strumento::kelfun(argc, argv);
}
