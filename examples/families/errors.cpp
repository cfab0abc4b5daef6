// An error of the application's own, one that the library left, and both told as one message.
#include <Utility/dates.h>
#include <Utility/errors.h>
#include <Utility/instance.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    SetError(ERRORLEVEL_ERROR, ZUTEXT("Row ^0 of ^1 cannot be read."), GUID{}, 4711, ZUTEXT("12"), ZUTEXT("world.tab"));
    zuDATE date;
    LiteralToDate(20230229, &date);  // there is no such day: false, and a record

    for (int32 i = 0; i < NumErrors(); ++i) {
        std::printf("record %d: number %d, resource %d\n", i, GetErrorNum(i), GetResourceID(i));
    }

    // The library's own records come without a format: the application finds one by the resource, and sets it.
    wchar16 text[200];
    GetErrorMsg(ZUTEXT("That is no date."), 1, text, 200);
    std::printf("composed: %s\n", Shown(text).c_str());

    EndError();
    while (GetNextError(true, text, 200)) {
        std::printf("the group: %s\n", Shown(text).c_str());
        ClearErrors();
    }
    std::printf("left: %d\n", NumErrors());

    InstanceData::Destroy(false, false);
    return 0;
}
