// The service that makes normalizers, keeps them and hands them out.
#pragma once

#include <Utility/normalizers.h>
#include <Utility/text/string_normalizer.h>

#include <memory>
#include <vector>

namespace Torvo {

class StringNormalizerManagerImpl final : public StringNormalizerManager {
public:
    StringNormalizerManagerImpl();
    ~StringNormalizerManagerImpl() override;
    StringNormalizerManagerImpl(const StringNormalizerManagerImpl&) = delete;
    StringNormalizerManagerImpl& operator=(const StringNormalizerManagerImpl&) = delete;

    StringNormalizer* GetDefaultNormalizer() override;
    StringNormalizer* GetNormalizer(ZUCHARSET cs, uint16 code, uint32 lcid) override;
    bool RequestDefaultNormalizer(int32 lcid) override;
    uint16 ConversionCodeForCharset(ZUCHARSET cs, int32 lcid) override;

private:
    void BuildDefault(int32 lcid);
    StringNormalizer* FindUnicode(ZUCHARSET cs, uint16 code, uint32 lcid);
    StringNormalizerImpl* FindByTable(ZUCHARSET cs, uint16 code);
    StringNormalizerImpl* MakeByTable(ZUCHARSET cs, uint16 code);
    template <typename T>
    T* Keep(std::unique_ptr<T> made);

    const ZUCHARSET charset;
    std::unique_ptr<StringNormalizer> defaultNormalizer;
    std::vector<std::unique_ptr<StringNormalizer>> normalizers;  // in order of creation; the default is not among them
};

}  // namespace Torvo
