// Coordinate text in two forms, read by one parser each into the same container.
#include <Utility/point_containers.h>

#include <cstdio>
#include <memory>

#include "show.h"

namespace {

void Tell(Torvo::DPNTContainer& container) {
    Torvo::uint64 count = 0;
    const Torvo::DPNT* const points = container.GetPoints(count);
    for (Torvo::uint64 i = 0; i < count; ++i) std::printf("(%g, %g) ", points[i].x, points[i].y);
    std::printf("\n");
}

}  // namespace

int main() {
    using namespace Torvo;

    const std::unique_ptr<DPNTContainer> points(DPNTContainer::Create(16, 16));
    const std::unique_ptr<PointParserFactory> commas(
        PointParserFactory::Create(points.get(), ZUTEXT(","), ZUTEXT(" "), false));
    const std::unique_ptr<PointParserFactory> blanks(
        PointParserFactory::Create(points.get(), ZUTEXT(" "), ZUTEXT(" "), true));

    const wstring16 withHeights = ZUTEXT("1,2,9 3,4.5,9");
    std::printf("read: %s\n", YesOrNo(commas->ParsePoints(withHeights.c_str(), withHeights.size(), true)));
    Tell(*points);
    const wstring16 lines = ZUTEXT("5 6\n7 8");
    std::printf("added: %s\n", YesOrNo(blanks->ParsePoints(lines.c_str(), lines.size(), false)));
    Tell(*points);
    const wstring16 incomplete = ZUTEXT("1,2 3");
    std::printf("read: %s\n", YesOrNo(commas->ParsePoints(incomplete.c_str(), incomplete.size(), true)));
    Tell(*points);
    return 0;
}
