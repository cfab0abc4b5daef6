// A retry callback that gives the handle which is being opened to another file: that one is not opened.

#include <gtest/gtest.h>
#include <support/fresh_files.h>

namespace Torvo::test {
namespace reused_handles_test {
namespace {

const TempDirectory* directory = nullptr;
int handle = 0;

// Lets the open succeed, but puts another file under the handle.
bool GiveHandleToAnother(eOpenMode, const wchar16* name, int64& state) {
    directory->SetReadOnly(name, false);
    unregister_file(handle);
    EXPECT_EQ(register_file(directory->Path(ZUTEXT("other")).c_str(), ftNone, true), handle);
    return ++state < 3;
}

class OpenReusedHandle : public testing::Test {
protected:
    OpenReusedHandle() : files({.retry = GiveHandleToAnother}) {
        directory = &files.directory;
        files.directory.Write(ZUTEXT("other"), "content of the other");
        handle = files.Make(ZUTEXT("x.dat"), "content");
    }

    void CheckOtherIsClosed() const {
        EXPECT_EQ(TakeErrors(), NoErrors);
        EXPECT_EQ(NameOf(handle), ZUTEXT("other"));
        EXPECT_EQ(GetFileFD(handle), -1);
        EXPECT_EQ(close2(handle), -1);
        ClearErrors();
        EXPECT_EQ(fileopen(handle, omReadWrite, nullptr), handle);
        EXPECT_EQ(ReadBytes(handle, 100), "content of the other");
        EXPECT_EQ(close2(handle), 0);
        EXPECT_EQ(files.directory.Read(ZUTEXT("x.dat")), "content");
    }

    const FreshFiles files;
};

TEST_F(OpenReusedHandle, OfAClosedFile) {
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    EXPECT_EQ(fileopen(handle, omReadWrite, nullptr), -1);
    CheckOtherIsClosed();
}

TEST_F(OpenReusedHandle, OfAFileThatIsHeldToRead) {
    EXPECT_EQ(fileopen(handle, omRead, nullptr), handle);
    files.directory.SetReadOnly(ZUTEXT("x.dat"), true);
    EXPECT_EQ(fileopen(handle, omReadWrite, nullptr), -1);
    CheckOtherIsClosed();
}

}  // namespace
}  // namespace reused_handles_test
}  // namespace Torvo::test
