// Part of nuclei_corpo.h, inside its namespaces: texts of at most eight characters, each in a 64-bit word, the first character
// in the lowest byte.

// NOLINTBEGIN(misc-definitions-in-headers): each source file that includes it has its own copy.
constexpr std::size_t GRUPPO_TESTI = 64;  // texts whose numbers are kept side by side

// The words of numbers below 10^8 as eight digits.
void cifre_in_parole(const std::uint32_t* __restrict numeri, std::size_t numero, std::uint64_t* __restrict parole) {
    for (std::size_t i = 0; i < numero; ++i) {
        const std::uint32_t migliaia = numeri[i] / 10000;
        const std::uint64_t alte = quattro_cifre(migliaia);
        const std::uint64_t basse = quattro_cifre(numeri[i] - migliaia * 10000);
        parole[i] = (alte | basse << 32) + '0' * OGNI_BYTE;
    }
}

// Numbers in a field. `entrano`: whether the number fits; the word of one that does not is of no use.
void numeri_in_parole(const float* valori, std::size_t numero, const Campo& campo_chiesto, std::uint64_t* parole,
                      unsigned char* entrano) {
    constexpr float quasi_mezzo = 0x1.fffffep-2f;  // the float below 0.5: halves are rounded up
    constexpr std::uint64_t spazi = ' ' * OGNI_BYTE;
    const Campo campo = campo_chiesto;
    const std::uint64_t ultima_intera = std::uint64_t{1} << (campo.interi - 8);
    const std::uint64_t interi = campo.punto ? (std::uint64_t{1} << campo.interi) - 1 : ~std::uint64_t{0};
    const std::uint64_t punto = campo.punto ? std::uint64_t{'.'} << campo.interi : 0;
    const std::uint32_t dopo = campo.punto ? campo.interi : 0;
    std::uint32_t cifre[GRUPPO_TESTI];
    std::int32_t negativi[GRUPPO_TESTI];
    for (std::size_t primo = 0; primo < numero; primo += GRUPPO_TESTI) {
        const std::size_t gruppo = numero - primo < GRUPPO_TESTI ? numero - primo : GRUPPO_TESTI;
        for (std::size_t i = 0; i < gruppo; ++i) {
            const float valore = valori[primo + i];
            const float in_cifre = __builtin_fabsf(valore) * campo.scala + quasi_mezzo;
            const float sotto = valore < 0.0f ? campo.sotto_negativo : campo.sotto_positivo;
            const bool entra = in_cifre < sotto;
            cifre[i] = static_cast<std::uint32_t>(static_cast<std::int32_t>(entra ? in_cifre : 0.0f));
            negativi[i] = valore < 0.0f ? -1 : 0;
            entrano[primo + i] = entra ? 1 : 0;
        }
        std::uint64_t* const fatte = parole + primo;
        cifre_in_parole(cifre, gruppo, fatte);
        for (std::size_t i = 0; i < gruppo; ++i) {
            std::uint64_t parola = fatte[i] >> campo.oltre;
            // The lowest bit of every digit that is not 0, and of the one before the point, which is always shown. What lies
            // below the first becomes blanks, the last of them the sign.
            const std::uint64_t diverse = parola ^ '0' * OGNI_BYTE;
            const std::uint64_t figure =
                ((diverse | diverse >> 1 | diverse >> 2 | diverse >> 3) & OGNI_BYTE) | ultima_intera;
            const std::uint64_t prima = figure & (~figure + 1);
            const std::uint64_t vuoti = prima - 1;
            parola = (parola & ~vuoti) | (spazi & vuoti);
            const std::uint64_t segno = (prima >> 8) & static_cast<std::uint64_t>(std::int64_t{negativi[i]});
            parola ^= segno | segno << 2 | segno << 3;  // from ' ' to '-'
            fatte[i] = parola;
        }
        if (dopo != 0)
            for (std::size_t i = 0; i < gruppo; ++i)
                fatte[i] = (fatte[i] & interi) | punto | fatte[i] >> dopo << dopo << 8;
        if (campo.formato == FORMATO_SINISTRA || campo.formato == FORMATO_COMPATTO) {
            const std::uint64_t in_fondo =
                campo.formato == FORMATO_SINISTRA ? std::uint64_t{' '} << (campo.lunghezza - 8) : 0;
            for (unsigned passi = 1; passi < CARATTERI_PAROLA; ++passi)
                for (std::size_t i = 0; i < gruppo; ++i) {
                    const std::uint64_t spostata = fatte[i] >> 8 | in_fondo;
                    fatte[i] = (fatte[i] & 0xFF) == ' ' ? spostata : fatte[i];
                }
        }
    }
}

// Lap times below an hour, "MM:SS.CC" with a blank for a first zero; one decimal leaves the last character out, the compact
// form the first, or from ten minutes on the last. `entrano`: whether a time is of that kind.
void tempi_in_parole(const std::int32_t* tempi, std::size_t numero, bool compatto, bool decimi, std::uint64_t* parole,
                     unsigned char* entrano) {
    constexpr std::uint32_t ora = 3600000;
    const bool senza_ultima = decimi;
    const bool senza_prima = compatto && !decimi;
    std::uint32_t cifre[GRUPPO_TESTI];
    for (std::size_t primo = 0; primo < numero; primo += GRUPPO_TESTI) {
        const std::size_t gruppo = numero - primo < GRUPPO_TESTI ? numero - primo : GRUPPO_TESTI;
        for (std::size_t i = 0; i < gruppo; ++i) {
            const auto letto = static_cast<std::uint32_t>(tempi[primo + i]);
            const bool entra = letto < ora;
            const std::uint32_t tempo = entra ? letto : 0;
            const std::uint32_t minuti = tempo / 60000;
            cifre[i] = minuti * 10000 + (tempo - minuti * 60000) / 10;
            entrano[primo + i] = entra ? 1 : 0;
        }
        std::uint64_t* const fatte = parole + primo;
        cifre_in_parole(cifre, gruppo, fatte);
        for (std::size_t i = 0; i < gruppo; ++i) {
            const std::uint64_t c = fatte[i];  // "00MMSSCC"
            std::uint64_t parola = (c >> 16 & 0xFFFF) | std::uint64_t{':'} << 16 | (c >> 32 & 0xFFFF) << 24 |
                                   std::uint64_t{'.'} << 40 | c >> 48 << 48;
            const bool una_cifra = (parola & 0xFF) == '0';
            parola = una_cifra ? parola ^ ('0' ^ ' ') : parola;
            const std::uint64_t prime = parola << 8 >> 8;
            const std::uint64_t compatta = una_cifra ? parola >> 8 : prime;
            fatte[i] = senza_ultima ? prime : senza_prima ? compatta : parola;
        }
    }
}
// NOLINTEND(misc-definitions-in-headers)
