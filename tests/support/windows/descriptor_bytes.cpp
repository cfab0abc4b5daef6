#include <io.h>
#include <stdio.h>
#include <support/descriptor_bytes.h>

namespace Torvo::test {

std::string BytesOfDescriptor(int descriptor) {
    std::string bytes(static_cast<std::size_t>(_lseeki64(descriptor, 0, SEEK_END)), '\0');
    _lseeki64(descriptor, 0, SEEK_SET);
    const int read = _read(descriptor, bytes.data(), static_cast<unsigned>(bytes.size()));
    return read == static_cast<int>(bytes.size()) ? bytes : "(cannot be read)";
}

void CloseDescriptor(int descriptor) {
    _close(descriptor);
}

}  // namespace Torvo::test
