// Several threads at work at once, each with services of its own, and a host whose threads share a store. What the
// threads share without knowing (the tables of locales and code pages, which are made at the first use, the process's
// settings) is where a race would be; the thread sanitizer looks at these tests.
#include <Utility/Utility.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>
#include <support/temp_directory.h>

#include <atomic>
#include <cstring>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace threads_test {
namespace {

using namespace Torvo;
using test::DataPath;
using test::TempDirectory;
using test::Wide;

constexpr int kThreads = 4;
constexpr int kRounds = 5;

// Runs the work on several threads, which begin at the same moment; each tells whether its answers were right.
int CountRight(const std::function<bool(int)>& work) {
    // Not std::barrier, which left a thread asleep for ever once on Windows, with the three others past it.
    std::atomic<int> arrived = 0;
    std::atomic<int> right = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; ++number) {
        threads.emplace_back([&, number] {
            ++arrived;
            while (arrived < kThreads) std::this_thread::yield();
            bool isRight = true;
            for (int round = 0; round < kRounds; ++round) isRight = work(number) && isRight;
            right += isRight;
            InstanceData::Destroy(false, false);
        });
    }
    for (std::thread& thread : threads) thread.join();
    return right;
}

bool ConvertsText(int) {
    // Sets that no other test asks for first, one of them with two bytes to a character.
    for (const ZUCHARSET set : {csCodePage869, csWindowsSimpChinese, csUTF8}) {
        char bytes[40] = {};
        wchar16 text[40] = {};
        if (!ConvertSystemToMBCSChar(ZUTEXT("abc"), bytes, set, 40, false)) return false;
        if (!ConvertMBCSCharToSystem(bytes, set, text, 39) || !strequ(text, ZUTEXT("abc"))) return false;
    }
    int unmapped = 0;
    unsigned char* table = nullptr;
    return ConvertCharset(csWindowsGreek, csMacGreek, &unmapped, &table) && table['a'] == 'a';
}

bool ComparesText(int number) {
    static constexpr uint32 locales[] = {0x041D, 0x0406, 0x0405, 0x0411};
    StringNormalizer* const byTable = GetNormalizer(csWindowsLatin1, 1298, 0);
    if (byTable == nullptr || byTable->Compare(ZUTEXT("b"), ZUTEXT("A")) <= 0) return false;
    try {
        StringNormalizer* const byCollation = GetNormalizer(csUTF16, 1, locales[number]);
        return byCollation->Compare(ZUTEXT("b"), ZUTEXT("A")) > 0;
    } catch (UtfStringNormalizerImpl::eCreateError) {
        return true;  // this system has no collation
    }
}

bool AsksForLocales(int number) {
    static constexpr uint32 locales[] = {0x0407, 0x040C, 0x0415, 0x041F};
    const uint32 before = platform::GetThreadLocale();
    bool isRight = true;
    for (int i = 0; i < kThreads; ++i) {
        const int at = (number + i) % kThreads;
        platform::SetThreadLocale(locales[at]);
        wchar16 decimal[10];
        isRight =
            isRight && GetLocaleIdentifier() == locales[at] && GetLocaleString(0x0E, decimal, 10) && decimal[0] == ',';
    }
    platform::SetThreadLocale(before);  // numbers of other families are read in it
    return isRight;
}

bool ReadsAndPrintsNumbers(int number) {
    wchar16 text[40];
    double value = 0;
    DoubleToString(number + 0.25, text, 40, false, 2, PRINTF_FORMAT_F, 0);
    if (!StringToDouble(text, &value, nullptr) || value != number + 0.25) return false;
    double read = 0;
    return zuSQLDoubleToString(number + 0.5, ZUTEXT("99.9"), text, 40) &&
           zuSQLStringToDouble(ZUTEXT("12.5"), ZUTEXT("99.9"), &read) && read == 12.5 && random_number(10) < 10;
}

bool ReadsAndPrintsDates(int number) {
    const zuDATE date = {2024, 2, static_cast<int8>(1 + number)};
    wchar16 text[80];
    zuDATE read = {};
    if (!zuSQLDateToString(date, ZUTEXT("dd-mm-yyyy"), text, 80)) return false;
    if (!zuSQLStringToDate(text, ZUTEXT("dd-mm-yyyy"), &read) || DateCmp(&date, &read) != 0) return false;
    const std::unique_ptr<zuDateTime> moment(CreateDateTimeFromSystemTime());
    return moment != nullptr && FormatDateString(text, 80, date, ZUTEXT("dddd d MMMM"));
}

bool RaisesErrors(int number) {
    static constexpr GUID kind = {1, 2, 3, {4}};
    ClearErrors();
    for (int i = 0; i <= number; ++i) SetError(ERRORLEVEL_ERROR, ZUTEXT("%s"), kind, 100 + i, ZUTEXT("text"), nullptr);
    const bool isRight = NumErrors() == number + 1 && ThisErrorOccurred(100 + number);
    ClearErrors();
    return isRight;
}

bool LooksTextsUp(int) {
    const cResourceDLL library(Wide(DataPath("strings.dll")).c_str());
    return strequ(library[1], ZUTEXT("one")) && strequ(library[15], ZUTEXT("last of the first block"));
}

bool FillsContainers(int number) {
    const std::unique_ptr<ZUList<uint64>> list(ZUList<uint64>::Create());
    flist* set = flist_init();
    for (int i = 0; i < 500; ++i) {
        list->Add(static_cast<uint64>(i) * 77);
        flist_add(set, i * 7001 + number);
    }
    const bool isRight = list->Count() == 500 && flist_count(set) == 500;
    flist_destroy(set);
    return isRight;
}

bool WorksOnFiles(int number) {
    const TempDirectory directory;
    const wstring16 path = directory.Path(ZUTEXT("file") + wstring16(1, static_cast<wchar16>('0' + number)));
    const int file = register_file(path.c_str(), ftNone, true);
    char bytes[5] = {};
    bool isRight = fileopen(file, omCreate, nullptr) == file && write2(file, "abcd", 4) == 4;
    isRight = isRight && lseek2(file, 0, 0) == 0 && read2(file, bytes, 4) == 4 && std::strcmp(bytes, "abcd") == 0;
    isRight = close2(file) == 0 && isRight;
    isRight = fileremove(file) && isRight;
    unregister_file(file);
    wchar16 name[261] = {};
    tempname(name, directory.Path().c_str());
    return isRight && name[0] != 0;
}

bool WritesText(int number) {
    const TempDirectory directory;
    const wstring16 path = directory.Path(ZUTEXT("text") + wstring16(1, static_cast<wchar16>('0' + number)));
    FILE* const file = fregister_file(path.c_str(), ftNone, true);
    bool isRight = ffileopen(file, omCreate, nullptr) == file;
    file_put_charset(file, csUTF8);
    isRight = isRight && fprintf2(file, ZUTEXT("line %d\n"), number) > 0 && fseek2(file, 0, 0) == 0;
    wchar16 line[40] = {};
    isRight = isRight && fgets2(line, 40, file) != nullptr && line[5] == '0' + number;
    isRight = fclose2(file) == 0 && isRight;
    funregister_file(file);
    return isRight;
}

bool LooksForFiles(int) {
    const TempDirectory directory;
    directory.Write(ZUTEXT("sub\\a"), "");
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(directory.Path().c_str(), true));
    wchar16 out[261] = {};
    wchar16 relative[261] = ZUTEXT("b");
    qualify_filename(relative);
    return search->Find(ZUTEXT("a"), out, 261) && file_exists(out, ftNone) && get_current_module_dir() != nullptr;
}

bool CombinesRegions(int number) {
    const LRECT square = {0, 0, 10 + number, 10};
    const HRGN region = rgn_create(&square);
    LRECT bounds = {};
    rgn_bounding_rect(region, &bounds);
    rgn_destroy(region);
    return bounds.x2 == 10 + number;
}

bool StartsUp(int) {
    // The literal font is chosen once in a process, which another test watches.
    UtilDllEnsureInit();
    HINSTANCE none = nullptr;
    return GetDefaultRotatableFont() != nullptr && !LoadZULibrary(ZUTEXT("no_such_library"), nullptr, none);
}

struct Work {
    const char* name;
    bool (*work)(int number);
};

constexpr Work works[] = {
    {"Conversion", ConvertsText},   {"Normalizers", ComparesText},
    {"Locales", AsksForLocales},    {"Numbers", ReadsAndPrintsNumbers},
    {"Dates", ReadsAndPrintsDates}, {"Errors", RaisesErrors},
    {"Resources", LooksTextsUp},    {"Containers", FillsContainers},
    {"Files", WorksOnFiles},        {"Streams", WritesText},
    {"Paths", LooksForFiles},       {"Regions", CombinesRegions},
    {"StartUp", StartsUp},
};

class ThreadsWithServices : public testing::TestWithParam<Work> {};

TEST_P(ThreadsWithServices, OfTheirOwnDoNotMeet) {
    EXPECT_EQ(CountRight(GetParam().work), kThreads);
}

INSTANTIATE_TEST_SUITE_P(Families, ThreadsWithServices, testing::ValuesIn(works),
                         [](const auto& work) { return work.param.name; });

TEST(ThreadsAtWork, OnEverythingAtOnceDoNotMeet) {
    EXPECT_EQ(CountRight([](int number) {
                  bool isRight = true;
                  // Each begins with another family, so that different ones run beside each other.
                  constexpr std::size_t count = std::size(works);
                  for (std::size_t i = 0; i < count; ++i) {
                      isRight = works[(i + static_cast<std::size_t>(number) * 3) % count].work(number) && isRight;
                  }
                  return isRight;
              }),
              kThreads);
}

// A host whose threads share one instance, and take turns by a lock of the host's, as the library asks for.
std::mutex hostLock;
InstanceData* hostInstance = nullptr;

InstanceData* GetOfHost() {
    return hostInstance;
}
bool SetOfHost(InstanceData* instance) {
    hostInstance = instance;
    return true;
}

TEST(ThreadsOfAHost, TakeTurnsOnOneInstance) {
    const TempDirectory directory;
    const wstring16 path = directory.Path(ZUTEXT("shared.bin"));
    std::thread([&] {
        SetExternalDataStorage(GetOfHost, SetOfHost);
        const int file = register_file(path.c_str(), ftNone, true);
        EXPECT_EQ(fileopen(file, omCreate, nullptr), file);
        std::vector<std::thread> threads;
        for (int number = 0; number < kThreads; ++number) {
            threads.emplace_back([&] {
                for (int i = 0; i < 50; ++i) {
                    const std::lock_guard lock(hostLock);
                    const int64 length = filelength2(file);
                    lseek2(file, length, 0);
                    EXPECT_EQ(write2(file, "abcd", 4), 4);
                }
            });
        }
        for (std::thread& thread : threads) thread.join();
        EXPECT_EQ(filelength2(file), kThreads * 50 * 4);
        EXPECT_EQ(close2(file), 0);
        unregister_file(file);
        InstanceData::Destroy(false, false);
        ClearExternalDataStorage();
    }).join();
    EXPECT_EQ(directory.Read(ZUTEXT("shared.bin")).size(), static_cast<std::size_t>(kThreads * 50 * 4));
}

}  // namespace
}  // namespace threads_test
