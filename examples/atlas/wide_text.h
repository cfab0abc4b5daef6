// Between the program's own bytes, which are UTF-8, and the library's text.
#pragma once

#include <Utility/Utility.h>

#include <string>
#include <vector>

namespace atlas {

inline Torvo::wstring16 Wide(const std::string& utf8) {
    std::vector<Torvo::wchar16> units(utf8.size() + 1);
    Torvo::ConvertMBCSCharToSystem(utf8.c_str(), Torvo::csUTF8, units.data(), units.size());
    return units.data();
}

inline std::string Narrow(const Torvo::wstring16& text) {
    std::vector<char> bytes(text.size() * 3 + 1);
    Torvo::ConvertSystemToMBCSChar(text.c_str(), bytes.data(), Torvo::csUTF8, bytes.size(), false);
    return bytes.data();
}

// A whole number as the user's locale writes it.
inline Torvo::wstring16 InLocale(Torvo::int64 number) {
    Torvo::wchar16 text[64];
    return Torvo::DoubleToString(static_cast<double>(number), text, std::size(text), true, 0, Torvo::PRINTF_FORMAT_F,
                                 -1);
}

}  // namespace atlas
