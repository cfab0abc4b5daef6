#include <Utility/frame/new_block.h>
#include <Utility/normalizers.h>
#include <Utility/platform/locales.h>
#include <Utility/platform/runtime.h>
#include <Utility/text/collation_loader.h>
#include <Utility/text/collation_work.h>
#include <Utility/text/icu_locale_name.h>
#include <Utility/text/key_text.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace Torvo {

namespace {

using platform::CollationCalls;
using platform::CollationStrength;
using platform::Collator;

// A locale by identifier and name: the system's default where the identifier has no name.
struct NamedLocale {
    explicit NamedLocale(uint32 asked) : lcid(asked) {
        if (LCIDToName(asked, name, LocaleNameSize)) return;
        platform::GetSystemDefaultLocaleName(name, LocaleNameSize);
        lcid = platform::LocaleNameToLCID(name, LOCALE_ALLOW_NEUTRAL_NAMES);
    }

    uint32 lcid;
    wchar16 name[LocaleNameSize] = {};
};

// A collator of ICU's, owned.
class OwnedCollator {
public:
    // Throws eNoCollator.
    OwnedCollator(const CollationCalls* collationCalls, const char* locale) : calls(collationCalls) {
        if (calls == nullptr) throw UtfStringNormalizerImpl::eNoCollator;
        int32 status = 0;
        collator = calls->open(locale, &status);
        if (collator == nullptr || status > 0) throw UtfStringNormalizerImpl::eNoCollator;
    }
    ~OwnedCollator() { calls->close(collator); }
    OwnedCollator(const OwnedCollator&) = delete;
    OwnedCollator& operator=(const OwnedCollator&) = delete;

    const CollationCalls& Calls() const { return *calls; }
    Collator* Get() const { return collator; }

private:
    const CollationCalls* const calls;
    Collator* collator = nullptr;
};

CollationStrength StrengthFor(uint16 code) {
    return code != 0 ? CollationStrength::Secondary : CollationStrength::Primary;
}

}  // namespace

// The collator is made first and goes last.
struct UtfStringNormalizerImpl::Parts {
    Parts(ZUCHARSET cs, const NamedLocale& locale, uint16 conversionCode)
        : Parts(cs, locale.lcid, conversionCode, IcuLocaleName(locale.name)) {}
    Parts(ZUCHARSET cs, uint32 localeIdentifier, uint16 conversionCode, const IcuLocaleName& name)
        : charset(cs),
          lcid(localeIdentifier),
          code(conversionCode),
          collator(LoadCollation(), name.Text()),
          first(collator.Calls(), collator.Get(), name.IsJapanese()),
          second(collator.Calls(), collator.Get(), name.IsJapanese()) {
        collator.Calls().setStrength(collator.Get(),
                                     name.IsJapanese() ? CollationStrength::Quaternary : StrengthFor(code));
    }

    const ZUCHARSET charset;
    const uint32 lcid;
    const uint16 code;  // not 0: the finer strength
    const OwnedCollator collator;
    sCollationWork first;   // of single texts and of the first one of a comparison
    sCollationWork second;  // of the second one
};

UtfStringNormalizerImpl::UtfStringNormalizerImpl(ZUCHARSET charset, uint32 lcid, uint16 code)
    : parts(new (std::nothrow) Parts(charset, NamedLocale(lcid), code)) {
    if (parts == nullptr) throw eNoCollator;
}

UtfStringNormalizerImpl::~UtfStringNormalizerImpl() {
    delete parts;
}

ZUCHARSET UtfStringNormalizerImpl::GetCharset() {
    return parts->charset;
}

uint16 UtfStringNormalizerImpl::GetConversionCode() {
    return parts->code;
}

uint16 UtfStringNormalizerImpl::GetAsciiCode() {
    StringNormalizer* const byDefault = GetDefaultNormalizer();
    return byDefault != nullptr ? byDefault->GetAsciiCode() : uint16{0};
}

bool UtfStringNormalizerImpl::IsActive() {
    return false;
}

bool UtfStringNormalizerImpl::Normalize(const wchar16* source, wchar16** result, uint64* resultLength) {
    if (source == nullptr || result == nullptr || source[0] == 0) return false;
    if (keytext::HasMark(source)) {
        const uint64 units = platform::wcslen(source) + 1;
        wchar16* const copy = NewBlock<wchar16>(units);
        if (copy == nullptr) return false;
        std::memcpy(copy, source, units * sizeof(wchar16));
        *result = copy;
        return true;
    }
    sCollationWork& work = parts->first;
    if (!work.SetText(source) || !work.ComputeKey()) return false;
    const uint64 units = keytext::Units(work.KeySize());
    wchar16* const text = NewBlock<wchar16>(units, Content::Zero);
    if (text == nullptr) return false;
    keytext::Write(text, work.Key(), work.KeySize());
    *result = text;
    if (resultLength != nullptr) *resultLength = units;
    return true;
}

bool UtfStringNormalizerImpl::NormalizeInPlace(wchar16* text, uint64 capacity) {
    if (text == nullptr) return false;
    if (keytext::HasMark(text)) return true;
    sCollationWork& work = parts->first;
    if (text[0] == 0 || !work.SetText(text)) return false;
    const uint64 length = platform::wcslen(text);
    const uint64 units = capacity != 0 ? capacity : length;
    const uint64 bytes = units * sizeof(wchar16);
    // Behind a room that the text fills, its own terminator stands.
    const uint64 least = units == length ? sizeof keytext::Mark : keytext::Overhead;
    if (bytes < least || !work.ComputeKey()) return false;
    std::memset(text, 0, bytes);
    const uint64 forKey = bytes > keytext::Overhead ? bytes - keytext::Overhead : 0;
    keytext::Write(text, work.Key(), std::min(work.KeySize(), forKey));
    return true;
}

int32 UtfStringNormalizerImpl::Compare(const wchar16* a, const wchar16* b) {
    if (keytext::HasMark(a) && keytext::HasMark(b)) {
        return keytext::CompareKeys(keytext::KeyOf(a), keytext::KeyOf(b));
    }
    return a != nullptr && b != nullptr ? CompareTexts(parts->first, a, parts->second, b) : 0;
}

uint32 UtfStringNormalizerImpl::GetLCID() {
    return parts->lcid;
}

bool UtfStringNormalizerImpl::IsNormalized(const wchar16* text) {
    return keytext::HasMark(text);
}

}  // namespace Torvo
