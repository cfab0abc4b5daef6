// A system charset of a test's choosing, on any system: stands in for the service of the calling thread's instance
// until it goes out of scope.
#pragma once

#include <Utility/charsets.h>

namespace Torvo::test {

class SystemCharset {
public:
    explicit SystemCharset(ZUCHARSET charset) : service(charset), former(cCharsetInfo::Instance()) {
        cCharsetInfo::Instance(&service);
    }
    ~SystemCharset() { cCharsetInfo::Instance(former); }
    SystemCharset(const SystemCharset&) = delete;
    SystemCharset& operator=(const SystemCharset&) = delete;

    // How often the library has asked.
    int Queries() const { return service.queries; }

private:
    class Service final : public cCharsetInfo {
    public:
        explicit Service(ZUCHARSET answered) : charset(answered) {}
        ZUCHARSET system_charset() override {
            ++queries;
            return charset;
        }
        int queries = 0;

    private:
        ZUCHARSET charset;
    };

    Service service;
    cCharsetInfo* former;
};

}  // namespace Torvo::test
