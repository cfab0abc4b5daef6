// The error numbers of the Windows runtime, which is what the library's callers see, for those of this system.
#include <Utility/platform/posix/system_calls.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace system_calls_internal_test {
namespace {

using namespace Torvo;

TEST(RuntimeErrorNumbers, StandForThoseOfThisSystem) {
    constexpr struct {
        int error;
        int expected;
    } numbers[] = {
        {ENOTDIR, ENOENT}, {ENAMETOOLONG, ENOENT}, {EPERM, EACCES},  {EISDIR, EACCES}, {EROFS, EACCES},
        {EBUSY, EACCES},   {ETXTBSY, EACCES},      {EDQUOT, ENOSPC}, {EDEADLK, 36},    {ENOLCK, 39},
        {ENOSYS, 40},      {ENOTEMPTY, 41},        {EILSEQ, 42},     {ELOOP, 114},     {EOPNOTSUPP, 130},
        {EOVERFLOW, 132},  {EACCES, EACCES},       {ERANGE, ERANGE}, {ESTALE, EINVAL},
    };
    for (const auto& number : numbers) EXPECT_EQ(platform::RuntimeErrno(number.error), number.expected) << number.error;
}

}  // namespace
}  // namespace system_calls_internal_test
