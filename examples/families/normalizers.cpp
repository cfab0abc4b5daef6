// Comparing as a language does: by a folding table, which is kept with the data by its code.
#include <Utility/instance.h>
#include <Utility/memory_blocks.h>
#include <Utility/normalizers.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    const uint16 swedish = ConversionCodeForCharset(csWindowsLatin1, 0x041D);  // for the locale sv-SE
    StringNormalizer* const byTable = GetNormalizer(csWindowsLatin1, swedish, 0);
    StringNormalizer* const plain = GetNormalizer(csWindowsLatin1, 44414, 0);  // accents removed
    std::printf("the code: %d\n", byTable->GetConversionCode());

    const wchar16* const lake = ZUTEXT("\u00c4lgsj\u00f6n");  // "Älgsjön"
    std::printf("Zinkgruvan before it, in Swedish order: %s\n",
                YesOrNo(byTable->Compare(ZUTEXT("Zinkgruvan"), lake) < 0));
    std::printf("and with the accents removed: %s\n", YesOrNo(plain->Compare(ZUTEXT("Zinkgruvan"), lake) < 0));
    std::printf("the same as algsjon then: %s\n", YesOrNo(plain->Compare(ZUTEXT("algsjon"), lake) == 0));

    wchar16* folded = nullptr;
    uint64 length = 0;
    if (!plain->Normalize(lake, &folded, &length)) return 1;
    std::printf("its normal form: %s, %llu units\n", Shown(folded).c_str(), static_cast<unsigned long long>(length));
    void* block = folded;
    ffree_(&block);

    InstanceData::Destroy(false, false);  // the normalizers end with it
    return 0;
}
