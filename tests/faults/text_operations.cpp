// Strings, text tools, string caches, character sets, conversion and normalizers.
#include <Utility/Utility.h>
#include <faults/operations.h>

#include <memory>
#include <new>
#include <optional>

namespace Torvo::test {

namespace text_operations {
namespace {

const wchar16* const Words = ZUTEXT("one two three");
const char* const Narrow = "one two three";
// Longer than what a string keeps within itself.
const wchar16* const LongText = ZUTEXT("a text that is so long that a string of it has to ask for a block of its own");
const char* const LongNarrow = "a text that is so long that a string of it has to ask for a block of its own";

// Tries a call that gives a block of falloc_, or null where there is no memory.
template <typename Unit>
void TryToGetBlock(Trial& trial, const std::function<Unit*()>& call) {
    Unit* block = nullptr;
    trial.Try(
        [&] {
            block = call();
            return block != nullptr;
        },
        [&] { return block == nullptr; });
    void* raw = block;
    ffree_(&raw);
}

// A manager of normalizers that has made none yet, in the place of the instance's.
class NewManager {
public:
    NewManager() : own(StringNormalizerManager::Create()), former(StringNormalizerManager::Instance()) {
        StringNormalizerManager::Instance(own.get());
    }
    ~NewManager() { StringNormalizerManager::Instance(former); }

private:
    const std::unique_ptr<StringNormalizerManager> own;
    StringNormalizerManager* const former;
};

void TryToNormalize(Trial& trial, StringNormalizer* normalizer) {
    ASSERT_NE(normalizer, nullptr);
    wchar16* text = nullptr;
    uint64 length = 77;
    trial.Try([&] { return normalizer->Normalize(LongText, &text, &length); }, [&] { return text == nullptr; });
    void* raw = text;
    ffree_(&raw);
}

bool NormalizesInPlace(StringNormalizer* normalizer) {
    TextBuffer text(LongText);
    return normalizer != nullptr && normalizer->NormalizeInPlace(text.units, 520);
}

bool Compares(StringNormalizer* normalizer) {
    return normalizer != nullptr && normalizer->Compare(LongText, ZUTEXT("z")) < 0;
}

StringNormalizer* ByTable() {
    return GetNormalizer(csWindowsLatin1, 44414, 0);
}
// Null where the system has no collation. One that cannot be made for want of memory throws, as its header says.
StringNormalizer* ByCollation() {
    try {
        return GetNormalizer(csUTF16, 1, 0x0409);
    } catch (UtfStringNormalizerImpl::eCreateError) {
        return nullptr;
    }
}

// A system without it is asked once.
bool HasCollation() {
    static const bool hasCollation = ByCollation() != nullptr;
    return hasCollation;
}

void OnCollation(Trial& trial, void (*attempt)(Trial&, StringNormalizer*)) {
    if (StringNormalizer* const normalizer = ByCollation()) attempt(trial, normalizer);
}

// The default normalizer, whose table it answers for, is made by the first call.
void TryAsciiCode(Trial& trial) {
    if (!HasCollation()) return;
    const NewManager manager;
    StringNormalizer* const normalizer = ByCollation();
    trial.Try([&] { return normalizer->GetAsciiCode() != 0; });
}

void TryToMakeByCollation(Trial& trial) {
    if (!HasCollation()) return;
    std::optional<UtfStringNormalizerImpl> made;
    trial.Try(
        [&] {
            try {
                made.emplace(csUTF16, 0x0409u, uint16{1});
            } catch (UtfStringNormalizerImpl::eCreateError) {
                return false;
            }
            return made->Compare(LongText, ZUTEXT("z")) < 0;
        },
        [&] { return !made.has_value(); });
}

Operations StringOperations() {
    return {
        {"zuStrLen", [] { return zuStrLen(Words) == 13; }},
        {"zuStrchr", [] { return zuStrchr(Words, 't') == Words + 4; }},
        {"zuStrrchr", [] { return zuStrrchr(Words, 't') == Words + 8; }},
        {"zuStrstr", [] { return zuStrstr(Words, ZUTEXT("two")) == Words + 4; }},
        {"zuStrpbrk", [] { return zuStrpbrk(Words, ZUTEXT("wt")) == Words + 4; }},
        {"zuStrspn", [] { return zuStrspn(Words, ZUTEXT("eno")) == 3; }},
        {"zuStrcspn", [] { return zuStrcspn(Words, ZUTEXT(" ")) == 3; }},
        {"strrcspn", [] { return strrcspn(Words, ZUTEXT(" ")) == 7; }},
        {"zuLastChar", [] { return zuLastChar(Words) == Words + 12; }},
        {"zuNextChar", [] { return zuNextChar(Words) == Words + 1; }},
        {"zuPrevChar", [] { return zuPrevChar(Words, Words + 2) == Words + 1; }},
        {"zuIsLeadByte", [] { return !zuIsLeadByte(Words); }},
        {"fast_strchr", [] { return fast_strchr(Words, 't') == Words + 4; }},
        {"fast_strpbrk", [] { return fast_strpbrk(Words, ZUTEXT("wt")) == Words + 4; }},
        {"zuIsAlpha", [] { return zuIsAlpha('a') != 0; }},
        {"zuIsAlphaNum", [] { return zuIsAlphaNum('1') != 0; }},
        {"zuIsLower", [] { return zuIsLower('a') != 0; }},
        {"zuIsUpper", [] { return zuIsUpper('A') != 0; }},
        {"zuIsPrint", [] { return zuIsPrint('A') != 0; }},
        {"zuToLower", [] { return zuToLower('A') == 'a'; }},
        {"zuToUpper", [] { return zuToUpper('a') == 'A'; }},
        {"zuStrLwr",
         [] {
             TextBuffer text(ZUTEXT("One"));
             zuStrLwr(text.units);
             return text.Is(ZUTEXT("one"));
         }},
        {"zuStrUpr",
         [] {
             TextBuffer text(ZUTEXT("One"));
             zuStrUpr(text.units);
             return text.Is(ZUTEXT("ONE"));
         }},
        {"zuStrrev",
         [] {
             TextBuffer text(ZUTEXT("one"));
             zuStrrev(text.units);
             return text.Is(ZUTEXT("eno"));
         }},
        {"concat_backslash",
         [] {
             TextBuffer text;
             concat_backslash(ZUTEXT("a"), text.units, 20);
             return text.Is(ZUTEXT("a\\"));
         }},
        {"zuStrCmp", [] { return zuStrCmp(ZUTEXT("a"), ZUTEXT("b")) < 0; }},
        {"zuStrICmp", [] { return zuStrICmp(ZUTEXT("a"), ZUTEXT("A")) == 0; }},
        {"zuStrNICmp", [] { return zuStrNICmp(ZUTEXT("ab"), ZUTEXT("Ac"), 1) == 0; }},
        {"strequ", [] { return strequ(Words, Words); }},
        {"striequ", [] { return striequ(ZUTEXT("a"), ZUTEXT("A")); }},
        {"strnequ", [] { return strnequ(ZUTEXT("ab"), ZUTEXT("ac"), 1); }},
        {"strniequ", [] { return strniequ(ZUTEXT("ab"), ZUTEXT("AC"), 1); }},
        {"zuStrtok",
         [] {
             TextBuffer text(Words);
             wchar16* context = nullptr;
             return Is(zuStrtok(text.units, ZUTEXT(" "), &context), ZUTEXT("one"));
         }},
        {"zuStrtok, with brackets",
         [] {
             TextBuffer text(ZUTEXT("[one two] three"));
             wchar16* context = nullptr;
             return zuStrtok(text.units, ZUTEXT(" "), true, &context) != nullptr;
         }},
        {"zuStrtok, by positions",
         [] {
             static const wstring16 source = LongText;
             static const wstring16 delimiters = ZUTEXT(" ");
             uint64 start = 0;
             uint64 length = 0;
             uint64 next = 0;
             return zuStrtok(source, 0, delimiters, &start, &length, &next, ZUTEXT("\"\""));
         }},
        {"strcpyn",
         [] {
             TextBuffer text;
             strcpyn(text.units, Words, 4);
             return text.Is(ZUTEXT("one"));
         }},
        {"ltrim",
         [] {
             TextBuffer text(ZUTEXT("  a"));
             ltrim(text.units);
             return text.Is(ZUTEXT("a"));
         }},
        {"ltrim2",
         [] {
             TextBuffer text(ZUTEXT("  a"));
             ltrim2(text.units);
             return text.Is(ZUTEXT("a"));
         }},
        {"rtrim",
         [] {
             TextBuffer text(ZUTEXT("a  "));
             rtrim(text.units);
             return text.Is(ZUTEXT("a"));
         }},
    };
}

Operations TextToolOperations() {
    return {
        {"strnchr", [] { return strnchr(Words, 't', 5) == Words + 4; }},
        {"skipwhite", [] { return *skipwhite(ZUTEXT("  a")) == 'a'; }},
        {"memrev",
         [] {
             char bytes[] = "abc";
             memrev(bytes, 3);
             return bytes[0] == 'c';
         }},
        {"zuCharReplace",
         [] {
             TextBuffer text(ZUTEXT("a b"));
             zuCharReplace(text.units, ZUTEXT(" "), '_');
             return text.Is(ZUTEXT("a_b"));
         }},
        {"TextReplaceChar",
         [] {
             TextBuffer text(ZUTEXT("a b"));
             TextReplaceChar(text.units, ' ', '_');
             return text.Is(ZUTEXT("a_b"));
         }},
        {"rtrimA",
         [] {
             char text[] = "a  ";
             return rtrimA(text, csWindowsLatin1) == 1;
         }},
        {"quotestring",
         [] {
             TextBuffer text;
             return Is(quotestring(text.units, ZUTEXT("a'b"), 20, ZUTEXT("'")), ZUTEXT("'a''b'"));
         }},
        {"unquotestring",
         [] {
             TextBuffer text;
             return Is(unquotestring(text.units, ZUTEXT("'a'"), 20, ZUTEXT("'")), ZUTEXT("a"));
         }},
        {"FilterNewline, of what has none",
         [] {
             TextBuffer text;
             FilterNewline(text.units, Words, 14, true);
             return text.Is(Words);
         }},
        {"FilterNewline",
         [] {
             TextBuffer text;
             FilterNewline(text.units, ZUTEXT("a\r\nb"), 5, false);
             return text.Is(ZUTEXT("a\\nb"));
         }},
        {"TextAddCrs",
         [](Trial& trial) {
             wchar16* text = nullptr;
             trial.Try([&] { return TextAddCrs(&text, ZUTEXT("a\nb"), 3) == 4; }, [&] { return text == nullptr; });
             void* block = text;
             ffree_(&block);
         }},
        {"TextRemoveCrs",
         [] {
             TextBuffer text(ZUTEXT("a\r\nb"));
             return TextRemoveCrs(text.units) == 3;
         }},
        {"StringToExistingWString",
         [] {
             TextBuffer text;
             return Is(StringToExistingWString(text.units, 100, Narrow), Words);
         }},
        {"WStringToExistingString",
         [] {
             char text[100];
             return WStringToExistingString(text, 100, Words) == text && text[0] == 'o';
         }},
        {"StringToNewWString",
         [](Trial& trial) { TryToGetBlock<wchar16>(trial, [] { return StringToNewWString(Narrow); }); }},
        {"WStringToNewString",
         [](Trial& trial) { TryToGetBlock<char>(trial, [] { return WStringToNewString(Words); }); }},
        {"WStringToNewUTF8String",
         [](Trial& trial) {
             int length = 0;
             TryToGetBlock<char>(trial, [&] { return WStringToNewUTF8String(Words, length); });
         }},
        {"StringToWString",
         [](Trial& trial) {
             wstring16 text;
             trial.Try(
                 [&] {
                     text = StringToWString(LongNarrow);
                     return !text.empty();
                 },
                 [&] { return text.empty(); });
         }},
        {"StringToWString, of a string",
         [](Trial& trial) {
             const std::string source = LongNarrow;
             wstring16 text;
             trial.Try(
                 [&] {
                     text = StringToWString(source);
                     return !text.empty();
                 },
                 [&] { return text.empty(); });
         }},
        {"WStringToString",
         [](Trial& trial) {
             std::string text;
             trial.Try(
                 [&] {
                     text = WStringToString(LongText);
                     return !text.empty();
                 },
                 [&] { return text.empty(); });
         }},
        {"WStringToString, of a string",
         [](Trial& trial) {
             const wstring16 source = LongText;
             std::string text;
             trial.Try(
                 [&] {
                     text = WStringToString(source);
                     return !text.empty();
                 },
                 [&] { return text.empty(); });
         }},
        {"Like",
         [] {
             bool match = false;
             return Like(Words, ZUTEXT("one%th_ee"), ZUTEXT(""), &match) && match;
         }},
        {"Like, with a pattern that is refused",
         [] {
             bool match = true;
             ClearErrors();
             const bool isGood = Like(Words, ZUTEXT("!one"), ZUTEXT("!"), &match);
             const bool isTold = !isGood && !match && NumErrors() == 1;
             ClearErrors();
             return isTold;
         }},
    };
}

Operations StringCacheOperations() {
    return {
        {"CacheString",
         [](Trial& trial) {
             wchar16* cache = nullptr;
             trial.Try([&] { return CacheString(&cache, Words, nullptr, 0, false) == 1; },
                       [&] { return cache == nullptr; });
             void* block = cache;
             ffree_(&block);
         }},
        {"CacheString, into a cache that grows",
         [](Trial& trial) {
             wchar16* cache = nullptr;
             CacheString(&cache, ZUTEXT("first"), nullptr, 0, true);
             trial.Try([&] { return CacheString(&cache, LongText, nullptr, 0, true) != 0; },
                       [&] { return GetCachedStructure(cache, ZUTEXT("first"), nullptr, 0); });
             EXPECT_TRUE(GetCachedStructure(cache, ZUTEXT("first"), nullptr, 0));
             EXPECT_TRUE(GetCachedStructure(cache, LongText, nullptr, 0));
             void* block = cache;
             ffree_(&block);
         }},
        {"GetCachedString",
         [] {
             TextBuffer text(Words);
             GetCachedString(nullptr, 1, text.units, 100, nullptr, 0);
             return text.Is(ZUTEXT(""));
         }},
        {"GetCachedString, of an entry",
         [] {
             static wchar16* cache = nullptr;
             if (cache == nullptr) CacheString(&cache, Words, nullptr, 0, false);
             TextBuffer text;
             GetCachedString(cache, 1, text.units, 100, nullptr, 0);
             return text.Is(Words);
         }},
        {"GetIthCachedString, of an entry",
         [] {
             static wchar16* cache = nullptr;
             if (cache == nullptr) CacheString(&cache, Words, nullptr, 0, false);
             TextBuffer text;
             return GetIthCachedString(cache, 0, text.units, 100, nullptr, 0) && text.Is(Words) &&
                    GetCachedStructure(cache, Words, nullptr, 0);
         }},
        {"GetCachedStructure", [] { return !GetCachedStructure(nullptr, Words, nullptr, 0); }},
        {"GetIthCachedString",
         [] {
             TextBuffer text(Words);
             return !GetIthCachedString(nullptr, 0, text.units, 100, nullptr, 0) && text.Is(ZUTEXT(""));
         }},
    };
}

Operations CharsetOperations() {
    return {
        {"CS2Str", [] { return Is(CS2Str(csUTF8), CS2Str(csUTF8)); }},
        {"CharsetName", [] { return CharsetName(csUTF8) != nullptr; }},
        {"Str2CS", [] { return Str2CS(CS2Str(csWindowsGreek)) == csWindowsGreek; }},
        {"CS2OldStr", [] { return CS2OldStr(csWindowsGreek) != nullptr; }},
        {"CharsetANSI", [] { return CharsetANSI() != nullptr; }},
        {"CharsetMAC", [] { return CharsetMAC() != nullptr; }},
        {"CharsetXASCII", [] { return CharsetXASCII() != nullptr; }},
        {"CharsetLICS", [] { return CharsetLICS() != nullptr; }},
        {"CharsetSlashN", [] { return CharsetSlashN(csWindowsLatin1) != nullptr; }},
        {"CharsetUnknownCode", [] { return CharsetUnknownCode(csWindowsLatin1) == '_'; }},
        {"CharsetDBCS", [] { return CharsetDBCS(csWindowsJapanese); }},
        {"IS_DBCS_CHARSET", [] { return IS_DBCS_CHARSET(csWindowsJapanese); }},
        {"IsUnicodeCharset", [] { return IsUnicodeCharset(csUTF16); }},
        {"GetWinCodePage", [] { return GetWinCodePage(csUTF8) == 65001; }},
        {"IsStrConvertNecessary", [] { return IsStrConvertNecessary(csUTF8, csUTF16); }},
        {"system_charset", [] { return system_charset() != csUnknown; }},
        {"StringByteLength", [] { return StringByteLength(Words, csWindowsLatin1) == 13; }},
        {"LCIDToName",
         [] {
             TextBuffer text;
             return LCIDToName(0x0409, text.units, 100) && text.Is(ZUTEXT("en-US"));
         }},
        {"cCharsetInfo::Create", [](Trial& trial) { TryToMake(trial, [] { return cCharsetInfo::Create(); }); }},
        {"cCharsetInfo::Instance", [] { return cCharsetInfo::Instance(cCharsetInfo::Instance()); }},
        {"cCharsetInfo::system_charset", [] { return cCharsetInfo::Instance()->system_charset() != csUnknown; }},
    };
}

Operations ConversionOperations() {
    return {
        {"ConvertCharset",
         [] {
             int unmapped = 0;
             unsigned char* table = nullptr;
             return ConvertCharset(csWindowsLatin1, csMacRoman, &unmapped, &table) && table['a'] == 'a';
         }},
        {"cCharsetConverter::Create",
         [](Trial& trial) { TryToMake(trial, [] { return cCharsetConverter::Create(); }); }},
        {"cCharsetConverter::Instance", [] { return cCharsetConverter::Instance(cCharsetConverter::Instance()); }},
        {"ConvertMBCSCharToSystem",
         [] {
             TextBuffer text;
             return ConvertMBCSCharToSystem(Narrow, csWindowsGreek, text.units, 100) && text.Is(Words);
         }},
        {"ConvertMBCSCharToSystem, of two bytes to a character",
         [] {
             TextBuffer text;
             return ConvertMBCSCharToSystem("\x93\xfa", 2, csWindowsJapanese, text.units, 100) &&
                    text.Is(ZUTEXT("\u65E5"));
         }},
        {"ConvertSystemToMBCSChar",
         [] {
             char text[100];
             return ConvertSystemToMBCSChar(Words, text, csWindowsGreek, 100, false);
         }},
        {"ConvertSystemToMBCSChar, of two bytes to a character",
         [] {
             char text[100];
             return ConvertSystemToMBCSChar(ZUTEXT("\u65E5"), text, csWindowsJapanese, 100, false) && text[0] == '\x93';
         }},
        {"ConvertSystemToWideChar",
         [] {
             TextBuffer text;
             return ConvertSystemToWideChar(Words, text.units, 100, false);
         }},
        {"ConvertWideCharToSystem",
         [] {
             TextBuffer text;
             return ConvertWideCharToSystem(Words, 13, text.units, csWindowsLatin1, 100);
         }},
        {"ConvertLFToPlatformCRLF",
         [](Trial& trial) {
             TryToGetBlock<wchar16>(trial, [] {
                 TextBuffer text(ZUTEXT("a\nb"));
                 return ConvertLFToPlatformCRLF(text.units);
             });
         }},
        {"ConvertPlatformCRLFToLF",
         [](Trial& trial) {
             TryToGetBlock<wchar16>(trial, [] {
                 TextBuffer text(ZUTEXT("a\r\nb"));
                 return ConvertPlatformCRLFToLF(text.units);
             });
         }},
    };
}

Operations NormalizerOperations() {
    return {
        {"StringNormalizerManager::Create",
         [](Trial& trial) { TryToMake(trial, [] { return StringNormalizerManager::Create(); }); }},
        {"StringNormalizerManager::Instance",
         [] { return StringNormalizerManager::Instance(StringNormalizerManager::Instance()); }},
        {"ConversionCodeForCharset", [] { return ConversionCodeForCharset(csWindowsLatin1, 0x0409) != 0; }},
        {"FindConversionTableCode", [] { return FindConversionTableCode(44414); }},
        {"GetDefaultNormalizer",
         [](Trial& trial) {
             const NewManager manager;
             trial.Try([] { return GetDefaultNormalizer() != nullptr; });
         }},
        {"RequestDefaultNormalizer",
         [](Trial& trial) {
             const NewManager manager;
             trial.Try([] { return RequestDefaultNormalizer(0x0409); });
         }},
        {"GetNormalizer, by table",
         [](Trial& trial) {
             const NewManager manager;
             trial.Try([] { return ByTable() != nullptr; });
         }},
        {"GetNormalizer, by collation",
         [](Trial& trial) {
             if (ByCollation() == nullptr) return;
             const NewManager manager;
             trial.Try([] { return ByCollation() != nullptr; });
         }},
        {"GetNormalizer, with a code that there is not",
         [] {
             ClearErrors();
             const bool isTold = GetNormalizer(csWindowsLatin1, 1, 0) == nullptr && NumErrors() == 1;
             ClearErrors();
             return isTold;
         }},
        {"StringNormalizer::Normalize, by table", [](Trial& trial) { TryToNormalize(trial, ByTable()); }},
        {"UtfStringNormalizerImpl::Normalize", [](Trial& trial) { OnCollation(trial, TryToNormalize); }},
        {"StringNormalizer::NormalizeInPlace, by table", [] { return NormalizesInPlace(ByTable()); }},
        {"UtfStringNormalizerImpl::NormalizeInPlace",
         [] { return !HasCollation() || NormalizesInPlace(ByCollation()); }},
        {"StringNormalizer::Compare, by table", [] { return Compares(ByTable()); }},
        {"UtfStringNormalizerImpl::Compare", [] { return !HasCollation() || Compares(ByCollation()); }},
        {"UtfStringNormalizerImpl::GetCharset",
         [] { return !HasCollation() || ByCollation()->GetCharset() == csUTF16; }},
        {"UtfStringNormalizerImpl::GetConversionCode",
         [] { return !HasCollation() || ByCollation()->GetConversionCode() == 1; }},
        {"UtfStringNormalizerImpl::GetLCID", [] { return !HasCollation() || ByCollation()->GetLCID() == 0x0409; }},
        {"UtfStringNormalizerImpl::IsActive", [] { return !HasCollation() || !ByCollation()->IsActive(); }},
        {"UtfStringNormalizerImpl::IsNormalized",
         [] { return !HasCollation() || !ByCollation()->IsNormalized(LongText); }},
        {"UtfStringNormalizerImpl::GetAsciiCode", TryAsciiCode},
        {"UtfStringNormalizerImpl::UtfStringNormalizerImpl", TryToMakeByCollation},
        {"UtfStringNormalizerImpl::~UtfStringNormalizerImpl", TryToMakeByCollation},
    };
}

void Append(Operations& all, Operations more) {
    all.insert(all.end(), more.begin(), more.end());
}

}  // namespace
}  // namespace text_operations

Operations TextOperations() {
    using namespace text_operations;
    Operations all = StringOperations();
    Append(all, TextToolOperations());
    Append(all, StringCacheOperations());
    Append(all, CharsetOperations());
    Append(all, ConversionOperations());
    Append(all, NormalizerOperations());
    return all;
}

}  // namespace Torvo::test
