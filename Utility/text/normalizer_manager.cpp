#include <Utility/text/normalizer_manager.h>

#include <Utility/errors/raise.h>
#include <Utility/frame/instance_data.h>
#include <Utility/locale_info.h>
#include <Utility/platform/formatted_text.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

namespace Torvo {

namespace {

constexpr uint16 AnyCode = 65496;
constexpr uint16 Latin1Code = StringNormalizerImpl::Latin1Code;
constexpr uint16 Latin1Alias = StringNormalizerImpl::Latin1Alias;
constexpr uint16 Latin2Code = 40623;
constexpr uint16 DanishCode = 34070;
constexpr uint16 SwedishCode = 1298;

constexpr int32 UnknownTableError = 74;
constexpr int32 UnknownTableText = 74;

// Danish; Norwegian, bokmål and nynorsk; the Sami languages of Norway.
constexpr uint32 danishLocales[] = {1030, 1044, 1083, 2068, 4155, 6203};
// Finnish; Swedish in Sweden and in Finland; the Sami languages of both.
constexpr uint32 swedishLocales[] = {1035, 1053, 2077, 2107, 3131, 5179, 7227, 8251, 9275};

bool Contains(const auto& locales, uint32 locale) {
    return std::find(std::begin(locales), std::end(locales), locale) != std::end(locales);
}

uint16 Latin1CodeForLocale(uint32 locale) {
    if (Contains(danishLocales, locale)) return DanishCode;
    if (Contains(swedishLocales, locale)) return SwedishCode;
    return Latin1Code;
}

// A system of UTF-8 has no table; its default is that of western Europe.
ZUCHARSET CharsetOfDefault(ZUCHARSET systemCharset) {
    return systemCharset == csUTF8 ? csWindowsLatin1 : systemCharset;
}

void RaiseUnknownTable(uint16 code) {
    wchar16 text[7];
    platform::swprintf(text, std::size(text), ZUTEXT("%d"), int{code});
    RaiseError(ERRORLEVEL_ERROR, UnknownTableError, UnknownTableText, text);
}

}  // namespace

StringNormalizerManagerImpl::StringNormalizerManagerImpl() : charset(CharsetOfDefault(system_charset())) {}

StringNormalizerManagerImpl::~StringNormalizerManagerImpl() {
    defaultNormalizer.reset();
}

uint16 StringNormalizerManagerImpl::ConversionCodeForCharset(ZUCHARSET cs, int32 lcid) {
    if (cs == csWindowsLatin2) return Latin2Code;
    if (IsUnicodeCharset(cs)) return 0;
    if (cs != csWindowsLatin1) return AnyCode;
    return Latin1CodeForLocale(lcid != 0 ? static_cast<uint32>(lcid) : GetLocaleIdentifier() & 0xFFFF);
}

void StringNormalizerManagerImpl::BuildDefault(int32 lcid) {
    const NormalizationTable* const table = FindNormalizationTable(ConversionCodeForCharset(charset, lcid));
    if (table != nullptr) defaultNormalizer.reset(new (std::nothrow) StringNormalizerImpl(charset, table));
}

StringNormalizer* StringNormalizerManagerImpl::GetDefaultNormalizer() {
    if (defaultNormalizer == nullptr) BuildDefault(0);
    return defaultNormalizer.get();
}

bool StringNormalizerManagerImpl::RequestDefaultNormalizer(int32 lcid) {
    if (defaultNormalizer != nullptr) return false;
    BuildDefault(lcid);
    return defaultNormalizer != nullptr;
}

StringNormalizer* StringNormalizerManagerImpl::GetNormalizer(ZUCHARSET cs, uint16 code, uint32 lcid) {
    if (IsUnicodeCharset(cs)) {
        StringNormalizer* const known = FindUnicode(cs, code, lcid);
        if (known != nullptr) return known;
        return Keep(std::unique_ptr<StringNormalizer>(new (std::nothrow) UtfStringNormalizerImpl(cs, lcid, code)));
    }
    StringNormalizerImpl* const known = FindByTable(cs, code);
    StringNormalizerImpl* const result = known != nullptr ? known : MakeByTable(cs, code);
    if (result != nullptr) result->SetActive(true);
    return result;
}

StringNormalizer* StringNormalizerManagerImpl::FindUnicode(ZUCHARSET cs, uint16 code, uint32 lcid) {
    for (const auto& entry : normalizers) {
        if (entry->GetCharset() == cs && entry->GetLCID() == lcid && entry->GetConversionCode() == code) {
            return entry.get();
        }
    }
    return nullptr;
}

StringNormalizerImpl* StringNormalizerManagerImpl::FindByTable(ZUCHARSET cs, uint16 code) {
    const uint16 alias = cs == csWindowsLatin1 && code == Latin1Code ? Latin1Alias : code;
    for (const auto& entry : normalizers) {
        if (entry->GetCharset() != cs) continue;
        const uint16 known = entry->GetConversionCode();
        // Only a Unicode charset has normalizers of another class.
        if (known == code || known == alias) return static_cast<StringNormalizerImpl*>(entry.get());
    }
    return nullptr;
}

StringNormalizerImpl* StringNormalizerManagerImpl::MakeByTable(ZUCHARSET cs, uint16 code) {
    const bool isAlias = cs == csWindowsLatin1 && code == Latin1Alias;
    const NormalizationTable* const table = FindNormalizationTable(isAlias ? Latin1Code : code);
    if (table == nullptr) {
        RaiseUnknownTable(code);
        return nullptr;
    }
    return Keep(std::unique_ptr<StringNormalizerImpl>(new (std::nothrow) StringNormalizerImpl(cs, table)));
}

// Appends what was made; null when nothing was, or when there is no memory for one more.
template <typename T>
T* StringNormalizerManagerImpl::Keep(std::unique_ptr<T> made) {
    if (made == nullptr) return nullptr;
    T* const kept = made.get();
    try {
        normalizers.push_back(std::move(made));
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    return kept;
}

StringNormalizerManager* StringNormalizerManager::Create() {
    return new (std::nothrow) StringNormalizerManagerImpl;
}

StringNormalizerManager* StringNormalizerManager::Instance() {
    return ServiceInstance<StringNormalizerManager, ServiceKey::StringNormalizerManager>();
}

bool StringNormalizerManager::Instance(StringNormalizerManager* service) {
    return SetServiceInstance<StringNormalizerManager, ServiceKey::StringNormalizerManager>(service);
}

StringNormalizer* GetDefaultNormalizer() {
    return StringNormalizerManager::Instance()->GetDefaultNormalizer();
}

StringNormalizer* GetNormalizer(ZUCHARSET cs, uint16 code, uint32 lcid) {
    return StringNormalizerManager::Instance()->GetNormalizer(cs, code, lcid);
}

bool RequestDefaultNormalizer(int32 lcid) {
    return StringNormalizerManager::Instance()->RequestDefaultNormalizer(lcid);
}

uint16 ConversionCodeForCharset(ZUCHARSET cs, int32 lcid) {
    return StringNormalizerManager::Instance()->ConversionCodeForCharset(cs, lcid);
}

}  // namespace Torvo
