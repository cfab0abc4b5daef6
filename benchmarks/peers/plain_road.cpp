#include "plain_road.h"

namespace peer {

namespace {

struct Instance {
    Service* slots[16];
};

class Answer final : public Service {
public:
    bool Ask(bool update) override { return callback != nullptr && update; }

private:
    void* callback = nullptr;
};

thread_local Instance* current = nullptr;

}  // namespace

void Prepare() {
    static Instance instance{};
    static Answer answer;
    instance.slots[1] = &answer;
    current = &instance;
}

bool Ask() {
    return current->slots[1]->Ask(false);
}

}  // namespace peer
