// The plain form of point parsing: one loop, with the rules as they are published.
#pragma once

#include <Utility/number_parsing.h>
#include <Utility/point_containers.h>

#include <vector>

namespace Torvo::test {

class PlainPointParser {
public:
    std::vector<DPNT> points;

    PlainPointParser(wstring16 coordinateSeparators, wstring16 pointSeparators, bool addWhitespace)
        : betweenCoordinates_(std::move(coordinateSeparators)), betweenPoints_(std::move(pointSeparators)) {
        if (addWhitespace) betweenCoordinates_ += ZUTEXT(" \t\n");
        if (addWhitespace) betweenPoints_ += ZUTEXT(" \t\n");
    }

    bool ParsePoints(const wchar16* text, uint64 length, bool reset) {
        if (reset) points.clear();
        uint64 position = Skip(text, 0, betweenPoints_);
        while (position < length) {
            DPNT point;
            if (!Read(text, position, point.x)) return false;
            position = Skip(text, position, betweenCoordinates_);
            if (!Read(text, position, point.y)) return false;
            points.push_back(point);
            position = Skip(text, position, betweenPoints_);
            if (position < length && IsOneOf(text[position], betweenCoordinates_)) {
                position = Skip(text, position, betweenCoordinates_);
                double dropped;
                if (!Read(text, position, dropped)) return false;
            }
            position = Skip(text, position, betweenPoints_);
        }
        return true;
    }

private:
    static bool IsOneOf(wchar16 unit, const wstring16& set) { return set.find(unit) != wstring16::npos; }

    static uint64 Skip(const wchar16* text, uint64 position, const wstring16& set) {
        while (IsOneOf(text[position], set)) ++position;
        return position;
    }

    static bool Read(const wchar16* text, uint64& position, double& value) {
        wchar16* end = nullptr;
        if (!StringToDouble(text + position, &value, &end)) return false;
        position = static_cast<uint64>(end - text);
        return true;
    }

    wstring16 betweenCoordinates_;
    wstring16 betweenPoints_;
};

}  // namespace Torvo::test
