#include <Utility/platform/modules.h>
#include <Utility/platform/threads.h>
#include <gtest/gtest.h>
#include <support/fixture_path.h>

#include <array>

namespace modules_internal_test {
namespace {

using namespace Torvo;
using test::DataPath;
using test::Wide;

wstring16 FileName(HINSTANCE module) {
    std::array<wchar16, 1000> name{};
    platform::GetModuleFileNameW(module, name.data(), static_cast<uint32>(name.size()));
    return name.data();
}

wstring16 ProgramDirectory() {
    const wstring16 program = FileName(nullptr);
    return program.substr(0, program.rfind(wchar16{'\\'}) + 1);
}

TEST(Modules, ProgramHasAHandleAndAFullName) {
    const HINSTANCE program = platform::GetModuleHandleW(nullptr);
    ASSERT_NE(program, nullptr);
    EXPECT_EQ(FileName(program), FileName(nullptr));
    EXPECT_EQ(FileName(program).substr(1, 2), ZUTEXT(":\\"));
    EXPECT_NE(FileName(program).find(ZUTEXT("torvo_internal_tests")), wstring16::npos);
}

TEST(Modules, FileNameThatDoesNotFitIsCut) {
    const wstring16 whole = FileName(nullptr);
    const auto length = static_cast<uint32>(whole.size());
    std::array<wchar16, 1000> name{};
    EXPECT_EQ(platform::GetModuleFileNameW(nullptr, name.data(), length + 1), length);
    name.fill('#');
    EXPECT_EQ(platform::GetModuleFileNameW(nullptr, name.data(), length), length);
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(wstring16(name.data(), length - 1), whole.substr(0, length - 1));
    EXPECT_EQ(name[length], '#');
}

TEST(Modules, WhatIsNotLoadedHasNoHandle) {
    EXPECT_EQ(platform::GetModuleHandleW(ZUTEXT("no_such_module")), nullptr);
    EXPECT_EQ(platform::GetLastError(), uint32{ERROR_MOD_NOT_FOUND});
    HINSTANCE module = platform::GetModuleHandleW(nullptr);
    EXPECT_FALSE(platform::GetModuleHandleExW(0, ZUTEXT("no_such_module.dll"), &module));
    EXPECT_EQ(module, nullptr);
}

TEST(Modules, AnAddressLeadsToItsModule) {
    static const int here = 0;
    HINSTANCE module = nullptr;
    ASSERT_TRUE(platform::GetModuleHandleExW(platform::HandleFromAddress | platform::HandleUnchangedRefcount,
                                             reinterpret_cast<const wchar16*>(&here), &module));
    EXPECT_EQ(module, platform::GetModuleHandleW(nullptr));
}

TEST(Modules, CodeIsLoadedFoundUsedAndUnloaded) {
    const wstring16 path = ProgramDirectory() + ZUTEXT("dbinfo.dll");
    EXPECT_EQ(platform::GetModuleHandleW(ZUTEXT("dbinfo.dll")), nullptr);
    const HINSTANCE module = platform::LoadLibraryW(path.c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(platform::GetModuleHandleW(ZUTEXT("dbinfo.dll")), module);
    EXPECT_EQ(platform::GetModuleHandleW(ZUTEXT("dbinfo")), module);
    EXPECT_EQ(platform::GetModuleHandleW(path.c_str()), module);
    EXPECT_EQ(platform::LoadLibraryW(path.c_str()), module);

    void* const entry = platform::GetProcAddress(module, "DllEnsureInit");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(reinterpret_cast<int (*)()>(entry)(), -1);
    EXPECT_EQ(platform::GetProcAddress(module, "NoSuchEntry"), nullptr);
    // What the module itself depends on is not part of it.
    EXPECT_EQ(platform::GetProcAddress(module, "strlen"), nullptr);

    EXPECT_TRUE(platform::FreeLibrary(module));
    EXPECT_EQ(platform::GetModuleHandleW(ZUTEXT("dbinfo.dll")), module);
    EXPECT_TRUE(platform::FreeLibrary(module));
    EXPECT_EQ(platform::GetModuleHandleW(ZUTEXT("dbinfo.dll")), nullptr);
}

TEST(Modules, WhatCannotBeLoadedGivesNull) {
    EXPECT_EQ(platform::LoadLibraryW(ZUTEXT("no_such_module.dll")), nullptr);
    EXPECT_EQ(platform::LoadLibraryW(Wide(DataPath("strings.rc")).c_str()), nullptr);
    EXPECT_EQ(platform::LoadLibraryW(ZUTEXT("\\\\server\\share\\module.dll")), nullptr);
}

TEST(Modules, ResourceLibraryIsCountedAndFreed) {
    const wstring16 path = Wide(DataPath("strings.dll"));
    const HINSTANCE module = platform::LoadLibraryW(path.c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(platform::LoadLibraryW(path.c_str()), module);
    EXPECT_EQ(platform::GetModuleHandleW(ZUTEXT("STRINGS.dll")), module);
    std::array<wchar16, 100> text{};
    EXPECT_EQ(platform::LoadStringW(module, 1, text.data(), 100), 3);
    EXPECT_TRUE(platform::FreeLibrary(module));
    EXPECT_EQ(platform::LoadStringW(module, 1, text.data(), 100), 3);
    EXPECT_TRUE(platform::FreeLibrary(module));
    EXPECT_EQ(platform::GetModuleHandleW(ZUTEXT("strings.dll")), nullptr);
    // The copy of an object may free once more.
    EXPECT_FALSE(platform::FreeLibrary(module));
    EXPECT_EQ(platform::LoadStringW(module, 1, text.data(), 100), 0);
}

TEST(Modules, StringsAreCutToTheBufferAndTerminated) {
    const HINSTANCE module = platform::LoadLibraryW(Wide(DataPath("strings.dll")).c_str());
    ASSERT_NE(module, nullptr);
    std::array<wchar16, 10> text{};
    for (int size = 2; size <= 5; ++size) {
        text.fill('#');
        const int length = platform::LoadStringW(module, 1, text.data(), size);
        EXPECT_EQ(length, std::min(size - 1, 3));
        EXPECT_EQ(wstring16(text.data()), wstring16(ZUTEXT("one")).substr(0, static_cast<std::size_t>(length)));
        EXPECT_EQ(text[static_cast<std::size_t>(size)], '#');
    }
    EXPECT_EQ(platform::LoadStringW(module, 0x10001, text.data(), 10), 3) << "only the low 16 bits count";
    platform::FreeLibrary(module);
}

TEST(Modules, ErrorModeIsRemembered) {
    const uint32 former = platform::SetErrorMode(platform::FailCriticalErrors);
    EXPECT_EQ(platform::SetErrorMode(former), platform::FailCriticalErrors);
}

}  // namespace
}  // namespace modules_internal_test
