#include <Utility/numbers/number_symbols.h>

#include <Utility/locale_info.h>

namespace Torvo {

namespace {

void TakeFirstUnit(const wchar16* text, wchar16& symbol) {
    if (text != nullptr && *text != 0) symbol = *text;
}

}  // namespace

NumberSymbols LookUpNumberSymbols() {
    NumberSymbols symbols;
    if (const _numberfmtW* const format = GetNumberFmtPtr()) {
        TakeFirstUnit(format->lpDecimalSep, symbols.decimal);
        TakeFirstUnit(format->lpThousandSep, symbols.thousands);
    }
    TakeFirstUnit(GetCurrencySymbol(), symbols.currency);
    return symbols;
}

}  // namespace Torvo
