// The normalizer that works in a byte charset through a folding table.
#pragma once

#include <Utility/normalizers.h>
#include <Utility/text/normalization_table.h>
#include <Utility/text/unit_folding.h>

namespace Torvo {

class StringNormalizerImpl : public StringNormalizer {
public:
    enum eCreateError : int32 { eNoTable = 1 };

    // With csWindowsLatin1 the table of 44414 goes under an alias: the normalizer reports this code instead.
    static constexpr uint16 Latin1Code = 44414;
    static constexpr uint16 Latin1Alias = 5607;

    // The table is not owned. Throws eNoTable for null.
    StringNormalizerImpl(ZUCHARSET cs, const NormalizationTable* foldingTable);

    ZUCHARSET GetCharset() override { return charset; }
    uint16 GetConversionCode() override { return conversionCode; }
    uint16 GetAsciiCode() override { return table->asciiCode; }
    bool IsActive() override { return active; }
    bool Normalize(const wchar16* source, wchar16** result, uint64* resultLength) override;
    bool NormalizeInPlace(wchar16* text, uint64 capacity) override;
    int32 Compare(const wchar16* a, const wchar16* b) override;
    uint32 GetLCID() override;
    bool IsNormalized(const wchar16* text) override;
    virtual void SetActive(bool isActive);

private:
    int32 CompareAny(const wchar16* a, const wchar16* b) const;
    int32 CompareShort(const wchar16* a, uint64 lengthA, const wchar16* b, uint64 lengthB) const;
    int32 CompareLong(const wchar16* a, uint64 lengthA, const wchar16* b, uint64 lengthB) const;
    int32 CompareConverted(const wchar16* a, uint64 lengthA, const wchar16* b, uint64 lengthB, char* bytes) const;
    void Fold(const wchar16* text, uint64 length, char* bytes) const;

    const ZUCHARSET charset;
    const NormalizationTable* const table;
    const uint16 conversionCode;
    bool active = true;
    const UnitFolding units;
};

// Folds zero-terminated text of `cs`, in place. In a multi-byte charset lead bytes and the bytes behind them stay.
void ApplyNormalizationTable(char* text, ZUCHARSET cs, const NormalizationTable& table);

}  // namespace Torvo
