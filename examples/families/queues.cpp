// Objects that carry the link themselves, kept in order; the queue owns them only when it is told to delete them.
#include <Utility/queues.h>

#include <cstdio>

#include "show.h"

namespace {

struct Job : Torvo::Q_ELEM {
    explicit Job(int value) : priority(value) {}
    int priority;
};

int ByPriority(Torvo::Q_ELEM* a, Torvo::Q_ELEM* b) {
    return static_cast<Job*>(a)->priority - static_cast<Job*>(b)->priority;
}

}  // namespace

int main() {
    using namespace Torvo;

    QUEUE jobs;
    InitQueue(&jobs);
    for (const int priority : {5, 1, 3}) EnqueueSorted(&jobs, new Job(priority), ByPriority);
    Enqueue(&jobs, new Job(9), 1);  // at the back

    for (const Q_ELEM* job = jobs.head; job != nullptr; job = QueueNext(job)) {
        std::printf("priority %d\n", static_cast<const Job*>(job)->priority);
    }

    Q_ELEM* first = nullptr;
    if (!Dequeue(&jobs, &first, 0)) return 1;
    std::printf("taken: %d, left: %d\n", static_cast<Job*>(first)->priority, CountQueueElements(&jobs));
    delete first;

    DeleteQueue(&jobs);  // these were made by new
    std::printf("empty: %s\n", YesOrNo(NullQueue(&jobs)));
    return 0;
}
