// Clipping: cutting a segment, a line of segments or a polygon down to a rectangle, in integer coordinates.
//
// A point on a side of the rectangle counts as inside. The rectangle is to be sorted (see <Utility/geometry.h>); with
// another one the calls end and keep to their buffers, but the result means nothing.
//
// Precision. A point where a segment meets a side has the side's coordinate exactly. The other one is that of one end
// plus an offset, computed in doubles and rounded, halves away from zero, so that it lies within half a unit of the
// true crossing. Which end the offset counts from is fixed, and decides ties. Each further cut of a
// segment starts from the result of the one before, and may move it by as much again. Differences of coordinates wrap
// at 32 bits: the results are right as long as no two coordinates on one axis, those of the rectangle included, differ
// by 2^31 or more, as holds for all within plus and minus 1,073,741,823. Beyond that they are repeatable and harmless,
// and mean nothing.
//
// The functions keep no state, allocate nothing and may be called on any thread.
//
// Example: examples/families/clipping.cpp
#pragma once

#include <Utility/geometry.h>

namespace Torvo {

// Cuts the segment from *a to *b down to the rectangle. True if any of it is visible; *a and *b are then the ends of
// what is visible, in the direction that they had, and an end that was inside is unchanged. On false both may have
// changed, and mean nothing.
//
// Method: outcodes, as D. Cohen and I. Sutherland's (in Newman and Sproull, Principles of Interactive Computer
// Graphics, 1973). Each step moves an outside end along the segment to a side, taking the sides in the order left,
// right, low y, high y. A segment whose steps come back to where they were, as happens only where differences wrap, is
// not visible.
ZUAPI bool ClipLine(LPNT* a, LPNT* b, const LRECT* rect);

// Cuts the polygon or the line of *count points at `input` down to the rectangle, into at most `maxOutput` points at
// `output`, which may not overlap the input.
//
// If the first and the last point of the input are equal it is a polygon: the result is closed in the same way, and
// goes round the corners of the rectangle where the polygon does. A polygon that falls into several visible parts comes
// out as one ring, its parts joined along the sides of the rectangle. Any other input is a line: it comes out as one
// chain, in which what is not visible runs along the sides too; the chain is neither split nor closed. Points that
// repeat the one before them are left out; nothing else is simplified.
//
// True if the result fitted: *count is then the number of points written, 0 if nothing is visible. False if it did not:
// `output` holds the first `maxOutput` points and *count, above maxOutput, tells only how far the work got. Once the
// buffer is full a point counts even if it would repeat the last one, except the closing point of a polygon: a buffer
// should have room for the closing point, and for one point more where the input has repeated points. An input of n
// points gives at most 6 n + 6. A count below 1 is an empty input, of which `input` is not looked at.
//
// Method: the reentrant form of polygon clipping of I. Sutherland and G. Hodgman (Communications of the ACM 17, 1974).
// Each point runs through four stages, one for a side of the rectangle, in the order left, right, low y, high y.
ZUAPI bool ClipPoly(LPNT* input, LPNT* output, const LRECT* rect, int* count, int maxOutput);

}  // namespace Torvo
