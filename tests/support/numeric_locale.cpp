#include <support/numeric_locale.h>

#include <clocale>

namespace Torvo::test {

NumericLocale::NumericLocale(const std::string& name)
    : isSet(!name.empty() && std::setlocale(LC_NUMERIC, name.c_str()) != nullptr) {}

NumericLocale::~NumericLocale() {
    std::setlocale(LC_NUMERIC, "C");
}

}  // namespace Torvo::test
