// Arcs and intersections: the angles of arcs that are drawn in a bounding rectangle, and where two segments meet.
//
// Angles are in tenths of a degree, counted from the positive x axis towards the positive y axis, in signed 16-bit
// integers. An arc goes from its start angle up to its end angle, which lies above the start by at most 3600 and so may
// itself lie above 3600. On an ellipse an angle is that of the ellipse's parameter, not the one that a protractor
// shows: the two axes are scaled to a circle first.
//
// The direction of a vector (x, y), as a number of tenths of a degree from 0 to 3600: on the y axis 900 if y is above
// 0, else 2700, which is also the direction of (0, 0); elsewhere the angle by atan2, rounded to the tenth, halves away
// from zero. A direction just below a full turn is rounded to 3600, not to 0.
//
// Precision. Everything is computed in doubles from integers below 2^31. Directions are right to the tenth but for
// ties; the trigonometric functions are the system's. The crossing of two segments is right to half a unit, and to the
// error of its x before rounding: about 2^-52 * |x * m| / |m - n| for the slopes m and n, with the larger of them in
// the product, which matters only for segments that are almost parallel or almost vertical.
//
// The functions keep no state, allocate nothing and may be called on any thread. Pointers may not be null.
//
// Example: examples/families/arcs.cpp
#pragma once

#include <Utility/geometry.h>

namespace Torvo {

// The angles of two points on or near the ellipse in `rect`: *a of `start`, *b of `end`, exchanged if `swap` is set,
// and then *b raised by 3600 until it lies above *a. The same point twice gives a whole circle. The centre is that of
// GetCenterOfRect, on whole numbers; differences to it wrap.
ZUAPI void CalcArcAngles(const LRECT& rect, const LPNT& start, const LPNT& end, int16* a, int16* b, bool swap);

// The circle through three points: its bounds, and the directions from its centre to p1 and to p3. The directions do
// not tell which way round the arc goes through p2, and `end` is not raised above `start`. False, with nothing written,
// if the points lie on a line: if the cross product of p2 - p1 and p3 - p1 is below 1e-13, which is an absolute limit.
ZUAPI bool CirclePointsToMBRAngles(const DPNT& p1, const DPNT& p2, const DPNT& p3, DRECT& mbr, int16& start,
                                   int16& end);

// The angles of an arc that is mirrored: with `flipX` left and right change places, with `flipY` up and down. One of
// them reverses the direction of the arc, so the two angles are exchanged; both together turn it by half a turn.
// Afterwards *a lies in 0..3599 and *b above it by 1 to 3600.
ZUAPI void FlipArcAngles(int16* a, int16* b, bool flipX, bool flipY);

// The point that two segments share, on whole numbers. Segments with an equal end point give that point, exactly,
// before anything is computed; of overlapping segments on one line the point is the first of p1, p2, q1, q2 that lies
// on the other segment. Elsewhere it is the crossing of the two lines, rounded, halves away from zero, if the rounded
// point lies in the bounds of both segments. Differences of coordinates wrap in the slopes.
//
// False if there is none. `out` is then untouched when one segment lies beyond the other on an axis, or the two are
// parallel, and holds the crossing of the lines when that lies outside.
ZUAPI bool LineIntersection(const LPNT& p1, const LPNT& p2, const LPNT& q1, const LPNT& q2, LPNT& out);

// The end points of an arc on the ellipse in `rect`, from angle `a` to angle `b`, which may be any integers. The
// offsets from the centre (GetCenterOfRect) are rounded; the sums wrap.
ZUAPI void LogCalcArcPoints(const LRECT& rect, int a, int b, LPNT* start, LPNT* end);

}  // namespace Torvo
