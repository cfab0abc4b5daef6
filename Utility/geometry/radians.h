// Angles in tenths of a degree, as radians.
#pragma once

namespace Torvo::detail {

inline constexpr double Pi = 3.141592653589793;
inline constexpr double DegreesPerHalfTurn = 180.0;

inline double RadiansOfTenths(int tenths) {
    return tenths / 10.0 * Pi / DegreesPerHalfTurn;
}

}  // namespace Torvo::detail
