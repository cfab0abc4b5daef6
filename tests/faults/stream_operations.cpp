// The stream world: text through the runtime's streams.
#include <Utility/Utility.h>
#include <faults/file_fixture.h>
#include <faults/operations.h>

#include <cstdarg>

namespace Torvo::test {

namespace stream_operations {
namespace {

int Print(FILE* file, const wchar16* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int result = vfprintf2(file, format, arguments);
    va_end(arguments);
    return result;
}

// Tries a call on a stream, which begins at the start of the file each time: what it answers, and what stands for a
// failure.
template <typename Result>
void TryOn(Trial& trial, FILE* file, Result (*call)(FILE*), Result whole, Result failure) {
    Result got = failure;
    trial.Try(
        [&] {
            got = fseek2(file, 0, 0) == 0 ? call(file) : failure;
            return got == whole;
        },
        [&] { return got == failure; });
}

template <typename Result>
void TryToRead(Trial& trial, Result (*call)(FILE*), Result whole, Result failure) {
    const OpenStream stream(omRead);
    TryOn(trial, stream.file, call, whole, failure);
}

// ... that writes those bytes over the start of the file.
template <typename Result>
void TryToWrite(Trial& trial, Result (*call)(FILE*), Result whole, Result failure, const std::string& bytes) {
    {
        const OpenStream stream(omReadWrite);
        TryOn(trial, stream.file, call, whole, failure);
    }
    EXPECT_EQ(FaultDirectory().Read(ZUTEXT("stream.txt")), bytes + FileContent().substr(bytes.size()));
}

}  // namespace
}  // namespace stream_operations

Operations StreamOperations() {
    using namespace stream_operations;
    return {
        {"ffileopen",
         [](Trial& trial) {
             const wstring16 path = FaultDirectory().Write(ZUTEXT("stream.txt"), FileContent());
             FILE* const file = fregister_file(path.c_str(), ftNone, true);
             trial.Try([&] { return ffileopen(file, omRead, nullptr) == file; },
                       [&] { return NumErrors() <= 1 && GetFilePtr(file) == nullptr; }, {13, 5001});
             EXPECT_EQ(fclose2(file), 0);
             funregister_file(file);
         }},
        {"fclose2",
         [](Trial& trial) {
             const wstring16 path = FaultDirectory().Write(ZUTEXT("stream.txt"), FileContent());
             FILE* const file = fregister_file(path.c_str(), ftNone, true);
             EXPECT_EQ(ffileopen(file, omRead, nullptr), file);
             bool isClosed = false;
             trial.Try([&] {
                 if (!isClosed) fclose2(file);
                 isClosed = true;
                 return GetFilePtr(file) == nullptr;
             });
             funregister_file(file);
         }},
        {"fread2",
         [](Trial& trial) {
             TryToRead<int>(
                 trial,
                 [](FILE* file) {
                     char bytes[5] = {};
                     const auto got = static_cast<int>(fread2(bytes, 1, 5, file));
                     return std::string(bytes, static_cast<std::size_t>(got)) == "one\r\n" ? got : -got;
                 },
                 5, 0);
         }},
        {"fgetc2",
         [](Trial& trial) {
             TryToRead<int>(
                 trial, [](FILE* file) { return fgetc2(file); }, 'o', -1);
         }},
        {"fgets2",
         [](Trial& trial) {
             TryToRead<bool>(
                 trial,
                 [](FILE* file) {
                     TextBuffer line;
                     const bool isRead = fgets2(line.units, 500, file) != nullptr;
                     // A read that fails ends a line that has begun; the stream tells it.
                     if (!isRead || ferror2(file) != 0) return isRead && line.Is(ZUTEXT("one\n"));
                     EXPECT_TRUE(line.Is(ZUTEXT("one\n")));
                     return true;
                 },
                 true, false);
         }},
        {"fseek2",
         [](Trial& trial) {
             TryToRead<int>(
                 trial, [](FILE* file) { return fseek2(file, 3, 0); }, 0, -1);
         }},
        {"ftell2",
         [](Trial& trial) {
             TryToRead<int64>(
                 trial, [](FILE* file) { return ftell2(file); }, 0, -1);
         }},
        {"feof2",
         [](Trial& trial) {
             TryToRead<int>(
                 trial, [](FILE* file) { return fgetc2(file) == 'o' ? feof2(file) : -1; }, 0, -1);
         }},
        {"ferror2",
         [](Trial& trial) {
             const OpenStream stream(omRead);
             EXPECT_EQ(ferror2(stream.file), 0);
             trial.Try([&] { return fgetc2(stream.file) == 'o'; },
                       [&] { return ferror2(stream.file) != 0 && feof2(stream.file) == 0; });
         }},
        {"ffilelength2",
         [](Trial& trial) {
             TryToRead<int64>(
                 trial, [](FILE* file) { return ffilelength2(file); }, 3010, -1);
         }},
        {"ProcessUTFBom, of a stream",
         [](Trial& trial) {
             const OpenStream stream(omReadWrite);
             EXPECT_TRUE(WriteUTFBom(stream.file, csUTF8) && fflush2(stream.file) == 0);
             TryOn<int>(
                 trial, stream.file, [](FILE* file) { return static_cast<int>(ProcessUTFBom(file)); }, csUTF8,
                 csUnknown);
             EXPECT_EQ(ftell2(stream.file), 3);
         }},
        {"fwrite2",
         [](Trial& trial) {
             TryToWrite<int>(
                 trial, [](FILE* file) { return static_cast<int>(fwrite2("abc", 1, 3, file)); }, 3, 0, "abc");
         }},
        {"fputc2",
         [](Trial& trial) {
             TryToWrite<int>(
                 trial, [](FILE* file) { return fputc2('a', file); }, 'a', -1, "a");
         }},
        {"fputs2",
         [](Trial& trial) {
             TryToWrite<int>(
                 trial, [](FILE* file) { return fputs2(ZUTEXT("one\ntwo"), file); }, 0, -1, "one\r\ntwo");
         }},
        {"fprintf2",
         [](Trial& trial) {
             TryToWrite<int>(
                 trial, [](FILE* file) { return fprintf2(file, ZUTEXT("%d"), 12); }, 2, -1, "12");
         }},
        {"cFileSystem::fprintf2",
         [](Trial& trial) {
             TryToWrite<int>(
                 trial, [](FILE* file) { return cFileSystem::Instance()->fprintf2(file, ZUTEXT("%d"), 12); }, 2, -1,
                 "12");
         }},
        {"vfprintf2",
         [](Trial& trial) {
             TryToWrite<int>(
                 trial, [](FILE* file) { return Print(file, ZUTEXT("%600d"), 12); }, 600, -1,
                 std::string(598, ' ') + "12");
         }},
        {"fflush2",
         [](Trial& trial) {
             TryToWrite<int>(
                 trial, [](FILE* file) { return fputs2(ZUTEXT("one"), file) == 0 ? fflush2(file) : -1; }, 0, -1, "one");
         }},
        {"WriteUTFBom, of a stream",
         [](Trial& trial) {
             TryToWrite<bool>(
                 trial, [](FILE* file) { return WriteUTFBom(file, csUTF8); }, true, false, "\xEF\xBB\xBF");
         }},
    };
}

}  // namespace Torvo::test
