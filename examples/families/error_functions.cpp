// An application that takes part in its errors: a prefix for each group, a place where reports go, and a while in which
// nothing is collected.
#include <Utility/errors.h>
#include <Utility/instance.h>

#include <cstdio>

#include "show.h"

namespace {

using namespace Torvo;

class ImportErrors final : public cErrorFuncs {
public:
    bool isProbing = false;

    void ReportErrorText(const wchar16* text) override { std::printf("reported:\n%s\n", Shown(text).c_str()); }
    bool ErrorsSuppressed() override { return isProbing; }
    bool KeepDuplicateErrors() override { return false; }
    const wchar16* GetErrorPrefix(int32 sinceEndError) override {
        return sinceEndError == 0 ? ZUTEXT("Import: ") : nullptr;
    }
};

void RaiseBadRow(const wchar16* row) {
    SetError(ERRORLEVEL_ERROR, ZUTEXT("Row ^0 cannot be read."), GUID{}, 4711, row, nullptr);
}

}  // namespace

int main() {
    ImportErrors application;
    SetErrorFunctions(&application);

    application.isProbing = true;  // what fails now is expected to, and leaves no record
    RaiseBadRow(ZUTEXT("1"));
    std::printf("while probing: %d records\n", NumErrors());
    application.isProbing = false;

    RaiseBadRow(ZUTEXT("12"));
    RaiseBadRow(ZUTEXT("13"));  // the same number again: one record stands for both
    SetError(ERRORLEVEL_ERROR, ZUTEXT("The map has gaps."), GUID{}, 4712, nullptr, nullptr);
    std::printf("afterwards: %d records\n", NumErrors());

    EndError();
    ReportErrors();
    std::printf("left: %d\n", NumErrors());

    SetErrorFunctions(nullptr);  // the object is the application's, and must outlive its use
    InstanceData::Destroy(false, false);
    return 0;
}
