// The list against its plain form, over random operations.
#include <gtest/gtest.h>
#include <reference/plain_error_list.h>
#include <support/error_texts.h>
#include <support/random_text.h>

#include <memory>

namespace error_list_model_test {
namespace {

using namespace Torvo;
using test::GuidOf;
using test::SameGuid;

constexpr unsigned SeedCount = 150;
constexpr int OperationsPerSeed = 240;
constexpr int OperationsPerComparison = 6;

std::vector<wstring16> FormatPieces() {
    return {ZUTEXT("^0"), ZUTEXT("^1"),     ZUTEXT("^^"),         ZUTEXT("a"),      ZUTEXT("bc "), ZUTEXT("\n"),
            ZUTEXT("9"),  ZUTEXT("\u0301"), ZUTEXT("\U0001F600"), ZUTEXT("\u3042"), ZUTEXT("^0"),  ZUTEXT("x^1")};
}

std::vector<wstring16> TextPieces() {
    return {ZUTEXT("1"),  ZUTEXT("7"),          ZUTEXT("p"),
            ZUTEXT("\n"), ZUTEXT(" "),          ZUTEXT("^0"),
            ZUTEXT("-3"), ZUTEXT("\U0001F600"), ZUTEXT("a longer parameter text, of fifty units or so ..")};
}

class Both {
public:
    using PlainRecord = test::PlainErrorList::Record;

    explicit Both(unsigned seed) : formats(seed, FormatPieces()), texts(seed + 1, TextPieces()) {
        list->SetErrorFunctions(&application);
    }

    void Step() {
        switch (formats.Number(24)) {
            case 0:
                return Clear();
            case 1:
            case 2:
            case 3:
                return EndGroup();
            case 4:
            case 5:
            case 6:
                return ReadGroup(false);
            case 7:
            case 8:
                return ReadGroup(true);
            case 9:
                return Report();
            case 10:
            case 11:
                return GiveFormat();
            case 12:
                return ChangeApplication();
            case 13:
                return Enumerate();
            default:
                return Raise();
        }
    }

    void Compare() {
        ASSERT_EQ(list->HaveErrors(), plain.HaveErrors());
        ASSERT_EQ(list->NumErrors(), plain.NumErrors());
        ASSERT_EQ(list->FirstError(), plain.FirstError());
        for (int32 i = 0; i < 30; ++i) {
            ASSERT_EQ(list->GetErrorNum(i), plain.ErrorNum(i)) << i;
            ASSERT_EQ(list->GetResourceID(i), plain.ResourceId(i)) << i;
            ASSERT_TRUE(SameGuid(list->GetErrorGUID(i), plain.Guid(i))) << i;
            ASSERT_EQ(test::Message(*list, static_cast<uint64>(i)), plain.Message(nullptr, i)) << i;
        }
        for (int32 number = -1; number < 20; ++number) {
            ASSERT_EQ(list->ThisErrorOccurred(number), plain.ThisErrorOccurred(number)) << number;
        }
    }

private:
    void Clear() {
        list->ClearErrors();
        plain.ClearErrors();
    }

    void EndGroup() {
        list->EndError();
        plain.EndError();
    }

    void Raise() {
        const wstring16 format = formats.Text(5);
        const wstring16 param0 = texts.Text(3);
        const wstring16 param1 = texts.Text(3);
        const wchar16* const format0 = formats.Number(3) == 0 ? nullptr : format.c_str();
        const wchar16* const text0 = formats.Number(4) == 0 ? nullptr : param0.c_str();
        const wchar16* const text1 = formats.Number(4) == 0 ? nullptr : param1.c_str();
        const int32 level = static_cast<int32>(formats.Number(9)) - 2;
        const int32 number = static_cast<int32>(formats.Number(formats.Number(2) == 0 ? 18 : 1000)) - 1;
        const int32 resource = static_cast<int32>(formats.Number(100));
        const GUID guid = GuidOf(static_cast<uint32>(formats.Number(1000)));
        if (formats.Number(2) == 0) {
            list->SetError(static_cast<eErrorLevel>(level), resource, format0, guid, number, text0, text1);
            plain.SetError(level, resource, format0, guid, number, text0, text1);
        } else {
            list->SetError(static_cast<eErrorLevel>(level), format0, guid, number, text0, text1);
            plain.SetError(level, -1, format0, guid, number, text0, text1);
        }
    }

    void ReadGroup(bool first) {
        const uint64 size = 52 + formats.Number(formats.Number(6) == 0 ? 200 : 8000);
        std::vector<wchar16> buffer(size + 1, wchar16{0xABCD});
        wstring16 expected;
        const bool found = list->GetNextError(first, buffer.data(), size);
        ASSERT_EQ(found, plain.NextError(first, &expected, size));
        ASSERT_EQ(wstring16(buffer.data()), expected);
        ASSERT_EQ(buffer[size], 0xABCD);
    }

    void Report() {
        wstring16 expected;
        application.reported = ZUTEXT("none");
        list->ReportErrors();
        if (!plain.Report(&expected)) expected = ZUTEXT("none");
        ASSERT_EQ(application.reported, expected);
    }

    void GiveFormat() {
        const int32 index = static_cast<int32>(formats.Number(30));
        const wstring16 format = formats.Text(5);
        ASSERT_EQ(test::Message(*list, static_cast<uint64>(index), format.c_str()),
                  plain.Message(format.c_str(), index));
    }

    void ChangeApplication() {
        application.suppressed = plain.suppressed = formats.Number(5) == 0;
        application.keepDuplicates = plain.keepDuplicates = formats.Number(3) == 0;
        plain.prefix = formats.Number(2) == 0 ? wstring16() : texts.Text(2);
        application.prefix = plain.prefix.empty() && formats.Number(2) == 0 ? nullptr : plain.prefix.c_str();
    }

    static std::vector<PlainRecord>* seen;
    static void See(const GUID* guid, const int32* number, const wchar16* const* param0, const int32* param0Length,
                    const wchar16* const* param1, const int32* param1Length) {
        PlainRecord record;
        record.guid = *guid;
        record.number = *number;
        record.param0.assign(*param0, static_cast<std::size_t>(*param0Length));
        record.param1.assign(*param1, static_cast<std::size_t>(*param1Length));
        seen->push_back(record);
    }

    void Enumerate() {
        const bool clear = formats.Number(4) == 0;
        std::vector<PlainRecord> found;
        seen = &found;
        list->EnumerateErrors(&See, clear);
        const std::vector<PlainRecord> expected = plain.Enumerate(clear);
        ASSERT_EQ(found.size(), expected.size());
        for (std::size_t i = 0; i < found.size(); ++i) {
            ASSERT_TRUE(SameGuid(found[i].guid, expected[i].guid));
            ASSERT_EQ(found[i].number, expected[i].number);
            ASSERT_EQ(found[i].param0, expected[i].param0);
            ASSERT_EQ(found[i].param1, expected[i].param1);
        }
    }

    test::RandomText formats;
    test::RandomText texts;
    test::RecordingApplication application;
    const std::unique_ptr<cErrorSystem> list{cErrorSystem::Create()};
    test::PlainErrorList plain;
};

std::vector<Both::PlainRecord>* Both::seen = nullptr;

TEST(ErrorListModel, EveryAnswerIsThatOfThePlainForm) {
    for (unsigned seed = 1; seed <= SeedCount; ++seed) {
        SCOPED_TRACE(seed);
        Both both(seed);
        for (int i = 0; i < OperationsPerSeed; ++i) {
            both.Step();
            if (i % OperationsPerComparison == 0) both.Compare();
            if (HasFatalFailure()) return;
        }
    }
}

}  // namespace
}  // namespace error_list_model_test
