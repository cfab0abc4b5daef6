// The C runtime's numeric locale, of a test's choosing until it goes out of scope; "C" again from then on.
#pragma once

#include <string>

namespace Torvo::test {

class NumericLocale {
public:
    // Sets the locale of that name, as the functions below give it.
    explicit NumericLocale(const std::string& name);
    ~NumericLocale();
    NumericLocale(const NumericLocale&) = delete;
    NumericLocale& operator=(const NumericLocale&) = delete;

    // False if the runtime does not have it.
    bool IsSet() const { return isSet; }

private:
    bool isSet;
};

// Names, as this system's runtime knows them: a locale that writes "1.234,5"; one whose separator of groups is a
// character of several bytes or beyond ASCII; one that writes numbers as "C" does, but is another. Empty where the
// system has none.
std::string CommaLocale();
std::string WideGroupLocale();
std::string PointLocale();

}  // namespace Torvo::test
