// Regions: sets of points of a drawing surface, by the graphics system's own region objects, with null allowed.
//
// A region is made of rectangles. The right and bottom sides (x2, y2) of a rectangle do not belong to it, and the
// corners may be given in any order; a rectangle without width or height adds nothing. A null region stands for one
// that is not there yet. On Windows coordinates should keep within 27 bits with their sign, which is what the system's
// regions hold.
//
// Who creates a region destroys it. Calls on one region must not overlap.
//
// Example: examples/families/regions.cpp
#pragma once

#include <Utility/geometry.h>

namespace Torvo {

// A new region of one rectangle. Null for a null rectangle, or if the system has no room for it.
ZUAPI HRGN rgn_create(const LRECT* rect);
// Frees the region; nothing for null.
ZUAPI void rgn_destroy(HRGN region);
// Stores the bounds of the region in *rect; four zeros for null, and for an empty region. Nothing for a null `rect`.
ZUAPI void rgn_bounding_rect(HRGN region, LRECT* rect);
// Whether two regions cover the same. Two nulls are equal, and null is unequal to any region.
ZUAPI bool rgn_equal(HRGN a, HRGN b);
// A new region of what both cover, which may be nothing. Null if one of them is null, or if the system has no room for
// it; where the system cannot work it out, the new region covers nothing.
ZUAPI HRGN rgn_intersect(HRGN a, HRGN b);
// Adds a rectangle, or for null nothing, to a region, and returns that region; for a null region a new one. A region
// that grows too complex for the system loses its shape: it is replaced by its bounds before the rectangle is added, so
// that it covers too much, and never less than it did; where there is no memory for the rectangle either, that is left
// out.
ZUAPI HRGN rgn_unionrect(HRGN region, const LRECT* rect);

}  // namespace Torvo
