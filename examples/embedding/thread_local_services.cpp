// The first way to embed: do nothing. Each thread has services of its own, and gives them back before it ends.
#include <Utility/Utility.h>

#include <cstdio>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "show.h"

namespace {

using namespace Torvo;

// Gives the thread's services back, on every way out of a thread's function.
struct ThreadServices {
    ThreadServices() = default;
    ThreadServices(const ThreadServices&) = delete;
    ThreadServices& operator=(const ThreadServices&) = delete;
    ~ThreadServices() { InstanceData::Destroy(false, false); }
};

// What a worker finds out, as plain values: handles, error records and locale settings mean nothing on another thread.
struct Answer {
    int handle = 0;
    int errors = 0;
    std::string number;
};

void Work(uint32 locale, const wchar16* name, Answer& answer) {
    const ThreadServices services;

    platform::SetThreadLocale(locale);
    wchar16 text[32];
    answer.number = Shown(DoubleToString(1234.5, text, 32, true, 1, PRINTF_FORMAT_F, -1));

    answer.handle = register_file(name, ftTxt, true);
    fileopen(answer.handle, omRead, nullptr);  // it is not there: an error record of this thread
    answer.errors = NumErrors();
}

}  // namespace

int main() {
    const ThreadServices services;

    std::vector<Answer> answers(2);
    std::thread german(Work, 0x0407, ZUTEXT("eins.txt"), std::ref(answers[0]));
    std::thread english(Work, 0x0409, ZUTEXT("one.txt"), std::ref(answers[1]));
    german.join();
    english.join();

    for (const Answer& answer : answers) {
        std::printf("handle %d, %d error(s), %s\n", answer.handle, answer.errors, answer.number.c_str());
    }
    std::printf("this thread: %d error(s)\n", NumErrors());
    return 0;
}
