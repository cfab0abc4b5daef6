#include <support/descriptor_bytes.h>
#include <unistd.h>

namespace Torvo::test {

std::string BytesOfDescriptor(int descriptor) {
    std::string bytes(static_cast<std::size_t>(lseek(descriptor, 0, SEEK_END)), '\0');
    const ssize_t read = pread(descriptor, bytes.data(), bytes.size(), 0);
    return read == static_cast<ssize_t>(bytes.size()) ? bytes : "(cannot be read)";
}

void CloseDescriptor(int descriptor) {
    close(descriptor);
}

}  // namespace Torvo::test
