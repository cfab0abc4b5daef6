// A system charset chosen by the test, for as long as the object lives.
#pragma once

#include <Utility/charsets.h>

namespace Torvo::test {

class SystemCharset : public cCharsetInfo {
public:
    explicit SystemCharset(ZUCHARSET cs) : charset(cs), former(cCharsetInfo::Instance()) {
        cCharsetInfo::Instance(this);
    }
    ~SystemCharset() override { cCharsetInfo::Instance(former); }
    SystemCharset(const SystemCharset&) = delete;
    SystemCharset& operator=(const SystemCharset&) = delete;

    ZUCHARSET system_charset() override { return charset; }

private:
    const ZUCHARSET charset;
    cCharsetInfo* const former;
};

}  // namespace Torvo::test
