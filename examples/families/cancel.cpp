// A long operation that asks, and an application that wants it to stop at the third question.
#include <Utility/cancel.h>
#include <Utility/instance.h>

#include <cstdio>

class StopButton : public Torvo::cCheckEscCallback {
public:
    bool CheckEsc(bool update) override {
        ++questions;
        std::printf("question %d%s\n", questions, update ? ", and the display may be brought up to date" : "");
        return questions >= 3;
    }
    void CancelConfirmed() override { std::printf("the operation has stopped\n"); }

private:
    int questions = 0;
};

int main() {
    using namespace Torvo;

    std::printf("without a callback: %s\n", CheckEsc() ? "stop" : "go on");

    StopButton button;
    InitCheckEscCallback(&button);
    int steps = 0;
    while (!CheckEsc4Update(steps == 1)) ++steps;
    CancelConfirmed();
    std::printf("%d steps were done\n", steps);

    InitCheckEscCallback(nullptr);  // it is not owned, and must be gone before the button is
    InstanceData::Destroy(false, false);
    return 0;
}
