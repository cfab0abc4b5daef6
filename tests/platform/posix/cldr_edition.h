// Which edition of the locale data ICU has. Answers depend on it; other editions are right in their own way.
#pragma once

#include <unicode/ulocdata.h>

namespace Torvo::test {

inline bool DataAreOfTheVectorsEdition() {
    UVersionInfo version;
    UErrorCode status = U_ZERO_ERROR;
    ulocdata_getCLDRVersion(version, &status);
    return U_SUCCESS(status) && version[0] == 42;
}

}  // namespace Torvo::test
