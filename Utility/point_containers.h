// Point containers and point parsing.
//
// A DPNTContainer is an array of points that grows at its end, and a PointParserFactory fills one from text, such as
// the list of coordinates in a document. Both are held through their interfaces; Create makes the one implementation of
// each. A parser takes any DPNTContainer, also one that the application has written.
//
// A point is written as two numbers, of which the second may be followed by a third one that is read and dropped. What
// stands between the numbers of a point and what stands between points are two sets of 16-bit units that each parser is
// given, so one parser serves all the forms in which coordinates occur. With "," between coordinates and a blank
// between points, both of these texts are the points (1, 2) and (3, 4):
//
//     1,2 3,4
//     1,2,9 3,4,9
//
// A unit that lies in both sets ends a point: with a blank in both, "1 2 3 4" is two points, and only a separator that
// lies in the first set alone can announce a third number. A number is what StringToDouble takes
// (<Utility/number_parsing.h>), white space before it included, so a separator may also be missing where white space or
// a sign tells two numbers apart.
//
// Failures. All of them are results, false or null; no call throws or leaves an error record. Threads: calls on one
// container may not overlap, and a parser's calls are calls on its container.
//
// Example: examples/families/points.cpp
#pragma once

#include <Utility/geometry.h>

namespace Torvo {

// An array of points. Room is counted in points.
//
// When the array cannot grow, the call answers false and the points that it held are lost: the container is empty then,
// without an array, and may be filled anew.
class ZUAPI DPNTContainer {
public:
    virtual ~DPNTContainer() = default;
    // Copies `count` points behind the last one, after making room as Reserve does. They may be points of this
    // container. False if there is no room for them.
    virtual bool Append(const DPNT* points, uint64 count) = 0;
    // Empties the container and then makes room as Reserve does. It never shrinks: Reset(0) keeps the array, and is
    // always true.
    virtual bool Reset(uint64 wanted) = 0;
    // Makes sure of room for `wanted` points in all. Where there is less, the room grows by what is missing or by the
    // container's smallest growth, whichever is more.
    virtual bool Reserve(uint64 wanted) = 0;
    // Writes the number of points, and gives the array. It is the container's, and stays where it is until a call that
    // makes it grow. Null if the container has no array.
    virtual DPNT* GetPoints(uint64& count) = 0;

    // A new empty container with room for that many points, destroyed with `delete`. `growBy` is its smallest growth,
    // in points. The heap may give more than was asked for, and the room is what it gave. Null if memory is short.
    static DPNTContainer* Create(uint64 initialCapacity, uint64 growBy);
};

// Reads points from text into a container.
class ZUAPI PointParserFactory {
public:
    virtual ~PointParserFactory() = default;
    // Reads points from `text`, which ends with a zero, until `length` units are behind. With `reset` the container is
    // emptied first; else the points are added to those it holds.
    //
    // Leading separators of points are skipped. The length is looked at between points alone: the point in which it
    // lies is read to its end, though not its third number if that begins behind the length. A text that ends before
    // its length is one that lacks a number.
    //
    // False if a number is missing or out of range; the points before it stay in the container (a point whose third
    // number is faulty is one of them). False too, with nothing read, if no room could be made for a point on every 20
    // units of the length, and for a null text. Whether the container took each point is not looked at.
    virtual bool ParsePoints(const wchar16* text, uint64 length, bool reset) = 0;

    // A new parser, destroyed with `delete`. It writes to `container`, which stays the caller's and must outlive it,
    // and keeps copies of the two texts, each the set of its units. With `addWhitespace`, blank, tab and line feed are
    // added to both sets. Null if memory is short, or for a null argument.
    static PointParserFactory* Create(DPNTContainer* container, const wchar16* coordinateSeparators,
                                      const wchar16* pointSeparators, bool addWhitespace);
};

}  // namespace Torvo
