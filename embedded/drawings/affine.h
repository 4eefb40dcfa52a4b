// Points and maps of the plane that drawings are shown in.
#pragma once

namespace drafta {

/// In drawing units, y upwards.
struct PlanePoint {
    double x = 0;
    double y = 0;

    friend PlanePoint operator+(PlanePoint a, PlanePoint b) noexcept { return {a.x + b.x, a.y + b.y}; }
    friend PlanePoint operator-(PlanePoint a, PlanePoint b) noexcept { return {a.x - b.x, a.y - b.y}; }
    friend PlanePoint operator*(PlanePoint a, double factor) noexcept { return {a.x * factor, a.y * factor}; }
    friend bool operator==(const PlanePoint&, const PlanePoint&) = default;
};

/// Where a map sends the two unit vectors and the origin.
struct Affine {
    PlanePoint x{1, 0};
    PlanePoint y{0, 1};
    PlanePoint origin;

    PlanePoint vector(PlanePoint v) const noexcept { return x * v.x + y * v.y; }
    PlanePoint point(PlanePoint p) const noexcept { return origin + vector(p); }

    /// `inner` first, then this one.
    Affine after(const Affine& inner) const noexcept {
        return {vector(inner.x), vector(inner.y), point(inner.origin)};
    }
};

} // namespace drafta
