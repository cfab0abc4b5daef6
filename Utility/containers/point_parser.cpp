#include <Utility/number_parsing.h>
#include <Utility/numbers/plain_number.h>
#include <Utility/platform/unit_set.h>
#include <Utility/point_containers.h>

#include <exception>
#include <new>

namespace Torvo {

namespace {

// How many units of text are taken for one point when room is made.
constexpr uint64 kUnitsPerPoint = 20;

// Where the number at the cursor ends; null if there is none.
const wchar16* ReadCoordinate(const wchar16* cursor, double* value) {
    // The fast lane of StringToDouble, without the way there. It only saves time.
    if (const wchar16* const end = ReadPlainDouble(cursor, value)) return end;
    wchar16* end;
    return StringToDouble(cursor, value, &end) ? end : nullptr;
}

// The units that stand between coordinates, or between points. The terminator is never one of them.
class Separators {
public:
    Separators(const wchar16* units, bool addWhitespace)
        : units_(wstring16(units) + (addWhitespace ? ZUTEXT(" \t\n") : ZUTEXT(""))),
          set_(units_.data(), units_.size()) {}
    // The set leads to the text.
    Separators(const Separators&) = delete;
    Separators& operator=(const Separators&) = delete;

    bool Contain(wchar16 unit) const { return set_.Contains(unit); }

    // The first unit from the cursor on that is none of them.
    const wchar16* Skip(const wchar16* cursor) const {
        while (set_.Contains(*cursor)) ++cursor;
        return cursor;
    }

private:
    const wstring16 units_;
    const UnitSet set_;
};

class PointParserFactoryImpl : public PointParserFactory {
public:
    PointParserFactoryImpl(DPNTContainer* container, const wchar16* coordinateSeparators,
                           const wchar16* pointSeparators, bool addWhitespace)
        : betweenCoordinates_(coordinateSeparators, addWhitespace),
          betweenPoints_(pointSeparators, addWhitespace),
          container_(container) {}

    bool ParsePoints(const wchar16* text, uint64 length, bool reset) override {
        if (text == nullptr || !MakeRoom(length / kUnitsPerPoint, reset)) return false;
        const wchar16* cursor = betweenPoints_.Skip(text);
        while (cursor != nullptr && static_cast<uint64>(cursor - text) < length) {
            cursor = ReadPoint(cursor);
            if (cursor != nullptr) cursor = PassThird(betweenPoints_.Skip(cursor), text, length);
        }
        return cursor != nullptr;
    }

private:
    bool MakeRoom(uint64 points, bool reset) {
        if (reset) return container_->Reset(points);
        uint64 count = 0;
        container_->GetPoints(count);
        return container_->Reserve(points + count);
    }

    // Where the point at the cursor ends; null, with no point appended, if it lacks a number.
    const wchar16* ReadPoint(const wchar16* cursor) {
        DPNT point;
        cursor = ReadCoordinate(cursor, &point.x);
        if (cursor == nullptr) return nullptr;
        cursor = ReadCoordinate(betweenCoordinates_.Skip(cursor), &point.y);
        if (cursor != nullptr) container_->Append(&point, 1);
        return cursor;
    }

    // Where the next point begins, behind a third coordinate if there is one; null if that one is no number.
    const wchar16* PassThird(const wchar16* cursor, const wchar16* text, uint64 length) const {
        if (!betweenCoordinates_.Contain(*cursor) || static_cast<uint64>(cursor - text) >= length) return cursor;
        double dropped;
        cursor = ReadCoordinate(betweenCoordinates_.Skip(cursor), &dropped);
        return cursor != nullptr ? betweenPoints_.Skip(cursor) : nullptr;
    }

    const Separators betweenCoordinates_;
    const Separators betweenPoints_;
    DPNTContainer* const container_;
};

}  // namespace

PointParserFactory* PointParserFactory::Create(DPNTContainer* container, const wchar16* coordinateSeparators,
                                               const wchar16* pointSeparators, bool addWhitespace) {
    if (container == nullptr || coordinateSeparators == nullptr || pointSeparators == nullptr) return nullptr;
    try {
        return new (std::nothrow)
            PointParserFactoryImpl(container, coordinateSeparators, pointSeparators, addWhitespace);
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace Torvo
