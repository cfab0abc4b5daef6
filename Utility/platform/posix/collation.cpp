#include <Utility/platform/collation.h>
#include <unicode/ucol.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>

namespace Torvo::platform {

namespace {

// ICU's status is an enumeration, ours the number in it.
class Status {
public:
    explicit Status(int32* statusNumber) : number(statusNumber), code(static_cast<UErrorCode>(*statusNumber)) {}
    ~Status() { *number = code; }
    Status(const Status&) = delete;
    Status& operator=(const Status&) = delete;
    operator UErrorCode*() { return &code; }

private:
    int32* const number;
    UErrorCode code;
};

UCollator* Handle(Collator* collator) {
    return reinterpret_cast<UCollator*>(collator);
}

const UCollator* Handle(const Collator* collator) {
    return reinterpret_cast<const UCollator*>(collator);
}

Collator* Open(const char* locale, int32* status) {
    return reinterpret_cast<Collator*>(ucol_open(locale, Status(status)));
}

void Close(Collator* collator) {
    ucol_close(Handle(collator));
}

void SetStrength(Collator* collator, CollationStrength strength) {
    ucol_setStrength(Handle(collator), static_cast<UCollationStrength>(strength));
}

int32 GetSortKey(const Collator* collator, const wchar16* text, int32 length, uint8* key, int32 size) {
    return ucol_getSortKey(Handle(collator), text, length, key, size);
}

int32 Compare(const Collator* collator, const wchar16* a, int32 lengthA, const wchar16* b, int32 lengthB) {
    return ucol_strcoll(Handle(collator), a, lengthA, b, lengthB);
}

int32 Compose(const wchar16* text, int32 length, wchar16* target, int32 size, int32* status) {
    Status icuStatus(status);
    return unorm2_normalize(unorm2_getNFCInstance(icuStatus), text, length, target, size, icuStatus);
}

int32 ToUpper(const wchar16* text, int32 length, wchar16* target, int32 size, int32* status) {
    return u_strToUpper(target, size, text, length, "", Status(status));
}

constexpr CollationCalls linkedCalls = {Open, Close, SetStrength, GetSortKey, Compare, Compose, ToUpper};

}  // namespace

const CollationCalls* FindCollationCalls(CollationLoader /*load*/) {
    return &linkedCalls;
}

}  // namespace Torvo::platform
