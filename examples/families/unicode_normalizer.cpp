// Names of any language in one national order: key texts, made once and compared often.
#include <Utility/instance.h>
#include <Utility/memory_blocks.h>
#include <Utility/normalizers.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "show.h"

namespace {

using namespace Torvo;

struct Place {
    const wchar16* name;
    wchar16* key;
};

// Null where the system has no collation.
StringNormalizer* Swedish() {
    try {
        return GetNormalizer(csUTF16, 1, 0x041D);  // sv-SE; the code 1: by letters and accents
    } catch (const UtfStringNormalizerImpl::eCreateError&) {
        return nullptr;
    }
}

}  // namespace

int main() {
    StringNormalizer* const swedish = Swedish();
    if (swedish == nullptr) {
        std::puts("skipped: this system has no ICU libraries");
        return 77;
    }

    std::vector<Place> places;
    for (const wchar16* name : {ZUTEXT("\u00d6rebro"), ZUTEXT("\u0141\u00f3d\u017a"), ZUTEXT("\u00c5m\u00e5l"),
                                ZUTEXT("Zinkgruvan"), ZUTEXT("\u00c4lmhult")}) {
        wchar16* key = nullptr;
        if (!swedish->Normalize(name, &key, nullptr)) return 1;
        places.push_back({name, key});
    }

    // A key text is compared with a key text without any further work on either.
    std::sort(places.begin(), places.end(),
              [swedish](const Place& a, const Place& b) { return swedish->Compare(a.key, b.key) < 0; });
    for (const Place& place : places) std::printf("%s\n", Shown(place.name).c_str());

    // Case never counts, accents do, and plain text may stand beside a key text.
    std::printf("the same in capitals: %s\n", YesOrNo(swedish->Compare(places.back().key, ZUTEXT("\u00d6REBRO")) == 0));
    std::printf("the same without dots: %s\n", YesOrNo(swedish->Compare(places.back().key, ZUTEXT("Orebro")) == 0));

    for (Place& place : places) {
        void* block = place.key;
        ffree_(&block);
    }
    InstanceData::Destroy(false, false);
    return 0;
}
