// Any bytes as a resource library: whatever is read lies inside them.
#include <Utility/platform/posix/resource_image.h>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using Torvo::platform::ResourceImage;
    const ResourceImage image(std::vector<Torvo::uint8>(data, data + size));
    std::size_t units = 0;
    for (const unsigned id : {0u, 1u, 15u, 16u, 17u, 300u, 4000u, 5000u, 65535u}) {
        const ResourceImage::String found = image.Find(static_cast<Torvo::uint16>(id), 0x0407);
        for (std::size_t i = 0; i < found.length; ++i) units += found.units[2 * i] + found.units[2 * i + 1];
        if (found.length * 2 > size) std::abort();
    }
    return units == static_cast<std::size_t>(-1) ? 1 : 0;
}
