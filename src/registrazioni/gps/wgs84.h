// Between the earth-centred frame of GPS (ECEF) and places on the ellipsoid of WGS 84, in double precision.
#ifndef KEL_REGISTRAZIONI_WGS84_H
#define KEL_REGISTRAZIONI_WGS84_H

namespace kel_registrazioni {

/// A place: degrees, degrees, metres above the ellipsoid.
struct Geodetica {
    double latitudine = 0;
    double longitudine = 0;
    double altezza = 0;
};

/// A place in metres, or a velocity in metres a second, along the axes of ECEF.
struct Ecef {
    double x = 0;
    double y = 0;
    double z = 0;
};

/// A velocity as seen from a place, m/s: towards the east, the north, and up.
struct VelocitaLocale {
    double est = 0;
    double nord = 0;
    double su = 0;

    /// Over ground.
    double orizzontale() const;
    double nello_spazio() const;
    /// The direction of the movement over ground, degrees from north by east: at least 0 and below 360.
    double rotta() const;
};

Geodetica geodetica(double x_m, double y_m, double z_m);
Ecef ecef(const Geodetica& luogo);

VelocitaLocale velocita_locale(const Geodetica& luogo, const Ecef& velocita);
Ecef velocita_ecef(const Geodetica& luogo, const VelocitaLocale& velocita);

}  // namespace kel_registrazioni

#endif
