#include <stdlib.h>
#include <support/fixture_path.h>
#include <support/numeric_locale.h>

// The build makes the locales (tests/CMakeLists.txt); the C library finds them through LOCPATH.

namespace Torvo::test {

namespace {

std::string Named(const char* name) {
    setenv("LOCPATH", BuildPath("locales").c_str(), 1);
    return name;
}

}  // namespace

std::string CommaLocale() {
    return Named("de_DE.UTF-8");
}

std::string WideGroupLocale() {
    return Named("fr_FR.UTF-8");
}

std::string PointLocale() {
    return Named("en_US.UTF-8");
}

}  // namespace Torvo::test
