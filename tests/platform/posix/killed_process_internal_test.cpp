// What is on disk after a process was killed while it held a file.

#include <gtest/gtest.h>
#include <signal.h>
#include <support/fresh_files.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Torvo::test {
namespace killed_process_internal_test {
namespace {

// Runs in a process of its own, which ends without a word.
[[noreturn]] void WriteAndBeKilled(int file) {
    fileopen(file, omCreate, nullptr);
    WriteBytes(file, std::string(1000, 'f'));
    cFileCache::Instance()->Flush(file);
    WriteBytes(file, std::string(1000, 'l'));
    kill(getpid(), SIGKILL);
    _exit(0);
}

TEST(KilledProcess, LeavesWhatItHadFlushed) {
    const FreshFiles files;
    const int file = files.Register(ZUTEXT("x"));
    const pid_t child = fork();
    if (child == 0) WriteAndBeKilled(file);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(files.directory.Read(ZUTEXT("x")), std::string(1000, 'f') + std::string(1000, '\0'));

    // Nor does its lock outlive it.
    EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
    close2(file);
}

}  // namespace
}  // namespace killed_process_internal_test
}  // namespace Torvo::test
