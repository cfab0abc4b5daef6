// zuSQLDateToString and zuSQLStringToDate beside their plain form, over random dates, formats and texts.
#include <Utility/sql_dates.h>
#include <gtest/gtest.h>
#include <reference/plain_sql_dates.h>
#include <support/date_names.h>
#include <support/guarded_buffer.h>
#include <support/random.h>

namespace sql_dates_model_test {
namespace {

using namespace Torvo;
using test::GuardedBuffer;
using test::PlainSqlDates;

class SqlDatesByPlainForm : public test::DateNames {
protected:
    // Mostly what dates are; at times anything that the fields hold.
    zuDATE RandomDate() {
        const auto year = random.OneIn(4) ? random.Between(-32768, 32767) : random.Between(0, 2999);
        const auto month = random.OneIn(5) ? random.Between(-128, 127) : random.Between(0, 13);
        const auto day = random.OneIn(5) ? random.Between(-128, 127) : random.Between(0, 31);
        return {static_cast<int16>(year), static_cast<int8>(month), static_cast<int8>(day)};
    }

    // Runs of letters, so that words come about, with delimiters, quotes and other letters between them.
    wstring16 RandomFormat() {
        wstring16 format;
        for (int64 runs = random.Between(0, 11); runs > 0; --runs) {
            format += wstring16(static_cast<std::size_t>(random.OneIn(3) ? random.Between(1, 5) : 1), RandomUnit());
        }
        return format;
    }

    // What the format prints, changed or not, or something else.
    wstring16 RandomText(const wstring16& printed) {
        wstring16 text = random.OneIn(5) ? wstring16() : printed;
        if (!text.empty() && !random.OneIn(3)) return text;
        for (int64 changes = random.Between(0, 4); changes > 0; --changes) {
            if (text.empty() || random.OneIn(2)) {
                text += RandomUnit();
            } else {
                text[static_cast<std::size_t>(random.Between(0, static_cast<int64>(text.size()) - 1))] = RandomUnit();
            }
        }
        return text;
    }

    test::Random random;

private:
    wchar16 RandomUnit() {
        static const wstring16 units = ZUTEXT("ddmmyyDMYhsft'\" \t\n\r-/.,x:91");
        return units[static_cast<std::size_t>(random.Between(0, static_cast<int64>(units.size()) - 1))];
    }
};

// In a buffer of exactly the size that it needs; one unit less is refused.
wstring16 Printed(const zuDATE& date, const wstring16& format, const wstring16& expected) {
    GuardedBuffer small(expected.size());
    EXPECT_FALSE(zuSQLDateToString(date, format.c_str(), small.Start(), expected.size()));
    GuardedBuffer exact(expected.size() + 1);
    if (!zuSQLDateToString(date, format.c_str(), exact.Start(), expected.size() + 1)) return ZUTEXT("refused");
    return exact.Text();
}

std::string Read(const wstring16& text, const wstring16& format) {
    zuDATE date = {77, 7, 7};
    if (zuSQLStringToDate(text.c_str(), format.c_str(), &date)) return test::Told(date);
    EXPECT_EQ(test::Told(date), "77-7-7");
    return test::TakeDateErrors();
}

TEST_F(SqlDatesByPlainForm, PrintAndReadAlike) {
    SCOPED_TRACE(random.About());
    int readable = 0;
    for (int round = 0; round < 20'000 && !HasFailure(); ++round) {
        const zuDATE date = RandomDate();
        const wstring16 format = RandomFormat();
        const wstring16 printed = PlainSqlDates::Print(date, format);
        EXPECT_EQ(Printed(date, format, printed), printed) << test::Told(date);
        const wstring16 text = RandomText(printed);
        const std::string expected = PlainSqlDates::Read(text, format);
        EXPECT_EQ(Read(text, format), expected);
        if (expected.find('(') == std::string::npos) ++readable;
    }
    EXPECT_GT(readable, 3'000) << "most texts are to be read";
}

}  // namespace
}  // namespace sql_dates_model_test
