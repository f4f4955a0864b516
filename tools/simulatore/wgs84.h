// Conversion between a plane on the ground and the earth-centred frame of GPS.
#ifndef KELSIM_WGS84_H
#define KELSIM_WGS84_H

namespace kel::simulatore {

struct Vettore {
    double x = 0, y = 0, z = 0;
};

/// Geodetic coordinates, WGS 84: degrees, and metres above the ellipsoid.
struct Geodetiche {
    double latitudine = 0, longitudine = 0, altezza = 0;
};

/// Earth-centred earth-fixed coordinates, m.
Vettore ecef(const Geodetiche& luogo);

/// The plane that touches the ellipsoid at a place: east, north and up in metres.
class PianoLocale {
public:
    explicit PianoLocale(const Geodetiche& origine);

    /// A place given in the plane, as ECEF metres.
    Vettore posizione(const Vettore& est_nord_su) const;
    /// A velocity given in the plane, in the axes of ECEF.
    Vettore velocita(const Vettore& est_nord_su) const;
    /// The inverse: a velocity given in the axes of ECEF, as east, north and up.
    Vettore locale(const Vettore& velocita_ecef) const;
    /// A place given in the plane, as geodetic coordinates; good to millimetres within a few kilometres.
    Geodetiche geodetiche(const Vettore& est_nord_su) const;

private:
    Geodetiche luogo_;
    Vettore origine_, est_, nord_, su_;
};

}  // namespace kel::simulatore

#endif
