// Tests of Unicode normalizers: skipped, with the reason, where the system has no ICU.
#pragma once

#include <Utility/normalizers.h>
#include <gtest/gtest.h>

namespace Torvo::test {

// Whether the library can make Unicode normalizers here.
inline bool HasCollation() {
    try {
        return GetNormalizer(csUTF16, 1, 0x0409) != nullptr;
    } catch (const UtfStringNormalizerImpl::eCreateError) {
        return false;
    }
}

class UnicodeNormalizers : public testing::Test {
protected:
    void SetUp() override {
        if (!HasCollation()) GTEST_SKIP() << "the system has no ICU libraries";
    }
    static StringNormalizer& Of(uint32 lcid, int code = 1) {
        return *GetNormalizer(csUTF16, static_cast<uint16>(code), lcid);
    }
};

}  // namespace Torvo::test
