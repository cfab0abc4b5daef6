// String normalizers: comparing and sorting text as a language does.
//
// A normalizer turns text into a form in which comparison follows a language's idea of sameness and order: case gone,
// accents folded, national letters in their national place. There are two kinds behind one interface.
//
//   By table     Text is converted to the bytes of a charset, and each byte goes through a table of 256 bytes that says
//                what it folds to. The order of the folded bytes is the sort order: the Swedish table puts Å, Ä and Ö
//                in this order behind Z. A character that the charset lacks is compared as "_". A normal form is text
//                again.
//   Unicode      For csUTF8 and csUTF16, which do not differ, by the collation of a locale as the ICU libraries
//                have it. A normal form is a key text, see below. Names of many languages in one national order need
//                this kind.
//
// CODES. A table is known by its conversion code, the CRC-16 of its 256 bytes. A caller holds the code and not the name
// of a language: ConversionCodeForCharset says which code suits a charset and a locale today, and GetNormalizer gives
// the normalizer for a code that was kept with the data, so that text folded with a table is compared again by that
// very table. The eleven tables are
//
//   65496  any charset; only a to z are folded            34070  csWindowsLatin1, Danish and Norwegian order: Æ, Ø, Å
//   44414  csWindowsLatin1, accents removed               41909  the same order, in the 7-bit national positions
//   40623  csWindowsLatin2, accents removed                1298  csWindowsLatin1, Swedish and Finnish order: Å, Ä, Ö
//   55762  csWindowsCyrillic, case folded                 54273  the same order, in the 7-bit national positions
//   32694  csWindowsGreek, case and tonos folded          56485  as the last, and punctuation collapsed
//   21121  csWindowsTurkish, accents removed
//
// 5607 is an alias of 44414 for csWindowsLatin1 alone: it is what such a normalizer reports, and GetNormalizer takes
// either. A Unicode normalizer has no table; its code says how fine it compares: 0 by letters alone, anything else by
// letters and accents, never by case. (Japanese is always compared in the finest way, on text in capitals.)
//
// KEY TEXTS. The normal form of a Unicode normalizer poses as system text: the bytes EF BB BF BA, the bytes of the
// collation key, a zero byte if the number of bytes so far is odd, and a terminator. Only Compare and IsNormalized
// understand it; comparing two key texts by unit is of no use. Compare takes key texts and plain text in any mixture,
// so a caller that has normalized many texts once compares them without any further work on them. A key is good for the
// normalizer that made it, as long as the same release of ICU is used: do not keep one beyond the program's run.
//
// OWNERSHIP. Normalizers belong to the manager, the service of the caller's instance (<Utility/instance.h>), and are
// valid until it is destroyed. A caller never deletes one. None is ever dropped, so there are as many as different
// requests were made. Blocks that Normalize hands out belong to the caller, who frees them with ffree_
// (<Utility/memory_blocks.h>).
//
// THREADS. Calls on one instance must not overlap, and each normalizer serves one thread at a time.
//
// Example: examples/families/normalizers.cpp
//          examples/families/unicode_normalizer.cpp
#pragma once

#include <Utility/charsets.h>
#include <Utility/platform/types.h>

namespace Torvo {

// What both kinds answer. Objects come from GetNormalizer and GetDefaultNormalizer.
class StringNormalizer {
public:
    virtual ~StringNormalizer() = default;

    // The charset that the normalizer was asked for with.
    virtual ZUCHARSET GetCharset() = 0;
    // The conversion code; see above.
    virtual uint16 GetConversionCode() = 0;
    // The CRC-16 of what the table does to the printable characters of ASCII, 32 to 126: two tables of one such code
    // treat ASCII alike. A Unicode normalizer answers for the default normalizer's table, 0 if there is none.
    virtual uint16 GetAsciiCode() = 0;
    // A value for the caller, which nothing in the library reads: true from GetNormalizer for a table normalizer,
    // always false for a Unicode one.
    virtual bool IsActive() = 0;

    // The normal form of `source` in a new block, which the caller frees with ffree_. *resultLength, unless that
    // pointer is null, becomes the units of the block, terminator included, as allocated: a folded text may end before
    // (a letter and its combining mark make one).
    //
    // By table an empty text gives a block with just a terminator. False for a null `source` or `result`, with nothing
    // written, and where memory is short, with *result null.
    //
    // A Unicode normalizer copies a text that is a key text already, up to its first zero unit, and then leaves
    // *resultLength alone. False, with nothing written, for a null, for an empty text, and where the key cannot be had.
    virtual bool Normalize(const wchar16* source, wchar16** result, uint64* resultLength) = 0;

    // Puts the normal form in the place of `text`. True if that was done.
    //
    // By table `capacity` counts for nothing: a folded text that would be longer than `text` leaves an empty text.
    // (Only csNeutral and csCodePage437 have such, where their page of the moment has two bytes to a character.) A
    // charset without a code page leaves an empty text, since its bytes do not lead back. False for null and where
    // memory is short, with the text as it was.
    //
    // A Unicode normalizer uses `capacity` units, or as many as the text has, without its terminator, when that is 0,
    // and fills what the key leaves with zeros. A key that does not fit is cut, still marked and terminated, and
    // compares by what is left of it. A key text stays as it is, with true. False, with the text as it was, for null,
    // an empty text, room for less than 3 units (2 where the text has just as many), and where the key cannot be had.
    virtual bool NormalizeInPlace(wchar16* text, uint64 capacity) = 0;

    // -1, 0 or 1 as `a` comes before, with or after `b`. 0 if either is null.
    //
    // By table up to 512 units of both texts together are compared without allocating. Where there is no memory for
    // longer ones they are compared by unit, unfolded. A Unicode normalizer answers 0 where a key cannot be had.
    virtual int32 Compare(const wchar16* a, const wchar16* b) = 0;

    // The locale: of a Unicode normalizer the one it works by, which is the system's default when the one asked for has
    // no name; of a table normalizer the calling thread's at each call.
    virtual uint32 GetLCID() = 0;
    // Whether `text` is a key text: by its first bytes, or false by table, since folded text looks like any other.
    // False for null.
    virtual bool IsNormalized(const wchar16* text) = 0;
};

// The service behind the functions below, which explain the operations.
class ZUAPI StringNormalizerManager {
public:
    // Destroys every normalizer.
    virtual ~StringNormalizerManager() = default;
    virtual StringNormalizer* GetDefaultNormalizer() = 0;
    virtual StringNormalizer* GetNormalizer(ZUCHARSET cs, uint16 code, uint32 lcid) = 0;
    virtual bool RequestDefaultNormalizer(int32 lcid) = 0;
    virtual uint16 ConversionCodeForCharset(ZUCHARSET cs, int32 lcid) = 0;

    // A new service without a normalizer, owned by the caller, for the system charset of now; null if memory is short.
    static StringNormalizerManager* Create();
    // The service of the caller's instance.
    static StringNormalizerManager* Instance();
    // Replaces it. The former one is not destroyed: who replaces a service owns the old one.
    static bool Instance(StringNormalizerManager* service);
};

// The normalizer of the system charset as it was when the manager was created (of csWindowsLatin1 if that was csUTF8),
// with the table that ConversionCodeForCharset names for it. Made at the first call, by the locale of the calling
// thread, unless RequestDefaultNormalizer was first. Null, without an error, if that set has no table (csUTF16) or
// memory is short.
ZUAPI StringNormalizer* GetDefaultNormalizer();

// Makes the default normalizer for a locale (0 means the calling thread's), before anyone else does. True if this call
// made it; false if there is one already, which stays, or if it cannot be made.
ZUAPI bool RequestDefaultNormalizer(int32 lcid);

// The normalizer for a charset and a code: the one that an earlier call made, or a new one. Any table is taken with any
// charset, but means something only for the one that the list above gives it. `lcid` counts for csUTF8 and csUTF16
// alone. A Unicode normalizer is found again by the locale that it works by, so asking with 0, or with a locale that
// has no name, makes a new one each time. The default normalizer is never among those that are found.
//
// Null if no table has the code, with error 74 and resource 74 raised, whose parameter is the code; null without an
// error if memory is short. For csUTF8 and csUTF16 it throws UtfStringNormalizerImpl::eCreateError where there is no
// collator to be had, above all on a system without the ICU libraries, or no memory for its parts; the next call tries
// again.
ZUAPI StringNormalizer* GetNormalizer(ZUCHARSET cs, uint16 code, uint32 lcid);

// The code that suits a charset: 40623 for csWindowsLatin2, 0 for csUTF8 and csUTF16, which have no table, and 65496
// for every other set but csWindowsLatin1. For that the locale decides (0 means the calling thread's): 34070 for
// Danish, Norwegian and the Sami of Norway, 1298 for Swedish, Finnish and the Sami of both countries, 44414 for all
// others.
ZUAPI uint16 ConversionCodeForCharset(ZUCHARSET cs, int32 lcid);

// Whether one of the eleven tables has this code. The alias 5607 is not the code of a table.
ZUAPI bool FindConversionTableCode(uint16 code);

// The class of Unicode normalizers. GetNormalizer makes and keeps them; who makes one himself owns it.
class UtfStringNormalizerImpl final : public StringNormalizer {
public:
    enum eCreateError : int32 { eNoCollator = 1 };

    // Throws eNoCollator.
    ZUAPI UtfStringNormalizerImpl(ZUCHARSET charset, uint32 lcid, uint16 code);
    ZUAPI ~UtfStringNormalizerImpl() override;
    UtfStringNormalizerImpl(const UtfStringNormalizerImpl&) = delete;
    UtfStringNormalizerImpl& operator=(const UtfStringNormalizerImpl&) = delete;

    ZUAPI ZUCHARSET GetCharset() override;
    ZUAPI uint16 GetConversionCode() override;
    ZUAPI uint16 GetAsciiCode() override;
    ZUAPI bool IsActive() override;
    ZUAPI bool Normalize(const wchar16* source, wchar16** result, uint64* resultLength) override;
    ZUAPI bool NormalizeInPlace(wchar16* text, uint64 capacity) override;
    ZUAPI int32 Compare(const wchar16* a, const wchar16* b) override;
    ZUAPI uint32 GetLCID() override;
    ZUAPI bool IsNormalized(const wchar16* text) override;

private:
    struct Parts;

    Parts* const parts;
};

}  // namespace Torvo
