#include <support/fixture_path.h>

namespace Torvo::test {

std::string SourcePath(std::string_view relative) {
    return TORVO_SOURCE_DIR "/" + std::string(relative);
}

std::string BuildPath(std::string_view relative) {
    return TORVO_BINARY_DIR "/" + std::string(relative);
}

}  // namespace Torvo::test
