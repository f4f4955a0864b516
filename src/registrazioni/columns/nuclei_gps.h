// Part of nuclei_corpo.h, inside its namespaces: positions and speeds of GPS packets.
//
// The logger's packet is a 32-bit time and a NAV-SOL payload; numbers of the payload lie at these bytes.
// NOLINTBEGIN(misc-definitions-in-headers): each source file that includes it has its own copy.
constexpr std::size_t PAYLOAD_IN_GPS = 4;
constexpr std::size_t NAVSOL_FIX = 10;
constexpr std::size_t NAVSOL_X = 12;
constexpr std::size_t NAVSOL_VX = 28;
constexpr std::size_t NAVSOL_SATELLITI = 47;

constexpr std::size_t GRUPPO_GPS = 128;  // samples whose numbers are kept side by side

constexpr double PI_GRECO = 3.141592653589793;
constexpr double ECCENTRICITA2 = 0.00669437999014133;  // WGS 84, first eccentricity squared
constexpr double SEMIASSE = 6378137.0;                 // WGS 84, m

// The first library's short way to an angle, its operations in their order: a float is taken where both ends of the interval
// of what may be wrong round to it. The few others go through the converter's own function.
struct Angoli {
    double y[GRUPPO_GPS];
    double x[GRUPPO_GPS];
    double ottavo[GRUPPO_GPS];
    double resto[GRUPPO_GPS];
    std::int32_t k[GRUPPO_GPS];
    std::int32_t certi[GRUPPO_GPS];  // in: whether the short way may be taken; out: whether its result is certain
};

inline double modulo_di(double numero) {
    return __builtin_fabs(numero);
}

// Floats of the angles of the points (x, y), none of which is the origin, in degrees.
void angoli(Angoli& a, std::size_t numero, float* __restrict gradi) {
    static constexpr double ottavi[] = {0.0,
                                        0.12435499454676144,
                                        0.24497866312686414,
                                        0.3587706702705722,
                                        0.4636476090008061,
                                        0.5585993153435624,
                                        0.6435011087932844,
                                        0.7188299996216245,
                                        0.7853981633974483};  // atan(k/8)
    for (std::size_t i = 0; i < numero; ++i) {
        const double ax = modulo_di(a.x[i]);
        const double ay = modulo_di(a.y[i]);
        const double minore = ay < ax ? ay : ax;
        const double maggiore = ay < ax ? ax : ay;
        const std::int32_t k =
            (static_cast<std::int32_t>(static_cast<float>(minore) / static_cast<float>(maggiore) * 16.0f) + 1) >> 1;
        const double c = k * 0.125;
        a.k[i] = k;
        a.resto[i] = (minore - c * maggiore) / (maggiore + c * minore);
    }
    for (std::size_t i = 0; i < numero; ++i)
        a.ottavo[i] = ottavi[a.k[i]];
    for (std::size_t i = 0; i < numero; ++i) {
        constexpr double errore = 4e-12;
        const double t = a.resto[i];
        const double q = t * t;
        const double radianti =
            a.ottavo[i] + t * ((1.0 - q * (1.0 / 3)) + q * q * ((1.0 / 5 - q * (1.0 / 7)) + q * q * (1.0 / 9)));
        const bool sopra_45 = modulo_di(a.y[i]) > modulo_di(a.x[i]);
        const bool indietro = a.x[i] < 0.0;
        const double inizio = sopra_45 ? PI_GRECO / 2 : indietro ? PI_GRECO : 0.0;
        const double verso = sopra_45 != indietro ? -1.0 : 1.0;
        const double angolo = __builtin_copysign(inizio + verso * radianti, a.y[i]) * (180.0 / PI_GRECO);
        const auto sotto = static_cast<float>(angolo * (1.0 - errore));
        const auto sopra = static_cast<float>(angolo * (1.0 + errore));
        gradi[i] = sotto;
        a.certi[i] = sotto == sopra ? a.certi[i] : 0;
    }
}

void incerti(const Angoli& a, const unsigned char* campioni, std::size_t passo, std::size_t numero,
             const Conversione& conversione, float* gradi) {
    for (std::size_t i = 0; i < numero; ++i)
        if (a.certi[i] == 0) {
            std::uint32_t stato = 0;
            gradi[i] = conversione.conv->valore(conversione.conv, campioni + i * passo, &stato);
        }
}

bool latitudini(const unsigned char* campioni, std::size_t passo, std::size_t numero, const Conversione& conversione,
                float* valori) {
    constexpr double raggio_minimo = 5e8;
    constexpr double z_minimo = 1e4;
    constexpr double g0 = ECCENTRICITA2 * SEMIASSE;
    Angoli a;  // NOLINT(cppcoreguidelines-pro-type-member-init): written below before it is read
    double z[GRUPPO_GPS];
    for (std::size_t primo = 0; primo < numero; primo += GRUPPO_GPS, campioni += GRUPPO_GPS * passo) {
        const std::size_t gruppo = numero - primo < GRUPPO_GPS ? numero - primo : GRUPPO_GPS;
        for (std::size_t i = 0; i < gruppo; ++i) {
            const unsigned char* posizione = campioni + i * passo + PAYLOAD_IN_GPS + NAVSOL_X;
            a.x[i] = leggi<std::int32_t>(posizione);
            a.y[i] = leggi<std::int32_t>(posizione + 4);
            z[i] = leggi<std::int32_t>(posizione + 8);
        }
        for (std::size_t i = 0; i < gruppo; ++i) {
            const double p2 = a.x[i] * a.x[i] + a.y[i] * a.y[i];
            const double r2 = p2 + (1.0 - ECCENTRICITA2) * z[i] * z[i];
            const bool lontano = (p2 > 0.0) & (r2 >= raggio_minimo * raggio_minimo) & (modulo_di(z[i]) >= z_minimo);
            // Numbers that harm nothing where the result is not used.
            const double r2_usato = lontano ? r2 : 1.0;
            const double s = 1.0f / __builtin_sqrtf(static_cast<float>(r2_usato));
            const double primo_giro = z[i] + g0 * z[i] * s;
            const double meta_q = (0.5 * p2 + (0.5 - 0.5 * ECCENTRICITA2) * primo_giro * primo_giro) * s * s;
            const double zz = z[i] + g0 * primo_giro * s * (1.5 - meta_q);
            a.y[i] = lontano ? zz : 1.0;
            a.x[i] = __builtin_sqrt(p2);
            a.certi[i] = lontano ? 1 : 0;
        }
        angoli(a, gruppo, valori + primo);
        incerti(a, campioni, passo, gruppo, conversione, valori + primo);
    }
    return true;
}

bool longitudini(const unsigned char* campioni, std::size_t passo, std::size_t numero, const Conversione& conversione,
                 float* valori) {
    Angoli a;  // NOLINT(cppcoreguidelines-pro-type-member-init): written below before it is read
    for (std::size_t primo = 0; primo < numero; primo += GRUPPO_GPS, campioni += GRUPPO_GPS * passo) {
        const std::size_t gruppo = numero - primo < GRUPPO_GPS ? numero - primo : GRUPPO_GPS;
        for (std::size_t i = 0; i < gruppo; ++i) {
            const unsigned char* posizione = campioni + i * passo + PAYLOAD_IN_GPS + NAVSOL_X;
            const auto x = leggi<std::int32_t>(posizione);
            const auto y = leggi<std::int32_t>(posizione + 4);
            const std::int32_t origine = (x | y) == 0 ? 1 : 0;
            a.x[i] = x + static_cast<double>(origine);
            a.y[i] = y;
            a.certi[i] = 1 - origine;
        }
        angoli(a, gruppo, valori + primo);
        incerti(a, campioni, passo, gruppo, conversione, valori + primo);
    }
    return true;
}

// The logger's packet and the bare payload: the first has a factor and a condition that the second has not.
struct Gps {
    static constexpr std::size_t PAYLOAD = PAYLOAD_IN_GPS;
    static constexpr bool KMH_CON_FIX = true;
};
struct NavSol {
    static constexpr std::size_t PAYLOAD = 0;
    static constexpr bool KMH_CON_FIX = false;
};

template <typename Pacchetto, bool Reciproca>
bool velocita(const unsigned char* campioni, std::size_t passo, std::size_t numero, const Conversione& conversione,
              float* __restrict valori) {
    const Conversione c = conversione;
    float v[3][GRUPPO_GPS];
    std::int32_t utili[GRUPPO_GPS];
    for (std::size_t primo = 0; primo < numero; primo += GRUPPO_GPS, campioni += GRUPPO_GPS * passo) {
        const std::size_t gruppo = numero - primo < GRUPPO_GPS ? numero - primo : GRUPPO_GPS;
        for (std::size_t i = 0; i < gruppo; ++i) {
            const unsigned char* payload = campioni + i * passo + Pacchetto::PAYLOAD;
            v[0][i] = static_cast<float>(leggi<std::int32_t>(payload + NAVSOL_VX));
            v[1][i] = static_cast<float>(leggi<std::int32_t>(payload + NAVSOL_VX + 4));
            v[2][i] = static_cast<float>(leggi<std::int32_t>(payload + NAVSOL_VX + 8));
            utili[i] = !Pacchetto::KMH_CON_FIX || (payload[NAVSOL_FIX] >= 3 && payload[NAVSOL_SATELLITI] >= 4) ? 1 : 0;
        }
        for (std::size_t i = 0; i < gruppo; ++i) {
            const float modulo = __builtin_sqrtf(v[0][i] * v[0][i] + v[1][i] * v[1][i] + v[2][i] * v[2][i]);
            const float x = Pacchetto::KMH_CON_FIX ? modulo * 0.036f : modulo;
            const float valore = Reciproca ? reciproca(x, c) : x * c.gain + c.offset;
            valori[primo + i] = utili[i] != 0 ? valore : 0.0f;
        }
    }
    return true;
}
// NOLINTEND(misc-definitions-in-headers)
