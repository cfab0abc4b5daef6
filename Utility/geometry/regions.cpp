#include <Utility/geometry/regions.h>
#include <Utility/platform/regions.h>

namespace Torvo {

namespace {

HRGN RegionOf(const LRECT& rect) {
    return platform::CreateRectRgn(rect.x1, rect.y1, rect.x2, rect.y2);
}

LRECT BoundsOf(HRGN region) {
    platform::RECT box{};
    platform::GetRgnBox(region, &box);
    return {box.left, box.top, box.right, box.bottom};
}

}  // namespace

HRGN detail::UnionWithRect(HRGN region, const LRECT& rect, CombineCall combine) {
    const HRGN added = RegionOf(rect);
    const LRECT bounds = BoundsOf(region);
    if (combine(region, region, added, RGN_OR) == 0) {
        platform::SetRectRgn(region, bounds.x1, bounds.y1, bounds.x2, bounds.y2);
        combine(region, region, added, RGN_OR);
    }
    rgn_destroy(added);
    return region;
}

HRGN rgn_create(const LRECT* rect) {
    return rect == nullptr ? nullptr : RegionOf(*rect);
}

void rgn_destroy(HRGN region) {
    if (region != nullptr) platform::DeleteObject(region);
}

void rgn_bounding_rect(HRGN region, LRECT* rect) {
    if (rect == nullptr) return;
    *rect = region == nullptr ? LRECT{} : BoundsOf(region);
}

bool rgn_equal(HRGN a, HRGN b) {
    if (a == nullptr || b == nullptr) return a == b;
    return platform::EqualRgn(a, b);
}

HRGN rgn_intersect(HRGN a, HRGN b) {
    if (a == nullptr || b == nullptr) return nullptr;
    const HRGN common = RegionOf({});
    if (common != nullptr) platform::CombineRgn(common, a, b, RGN_AND);
    return common;
}

HRGN rgn_unionrect(HRGN region, const LRECT* rect) {
    if (region == nullptr) return rgn_create(rect);
    return rect == nullptr ? region : detail::UnionWithRect(region, *rect, platform::CombineRgn);
}

}  // namespace Torvo
