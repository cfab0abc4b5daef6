// Clipping as it is told, step by step: the plain forms that the library's own are compared with. Nothing is shared
// with the library but its structures and DoubleToINT32.
#pragma once

#include <Utility/arithmetic.h>
#include <Utility/geometry.h>

#include <utility>
#include <vector>

namespace Torvo::test::plain {

inline int32 Wrapped(int64 value) {
    return static_cast<int32>(static_cast<uint32>(value));
}

inline unsigned Outcode(LPNT p, const LRECT& rect) {
    unsigned code = 0;
    if (p.x < rect.x1) code |= 1;
    if (p.x > rect.x2) code |= 2;
    if (p.y < rect.y1) code |= 4;
    if (p.y > rect.y2) code |= 8;
    return code;
}

inline bool Same(LPNT a, LPNT b) {
    return a.x == b.x && a.y == b.y;
}

// False in `ended` if the steps go on for more than `maxSteps`.
inline bool ClipLine(LPNT& a, LPNT& b, const LRECT& rect, long maxSteps, bool& ended) {
    bool swapped = false;
    bool accepted = false;
    ended = false;
    for (long step = 0; step < maxSteps; ++step) {
        unsigned c1 = Outcode(a, rect);
        unsigned c2 = Outcode(b, rect);
        if (c1 == 0 && c2 == 0) {
            accepted = ended = true;
            break;
        }
        if ((c1 & c2) != 0) {
            ended = true;
            break;
        }
        if (c1 == 0) {
            std::swap(a, b);
            std::swap(c1, c2);
            swapped = !swapped;
        }
        const double dx = Wrapped(int64{b.x} - a.x);
        const double dy = Wrapped(int64{b.y} - a.y);
        const auto moveToX = [&](int32 x) {
            a.y = Wrapped(int64{a.y} + DoubleToINT32(Wrapped(int64{x} - a.x) * dy / dx));
            a.x = x;
        };
        const auto moveToY = [&](int32 y) {
            a.x = Wrapped(int64{a.x} + DoubleToINT32(Wrapped(int64{y} - a.y) * dx / dy));
            a.y = y;
        };
        if ((c1 & 1) != 0) {
            moveToX(rect.x1);
        } else if ((c1 & 2) != 0) {
            moveToX(rect.x2);
        } else if ((c1 & 4) != 0) {
            moveToY(rect.y1);
        } else {
            moveToY(rect.y2);
        }
    }
    if (swapped) std::swap(a, b);
    return accepted;
}

struct PolyClip {
    struct Vertex {
        LPNT point{};
        unsigned outcode = 0;
    };

    LRECT rect{};
    int maxOutput = 0;
    std::vector<LPNT> written;
    long long count = 0;
    Vertex first[4];
    Vertex last[4];
    bool firstPending[4] = {true, true, true, true};
    LPNT outFirst{};
    bool outFirstSet = false;

    Vertex Intersection(LPNT a, LPNT b, int stage) const {
        const double dx = Wrapped(int64{b.x} - a.x);
        const double dy = Wrapped(int64{b.y} - a.y);
        LPNT p{};
        if (stage < 2) {
            p.x = stage == 0 ? rect.x1 : rect.x2;
            p.y = Wrapped(int64{a.y} + DoubleToINT32(dy * Wrapped(int64{p.x} - a.x) / dx));
        } else {
            p.y = stage == 2 ? rect.y1 : rect.y2;
            p.x = Wrapped(int64{a.x} + DoubleToINT32(Wrapped(int64{p.y} - a.y) * dx / dy));
        }
        return {p, Outcode(p, rect)};
    }

    void Emit(LPNT v) {
        if (!outFirstSet) {
            outFirst = v;
            outFirstSet = true;
        }
        if (count < maxOutput) {
            if (count == 0 || !Same(v, written.back())) {
                written.push_back(v);
                ++count;
            }
        } else {
            ++count;
        }
    }

    void HandOn(const Vertex& v, int stage) {
        if (stage == 3) {
            Emit(v.point);
        } else {
            Feed(v, stage + 1);
        }
    }

    void Feed(const Vertex& v, int stage) {
        const unsigned bit = 1u << stage;
        if (firstPending[stage]) {
            first[stage] = v;
            firstPending[stage] = false;
        } else if ((v.outcode & bit) != (last[stage].outcode & bit)) {
            HandOn(Intersection(v.point, last[stage].point, stage), stage);
        }
        last[stage] = v;
        if ((v.outcode & bit) == 0) HandOn(v, stage);
    }

    bool Run(const std::vector<LPNT>& input) {
        if (input.empty()) return count <= maxOutput;
        const bool closed = Same(input.front(), input.back());
        unsigned previous = 0;
        for (const LPNT p : input) {
            if (count > maxOutput) break;
            const unsigned c = Outcode(p, rect);
            if (c == 0 && previous == 0) {
                Emit(p);
                for (Vertex& v : last) v = {p, 0};
                for (int s = 3; s >= 0 && firstPending[s]; --s) {
                    first[s] = {p, 0};
                    firstPending[s] = false;
                }
            } else {
                Feed({p, c}, 0);
            }
            previous = c;
        }
        if (closed) Finish();
        return count <= maxOutput;
    }

    void Finish() {
        for (int s = 0; s < 4; ++s) {
            if (firstPending[s]) continue;
            const unsigned bit = 1u << s;
            if ((first[s].outcode & bit) != (last[s].outcode & bit)) {
                HandOn(Intersection(last[s].point, first[s].point, s), s);
            }
        }
        if (!outFirstSet) return;
        const bool repeats = !written.empty() && Same(outFirst, written.back());
        if (repeats) return;
        if (count < maxOutput) written.push_back(outFirst);
        ++count;
    }
};

}  // namespace Torvo::test::plain
