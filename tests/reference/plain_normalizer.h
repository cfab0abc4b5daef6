// The table normalizer as it is described: every text is converted, folded byte by byte, and converted back.
#pragma once

#include <Utility/conversion.h>
#include <Utility/platform/text.h>
#include <Utility/text/normalization_table.h>

#include <string>
#include <vector>

namespace Torvo::test {

// The folded bytes of a text.
inline std::string PlainFold(const wstring16& text, ZUCHARSET cs, const NormalizationTable& table) {
    std::vector<char> bytes(2 * text.size() + 2, 0);
    ConvertSystemToMBCSChar(text.c_str(), bytes.data(), cs, 2 * text.size() + 1, false);
    std::string folded = bytes.data();
    const auto page = static_cast<uint32>(GetWinCodePage(cs < 1 ? system_charset() : cs));
    bool isSecond = false;
    for (char& byte : folded) {
        const bool isLead = !isSecond && CharsetDBCS(cs) && platform::IsDBCSLeadByteEx(page, static_cast<uint8>(byte));
        if (!isSecond && !isLead) byte = static_cast<char>(table.table[static_cast<uint8>(byte)]);
        isSecond = isLead;
    }
    return folded;
}

inline int PlainCompare(const wstring16& a, const wstring16& b, ZUCHARSET cs, const NormalizationTable& table) {
    const int difference = PlainFold(a, cs, table).compare(PlainFold(b, cs, table));
    return (difference > 0) - (difference < 0);
}

inline wstring16 PlainNormalize(const wstring16& text, ZUCHARSET cs, const NormalizationTable& table) {
    if (text.empty()) return text;
    const std::string folded = PlainFold(text, cs, table);
    std::vector<wchar16> result(text.size() + 2, 0);
    ConvertMBCSCharToSystem(folded.c_str(), cs, result.data(), text.size());
    return result.data();
}

}  // namespace Torvo::test
