/* Loads the library, asks it something and unloads it, a thousand times: nothing may stay behind. */
#define _POSIX_C_SOURCE 200809L
#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

enum { GIRI = 1000 };

/* Lines of this process's memory map: one more for every piece that an unload leaves behind. */
static int mappe(void) {
    FILE* f = fopen("/proc/self/maps", "r");
    int righe = 0;
    int c;
    if (f == NULL)
        return -1;
    while ((c = fgetc(f)) != EOF)
        righe += c == '\n';
    fclose(f);
    return righe;
}

int main(int argc, char** argv) {
    int dopo_il_primo = 0;
    int scaricata = 0;
    if (argc != 2)
        return 2;
    for (int giro = 0; giro < GIRI; giro++) {
        void* lib = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
        if (lib == NULL) {
            printf("round %d: %s\n", giro, dlerror());
            return 1;
        }
        const char* (*unita)(uint32_t);
        int (*codice)(const char*);
        void* simbolo = dlsym(lib, "kelFunGetUnitaBase");
        memcpy(&unita, &simbolo, sizeof unita);
        simbolo = dlsym(lib, "kelFunGetUdmCode");
        memcpy(&codice, &simbolo, sizeof codice);
        if (unita == NULL || codice == NULL || strcmp(unita(0x10), "km/h") != 0 || codice("km/h") != 1) {
            printf("round %d: wrong answers\n", giro);
            return 1;
        }
        if (dlclose(lib) != 0) {
            printf("round %d: %s\n", giro, dlerror());
            return 1;
        }
        scaricata += dlopen(argv[1], RTLD_NOW | RTLD_NOLOAD) == NULL;
        if (giro == 0)
            dopo_il_primo = mappe();
    }
    const int alla_fine = mappe();
    printf("%d rounds, really unloaded %d times, %d mappings after the first and %d after the last\n", GIRI, scaricata,
           dopo_il_primo, alla_fine);
    /* The C library's own heap may take a few more. */
    return scaricata != GIRI || alla_fine > dopo_il_primo + 8;
}
