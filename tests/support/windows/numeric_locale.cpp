#include <support/numeric_locale.h>

namespace Torvo::test {

std::string CommaLocale() {
    return "German_Germany.1252";
}

std::string WideGroupLocale() {
    return "French_France.1252";
}

std::string PointLocale() {
    return "English_United States.1252";
}

}  // namespace Torvo::test
