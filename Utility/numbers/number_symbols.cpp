#include <Utility/numbers/number_symbols.h>

#include <Utility/locale_info.h>

namespace Torvo {

namespace {

void TakeFirstUnit(const wchar16* text, wchar16& symbol) {
    if (text != nullptr && *text != 0) symbol = *text;
}

}  // namespace

void NumberSymbols::LookUpSeparators() {
    hasSeparators = true;
    const _numberfmtW* const format = GetNumberFmtPtr();
    if (format == nullptr) return;
    TakeFirstUnit(format->lpDecimalSep, separators.decimal);
    TakeFirstUnit(format->lpThousandSep, separators.thousands);
}

wchar16 NumberSymbols::Currency() {
    if (!hasCurrency) TakeFirstUnit(GetCurrencySymbol(), currency);
    hasCurrency = true;
    return currency;
}

}  // namespace Torvo
