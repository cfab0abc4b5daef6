// The stream world: text through the runtime's streams.
#include <Utility/Utility.h>
#include <faults/file_fixture.h>
#include <faults/operations.h>

#include <cstdarg>

namespace Torvo::test {

namespace {

int Print(FILE* file, const wchar16* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int result = vfprintf2(file, format, arguments);
    va_end(arguments);
    return result;
}

// Tries a call on a stream that reads, which begins at the start of the file each time.
void TryToRead(Trial& trial, bool (*call)(FILE*)) {
    const OpenStream stream(omRead);
    trial.Try([&] { return fseek2(stream.file, 0, 0) == 0 && call(stream.file); });
}

void TryToWrite(Trial& trial, bool (*call)(FILE*)) {
    const OpenStream stream(omReadWrite);
    trial.Try([&] { return fseek2(stream.file, 0, 0) == 0 && call(stream.file); });
}

}  // namespace

Operations StreamOperations() {
    return {
        {"ffileopen",
         [](Trial& trial) {
             const wstring16 path = FaultDirectory().Write(ZUTEXT("stream.txt"), FileContent());
             FILE* const file = fregister_file(path.c_str(), ftNone, true);
             trial.Try([&] { return ffileopen(file, omRead, nullptr) == file; },
                       [&] { return GetFilePtr(file) == nullptr; });
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
             TryToRead(trial, [](FILE* file) {
                 char bytes[16];
                 return fread2(bytes, 1, 16, file) == 16;
             });
         }},
        {"fgetc2", [](Trial& trial) { TryToRead(trial, [](FILE* file) { return fgetc2(file) == 'o'; }); }},
        {"fgets2",
         [](Trial& trial) {
             TryToRead(trial, [](FILE* file) {
                 TextBuffer line;
                 return fgets2(line.units, 500, file) != nullptr && line.Is(ZUTEXT("one\n"));
             });
         }},
        {"fseek2", [](Trial& trial) { TryToRead(trial, [](FILE* file) { return fseek2(file, 3, 0) == 0; }); }},
        {"ftell2", [](Trial& trial) { TryToRead(trial, [](FILE* file) { return ftell2(file) == 0; }); }},
        {"feof2", [](Trial& trial) { TryToRead(trial, [](FILE* file) { return feof2(file) == 0; }); }},
        {"ferror2",
         [](Trial& trial) {
             const OpenStream stream(omRead);
             trial.Try([&] { return ferror2(stream.file) == 0; });
         }},
        {"ffilelength2", [](Trial& trial) { TryToRead(trial, [](FILE* file) { return ffilelength2(file) == 3010; }); }},
        {"ProcessUTFBom, of a stream",
         [](Trial& trial) { TryToRead(trial, [](FILE* file) { return ProcessUTFBom(file) == csUnknown; }); }},
        {"fwrite2",
         [](Trial& trial) { TryToWrite(trial, [](FILE* file) { return fwrite2("abc", 1, 3, file) == 3; }); }},
        {"fputc2", [](Trial& trial) { TryToWrite(trial, [](FILE* file) { return fputc2('a', file) == 'a'; }); }},
        {"fputs2",
         [](Trial& trial) { TryToWrite(trial, [](FILE* file) { return fputs2(ZUTEXT("one\ntwo"), file) == 0; }); }},
        {"fprintf2",
         [](Trial& trial) { TryToWrite(trial, [](FILE* file) { return fprintf2(file, ZUTEXT("%d"), 12) == 2; }); }},
        {"cFileSystem::fprintf2",
         [](Trial& trial) {
             TryToWrite(trial,
                        [](FILE* file) { return cFileSystem::Instance()->fprintf2(file, ZUTEXT("%d"), 12) == 2; });
         }},
        {"vfprintf2",
         [](Trial& trial) { TryToWrite(trial, [](FILE* file) { return Print(file, ZUTEXT("%600d"), 12) == 600; }); }},
        {"fflush2",
         [](Trial& trial) {
             TryToWrite(trial, [](FILE* file) { return fputs2(ZUTEXT("one"), file) == 0 && fflush2(file) == 0; });
         }},
        {"WriteUTFBom, of a stream",
         [](Trial& trial) { TryToWrite(trial, [](FILE* file) { return WriteUTFBom(file, csUTF8); }); }},
    };
}

}  // namespace Torvo::test
