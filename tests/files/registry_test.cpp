#include <Utility/instance.h>
#include <Utility/paths.h>

#include <gtest/gtest.h>
#include <support/fresh_files.h>
#include <support/system_charset.h>

#include <thread>

namespace Torvo::test {
namespace registry_test {
namespace {

class Registry : public testing::Test {
protected:
    wstring16 Path(const wchar16* name) const { return files.directory.Path(name); }

    FreshFiles files;
};

TEST_F(Registry, TheFirstHandleIs1000AndIsGivenAgainOnceItIsFree) {
    const int first = files.Register(ZUTEXT("a.dat"));
    EXPECT_EQ(first, 1000);
    EXPECT_EQ(files.Register(ZUTEXT("b.dat")), 1001);
    unregister_file(first);
    EXPECT_EQ(files.Register(ZUTEXT("c.dat")), 1000);
    EXPECT_EQ(files.Register(ZUTEXT("d.dat")), 1002);
}

TEST_F(Registry, TheLowestOfTheFreeHandlesIsTaken) {
    for (int i = 0; i < 10; ++i) register_nonunique_file(Path(ZUTEXT("x")).c_str(), ftNone);
    for (const int file : {1007, 1003, 1005}) unregister_file(file);
    for (const int expected : {1003, 1005, 1007, 1010}) {
        EXPECT_EQ(register_nonunique_file(Path(ZUTEXT("x")).c_str(), ftNone), expected);
    }
}

TEST_F(Registry, HandlesStayValidWhenTheTableGrows) {
    for (int i = 0; i < 250; ++i) {
        const wstring16 name = ZUTEXT("C:\\") + wstring16(static_cast<std::size_t>(i + 1), wchar16{'n'});
        ASSERT_EQ(register_file(name.c_str(), ftNone, true), 1000 + i);
    }
    for (int i = 0; i < 250; ++i) EXPECT_EQ(NameOf(1000 + i).size(), static_cast<std::size_t>(i + 1));
}

TEST_F(Registry, AFileNeedNotExistAndIsNotMade) {
    EXPECT_NE(files.Register(ZUTEXT("nothing\\here.dat")), 0);
    EXPECT_FALSE(files.directory.Has(ZUTEXT("nothing")));
    EXPECT_EQ(TakeErrors(), NoErrors);
}

TEST_F(Registry, TheSameNameIsRefusedWhereItShallBeUnique) {
    const int first = files.Register(ZUTEXT("Same.dat"));
    EXPECT_EQ(register_file(Path(ZUTEXT("sAME.DAT")).c_str(), ftNone, true), 0);
    EXPECT_EQ(TakeErrors(), OneError(8, 50, ZUTEXT("sAME.DAT")));

    const int second = register_file(Path(ZUTEXT("same.dat")).c_str(), ftNone, false);
    EXPECT_EQ(second, 1001);
    EXPECT_EQ(TakeErrors(), NoErrors);
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("SAME.dat")).c_str(), ftNone), first);
    unregister_file(first);
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("SAME.dat")).c_str(), ftNone), second);
    unregister_file(second);
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("SAME.dat")).c_str(), ftNone), 0);
}

TEST_F(Registry, ANonuniqueFileIsNeverRefused) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(register_nonunique_file(Path(ZUTEXT("x.dat")).c_str(), ftNone), 1000 + i);
    }
    EXPECT_EQ(fregister_nonunique_file(Path(ZUTEXT("x.dat")).c_str(), ftNone),
              reinterpret_cast<FILE*>(std::intptr_t{1003}));
    EXPECT_EQ(TakeErrors(), NoErrors);
}

TEST_F(Registry, DirectoriesAreComparedWithoutRegardToCaseToo) {
    const int file = files.Register(ZUTEXT("Sub\\x.dat"));
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("sUB\\X.DAT")).c_str(), ftNone), file);
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("Other\\x.dat")).c_str(), ftNone), 0);
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("Sub\\y.dat")).c_str(), ftNone), 0);
}

TEST_F(Registry, NoFileIsRegisteredInAnEmptyTable) {
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("x.dat")).c_str(), ftNone), 0);
}

TEST_F(Registry, TypeZeroMatchesEveryType) {
    const int typed = register_file(Path(ZUTEXT("x.dat")).c_str(), FILETYPE(18), true);
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("x.dat")).c_str(), ftNone), typed);
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("x.dat")).c_str(), FILETYPE(18)), typed);
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("x.dat")).c_str(), FILETYPE(4)), 0);
    EXPECT_EQ(register_file(Path(ZUTEXT("x.dat")).c_str(), ftNone, true), 0);
    EXPECT_EQ(register_file(Path(ZUTEXT("x.dat")).c_str(), FILETYPE(4), true), 1001);

    const int untyped = register_file(Path(ZUTEXT("y.dat")).c_str(), ftNone, true);
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("y.dat")).c_str(), FILETYPE(4)), untyped);
}

TEST_F(Registry, ANameIsForcedToTheExtensionOfATypeThatForcesIt) {
    const int file = files.Register(ZUTEXT("x.dat"), FILETYPE(5));
    EXPECT_EQ(NameOf(file), ZUTEXT("x.MAP"));
    EXPECT_EQ(is_file_registered(Path(ZUTEXT("x.img")).c_str(), FILETYPE(5)), file);
    EXPECT_EQ(NameOf(files.Register(ZUTEXT("y.dat"), FILETYPE(1))), ZUTEXT("y.dat"));
}

TEST_F(Registry, ARelativeNameIsQualifiedAgainstTheCurrentDirectory) {
    const int file = register_file(ZUTEXT("sub/../x.dat"), ftNone, true);
    wchar16 expected[261] = ZUTEXT("x.dat");
    relativepath2fullpath(expected);
    EXPECT_EQ(PathOf(file), expected);
    EXPECT_EQ(DirectoryOf(file).back(), wchar16{'\\'});
    EXPECT_EQ(DirectoryOf(file) + NameOf(file), PathOf(file));
}

TEST_F(Registry, ARootKeepsItsSeparator) {
    const int file = register_file(ZUTEXT("C:\\x.dat"), ftNone, true);
    EXPECT_EQ(DirectoryOf(file), ZUTEXT("C:\\"));
    EXPECT_EQ(NameOf(file), ZUTEXT("x.dat"));
}

TEST_F(Registry, BothWorldsUseTheSameNumbers) {
    FILE* const stream = fregister_file(files.directory.Write(ZUTEXT("x.txt"), "text").c_str(), FILETYPE(4), true);
    EXPECT_EQ(fileno2(stream), 1000);
    EXPECT_EQ(fileno2(ffileopen(stream, omRead, nullptr)), 1000);
    fclose2(stream);
    EXPECT_EQ(fregister_file(Path(ZUTEXT("x.txt")).c_str(), FILETYPE(4), true), nullptr);
    EXPECT_EQ(TakeErrors(), OneError(8, 50, ZUTEXT("x.txt")));
    funregister_file(stream);
    EXPECT_EQ(NameOf(1000), ZUTEXT(""));
    EXPECT_EQ(fileno2(reinterpret_cast<FILE*>(std::intptr_t{77})), 77);
}

// Variants ----------------------------------------------------------------------------------------------------------

TEST_F(Registry, AVariantIsASiblingWithTheExtensionOfItsType) {
    const int table = files.Register(ZUTEXT("Sub\\world.TAB"), FILETYPE(1));
    const int forced = register_file_variant(table, ZUTEXT("ignored"), FILETYPE(5));
    EXPECT_EQ(PathOf(forced), Path(ZUTEXT("Sub\\world.MAP")));
    const int recommended = register_file_variant(table, nullptr, FILETYPE(18));
    EXPECT_EQ(PathOf(recommended), Path(ZUTEXT("Sub\\world.DAT")));
    const int plain = register_file_variant(table, nullptr, ftNone);
    EXPECT_EQ(plain, 0);  // the name stays as it is, and is registered already
    EXPECT_EQ(TakeErrors(), OneError(8, 50, ZUTEXT("world.TAB")));
}

TEST_F(Registry, AVariantOfNothingIsAFileOfItsOwn) {
    const int named = register_file_variant(0, Path(ZUTEXT("own.dat")).c_str(), FILETYPE(18));
    EXPECT_EQ(PathOf(named), Path(ZUTEXT("own.dat")));
    EXPECT_EQ(register_file_variant(0, Path(ZUTEXT("own.dat")).c_str(), FILETYPE(18)), 0);
    EXPECT_EQ(TakeErrors(), OneError(8, 50, ZUTEXT("own.dat")));
}

TEST_F(Registry, AVariantWithoutANameIsTemporary) {
    torvo_temp_dir(files.directory.Path().c_str());
    const int file = register_file_variant(0, nullptr, FILETYPE(5));
    ASSERT_NE(file, 0);
    EXPECT_NE(NameOf(file).find(ZUTEXT("~ZUN")), wstring16::npos);
    EXPECT_FALSE(files.directory.Has(NameOf(file)));
}

TEST_F(Registry, AVariantDoesNotInheritTheCharset) {
    const int base = files.Register(ZUTEXT("x.tab"), FILETYPE(1));
    file_put_charset(base, csMacGreek);
    EXPECT_EQ(file_get_charset(register_file_variant(base, nullptr, FILETYPE(5))), system_charset());
}

TEST_F(Registry, ThereIsNoVariantOfAnUnknownHandle) {
    EXPECT_EQ(register_file_variant(1234, ZUTEXT("x.dat"), FILETYPE(5)), 0);
    EXPECT_EQ(register_file_variant(-1, nullptr, FILETYPE(5)), 0);
}

// What is known of a file -------------------------------------------------------------------------------------------

TEST_F(Registry, TheCharsetSurvivesCloseAndReopenAndEndsWithTheEntry) {
    const int file = files.Make(ZUTEXT("x.txt"), "x");
    EXPECT_EQ(file_get_charset(file), system_charset());
    file_put_charset(file, csWindowsGreek);
    ASSERT_EQ(fileopen(file, omRead, nullptr), file);
    close2(file);
    ASSERT_EQ(fileopen(file, omReadWrite, nullptr), file);
    EXPECT_EQ(file_get_charset(file), csWindowsGreek);
    FILE* const stream = reinterpret_cast<FILE*>(std::intptr_t{file});
    EXPECT_EQ(file_get_charset(stream), csWindowsGreek);
    file_put_charset(stream, csUTF8);
    EXPECT_EQ(file_get_charset(file), csUTF8);
    close2(file);
    unregister_file(file);
    EXPECT_EQ(file_get_charset(files.Register(ZUTEXT("x.txt"))), system_charset());
}

TEST_F(Registry, AnUnknownHandleIsFoundByNoCall) {
    files.Register(ZUTEXT("x.dat"));
    for (const int file : {0, -1, 1, 999, 1001, 1100, 2'000'000'000, -2'000'000'000}) {
        SCOPED_TRACE(file);
        FILE* const stream = reinterpret_cast<FILE*>(std::intptr_t{file});
        EXPECT_EQ(fileopen(file, omRead, nullptr), -1);
        EXPECT_EQ(ffileopen(stream, omRead, nullptr), nullptr);
        EXPECT_EQ(close2(file), -1);
        EXPECT_EQ(fclose2(stream), -1);
        EXPECT_EQ(filehandle_get_openmode(file), 1);
        EXPECT_EQ(file_get_charset(file), -1);
        EXPECT_EQ(file_get_charset(stream), -1);
        file_put_charset(file, csUTF8);
        EXPECT_EQ(NameOf(file), ZUTEXT(""));
        EXPECT_EQ(DirectoryOf(file), ZUTEXT(""));
        EXPECT_EQ(PathOf(file), ZUTEXT(""));
        EXPECT_EQ(PathOf([file](wchar16* out) { fhandle2partialpath(file, out, 1000); }), ZUTEXT(""));
        EXPECT_EQ(GetFileFD(file), -1);
        EXPECT_EQ(GetFilePtr(stream), nullptr);
        unregister_file(file);
        funregister_file(stream);
    }
    EXPECT_EQ(TakeErrors(), NoErrors);
    EXPECT_EQ(NameOf(1000), ZUTEXT("x.dat"));
}

TEST_F(Registry, TheNextHandleIsFoundByNoCallBeforeItIsRegistered) {
    EXPECT_EQ(fileopen(1000, omRead, nullptr), -1);
    const int file = files.Register(ZUTEXT("x.dat"));
    unregister_file(file);
    EXPECT_EQ(fileopen(file, omRead, nullptr), -1);
    unregister_file(file);
    EXPECT_EQ(files.Register(ZUTEXT("y.dat")), file);
    EXPECT_EQ(files.Register(ZUTEXT("z.dat")), file + 1);
}

TEST_F(Registry, TheDescriptorAndTheStreamAreThoseOfTheRuntime) {
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    FILE* const stream = reinterpret_cast<FILE*>(std::intptr_t{file});
    EXPECT_EQ(GetFileFD(file), -1);
    fileopen(file, omRead, nullptr);
    EXPECT_GE(GetFileFD(file), 0);
    EXPECT_EQ(GetFilePtr(stream), nullptr);
    close2(file);
    ffileopen(stream, omRead, nullptr);
    EXPECT_EQ(GetFileFD(file), -1);
    ASSERT_NE(GetFilePtr(stream), nullptr);
    EXPECT_EQ(std::fgetc(GetFilePtr(stream)), 'c');
    fclose2(stream);
    EXPECT_EQ(GetFilePtr(stream), nullptr);
}

TEST_F(Registry, TheModeIsThatOfTheLastOpen) {
    const int file = files.Make(ZUTEXT("x.dat"), "content");
    EXPECT_EQ(filehandle_get_openmode(file), 0);
    fileopen(file, omReadWrite, nullptr);
    EXPECT_EQ(filehandle_get_openmode(file), 2);
    fileopen(file, omRead, nullptr);
    EXPECT_EQ(filehandle_get_openmode(file), 2);
    close2(file);
    close2(file);
    EXPECT_EQ(filehandle_get_openmode(file), 2);
}

TEST_F(Registry, APartialPathIsWithoutTheDirectoryOfTheBase) {
    const int base = files.Register(ZUTEXT("Base\\x.tab"));
    const int inside = files.Register(ZUTEXT("base\\deep\\y.tab"));
    const int beside = files.Register(ZUTEXT("base2\\z.tab"));
    const auto partial = [](int file, int from) {
        return PathOf([=](wchar16* out) { fhandle2partialpath(file, out, from); });
    };
    EXPECT_EQ(partial(inside, base), ZUTEXT("deep\\y.tab"));
    EXPECT_EQ(partial(base, base), ZUTEXT("x.tab"));
    EXPECT_EQ(partial(beside, base), Path(ZUTEXT("base2\\z.tab")));
    EXPECT_EQ(partial(base, inside), Path(ZUTEXT("Base\\x.tab")));
    EXPECT_EQ(partial(base, 1999), Path(ZUTEXT("Base\\x.tab")));
    const int current = register_file(ZUTEXT("below\\x.tab"), ftNone, true);
    EXPECT_EQ(partial(current, 0), ZUTEXT("below\\x.tab"));
}

// Unregistering -----------------------------------------------------------------------------------------------------

TEST_F(Registry, UnregisteringWritesWhatIsDirtyAndClosesWhoeverHoldsTheFile) {
    const int file = files.Make(ZUTEXT("x.dat"), "");
    fileopen(file, omReadWrite, nullptr);
    fileopen(file, omReadWrite, nullptr);
    ASSERT_EQ(WriteBytes(file, "dirty"), 5);
    EXPECT_EQ(ContentOnDisk(file, files.directory, ZUTEXT("x.dat")), "");
    unregister_file(file);
    EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "dirty");
    EXPECT_EQ(GetFileFD(file), -1);

    // Nothing of it is left for the next file of this handle.
    const int next = files.Make(ZUTEXT("y.dat"), "other");
    EXPECT_EQ(next, file);
    EXPECT_EQ(fileopen(next, omRead, nullptr), next);
    EXPECT_EQ(ReadBytes(next, 10), "other");
    EXPECT_EQ(close2(next), 0);
}

// Outside the contract ----------------------------------------------------------------------------------------------

TEST_F(Registry, NothingIsToldToNobody) {
    const int file = files.Register(ZUTEXT("a"));
    for (const int handle : {file, 0}) {
        fhandle2name(handle, nullptr);
        fhandle2dir(handle, nullptr);
        fhandle2path(handle, nullptr);
        fhandle2partialpath(handle, nullptr, 0);
    }
    EXPECT_EQ(NameOf(file), ZUTEXT("a"));
}

TEST_F(Registry, ANullNameIsNotRegistered) {
    EXPECT_EQ(register_file(nullptr, ftNone, true), 0);
    EXPECT_EQ(is_file_registered(nullptr, ftNone), 0);
    EXPECT_EQ(fregister_file(nullptr, ftNone, false), nullptr);
}

TEST_F(Registry, AnOverlongNameIsCut) {
    const wstring16 name = ZUTEXT("C:\\") + wstring16(1000, wchar16{'n'});
    const int file = register_file(name.c_str(), ftNone, true);
    ASSERT_NE(file, 0);
    EXPECT_LE(PathOf(file).size(), 260u);
    unregister_file(file);
}

TEST(RegistryPerThread, EachThreadHasATableOfItsOwn) {
    int handles[2] = {};
    for (int& handle : handles) {
        std::thread([&handle] {
            handle = register_file(ZUTEXT("x.dat"), ftNone, true);
            unregister_file(handle);
            InstanceData::Destroy(false, false);
        }).join();
    }
    EXPECT_EQ(handles[0], 1000);
    EXPECT_EQ(handles[1], 1000);
}

TEST_F(Registry, APathThatIsLongerThanAPathIsNotTold) {
    const wstring16 longest = ZUTEXT("C:\\") + wstring16(200, 'd') + ZUTEXT("\\") + wstring16(55, 'n');
    const int file = register_file(longest.c_str(), ftHtml, true);
    ASSERT_NE(file, 0);
    EXPECT_EQ(NameOf(file), wstring16(55, 'n') + ZUTEXT(".html"));
    EXPECT_EQ(DirectoryOf(file), ZUTEXT("C:\\") + wstring16(200, 'd') + ZUTEXT("\\"));
    EXPECT_EQ(PathOf(file), ZUTEXT(""));
    EXPECT_EQ(PathOf([file](wchar16* out) { fhandle2partialpath(file, out, file); }), ZUTEXT(""));
    EXPECT_EQ(register_file_variant(file, nullptr, ftTab), 0);
}

TEST_F(Registry, AVariantOfTheLongestPathIsNoLongerThanAPath) {
    wstring16 longest = ZUTEXT("C:");
    while (longest.size() < 200) longest += wchar16{'\\'} + wstring16(20, wchar16{'d'});
    longest += wchar16{'\\'};
    longest += wstring16(259 - longest.size(), wchar16{'n'});
    const int base = register_file(longest.c_str(), FILETYPE(18), true);
    ASSERT_EQ(PathOf(base).size(), 259u);
    const int variant = register_file_variant(base, nullptr, FILETYPE(74));
    EXPECT_TRUE(variant == 0 || PathOf(variant).size() <= 260);
}

TEST(FileSystemService, IsPartOfEveryInstanceUnderItsKey) {
    EXPECT_NE(cFileSystem::Instance(), nullptr);
    EXPECT_EQ(GetInstanceData()->GetSlot(2), cFileSystem::Instance());
    EXPECT_EQ(GetInstanceData()->GetSlot(8), cFileCache::Instance());
    ASSERT_NE(cFileCache::Instance(), nullptr);
    EXPECT_EQ(cFileCache::Instance()->BlockCount(), 2047);
    EXPECT_EQ(cFileCache::Instance()->BlockSize(), 16384);
    EXPECT_EQ(GetFileAccessRetryTime(), 200);
}

TEST(FileSystemService, AHostMayPutInItsOwn) {
    cFileSystem* const former = cFileSystem::Instance();
    cFileSystem* const own = cFileSystem::Create(3, false, nullptr);
    EXPECT_TRUE(cFileSystem::Instance(own));
    EXPECT_EQ(GetMaxFileCount(), 3);
    EXPECT_TRUE(cFileSystem::Instance(former));
    EXPECT_EQ(own->GetMaxFileCount(), 3);
    delete own;
}

}  // namespace
}  // namespace registry_test
}  // namespace Torvo::test
