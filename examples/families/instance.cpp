// Each thread has services of its own, made at its first call: what one records, another does not see.
#include <Utility/errors.h>
#include <Utility/instance.h>

#include <cstdio>
#include <thread>

namespace {

constexpr unsigned int MyKey = 100;  // any key above 15 is the program's own

void Tell(const char* who) {
    const bool isSet = Torvo::GetInstanceData()->GetSlot(MyKey) != nullptr;
    std::printf("%s: %d error(s), my slot is %s\n", who, Torvo::NumErrors(), isSet ? "set" : "empty");
}

}  // namespace

int main() {
    using namespace Torvo;

    int settings = 7;
    GetInstanceData()->SetSlot(MyKey, &settings);
    SetError(ERRORLEVEL_ERROR, ZUTEXT("^0 is not there."), GUID{}, 1, ZUTEXT("a.tab"), nullptr);

    Tell("the main thread ");
    std::thread([] {
        Tell("a second thread ");
        InstanceData::Destroy(false, false);  // before the thread ends, or its services are leaked
    }).join();
    Tell("the main thread ");

    InstanceData::Destroy(false, false);
    Tell("after Destroy   ");  // a call made anew what it needs
    InstanceData::Destroy(false, false);
    return 0;
}
