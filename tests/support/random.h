// Random operations that can be repeated.
#pragma once

#include <Utility/platform/types.h>

#include <cstdlib>
#include <random>
#include <string>

namespace Torvo::test {

// How many random operations a property test runs on each container. The sanitizers make each about ten times as slow.
#if defined(TORVO_CHECK_INVARIANTS)
constexpr int kRandomOperations = 100'000;
#else
constexpr int kRandomOperations = 1'000'000;
#endif

// A generator whose seed is a new one for each run, or the one that the environment variable TORVO_TEST_SEED gives. A
// test puts About() into its failures, by SCOPED_TRACE.
class Random {
public:
    Random() : seed_(ChooseSeed()), engine_(seed_) {}
    explicit Random(uint32 seed) : seed_(seed), engine_(seed) {}

    std::string About() const { return "TORVO_TEST_SEED=" + std::to_string(seed_); }

    // A value in [low, high].
    int64 Between(int64 low, int64 high) { return std::uniform_int_distribution<int64>(low, high)(engine_); }
    // True once in so many times.
    bool OneIn(int64 times) { return Between(1, times) == 1; }

private:
    static uint32 ChooseSeed() {
        const char* const given = std::getenv("TORVO_TEST_SEED");
        return given != nullptr ? static_cast<uint32>(std::strtoul(given, nullptr, 10)) : std::random_device()();
    }

    uint32 seed_;
    std::mt19937 engine_;
};

// Values that stay near a point for a while, so that they meet and form runs; the point drifts, and at times jumps.
class DriftingValues {
public:
    // Values from 0 to `largest`, at most `spread` from the point, which moves by up to `drift` each time.
    DriftingValues(Random& random, int64 largest, int64 spread, int64 drift)
        : random_(random), largest_(largest), spread_(spread), drift_(drift), point_(random.Between(0, largest)) {}

    int64 Next() {
        point_ += random_.Between(-drift_, drift_);
        if (random_.OneIn(20'000)) point_ = random_.Between(0, largest_);
        point_ = Clamped(point_);
        return Clamped(point_ + random_.Between(-spread_, spread_));
    }

private:
    int64 Clamped(int64 value) const { return value < 0 ? 0 : value > largest_ ? largest_ : value; }

    Random& random_;
    int64 largest_;
    int64 spread_;
    int64 drift_;
    int64 point_;
};

}  // namespace Torvo::test
