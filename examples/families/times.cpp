// A time of day, a span, a moment, and what adding does to each.
#include <Utility/date_times.h>
#include <Utility/instance.h>
#include <Utility/platform/host.h>
#include <Utility/time_spans.h>
#include <Utility/times.h>

#include <cstdio>
#include <memory>

#include "show.h"

int main() {
    using namespace Torvo;

    platform::SetThreadLocale(0x0409);
    wchar16 text[60];

    const std::unique_ptr<zuTime> time(CreateTime(23, 15, 30, 2500000));
    std::printf("literal %lld\n", static_cast<long long>(time->ToLiteral()));
    std::printf("two hours later it is the same day: %s\n", YesOrNo(time->AddHours(2)));
    time->ToString(text, 60, ZUTEXT("HH:mm:ss.fff"));
    std::printf("%s\n", Shown(text).c_str());
    std::printf("there is a 24:00: %s\n", YesOrNo(CreateTime(24, 0, 0) != nullptr));

    const std::unique_ptr<zuDateTime> start(CreateDateTimeFromLiteral(20240228, 2200000000000));
    const std::unique_ptr<zuDateTime> end(CreateDateTimeFromString(ZUTEXT("3/1/2024 1:30 AM")));
    const std::unique_ptr<zuTimeSpan> between(end->SubtractDateTime(start.get()));
    between->ToString(text, 60, nullptr, true);
    std::printf("between them: %s, or %.1f hours\n", Shown(text).c_str(), between->GetTotalHours());

    start->AddSpan(between.get());
    std::printf("the same moment then: %s\n", YesOrNo(zuDateTime::Compare(start.get(), end.get()) == ZU_CMP_EQUAL));

    InstanceData::Destroy(false, false);
    return 0;
}
