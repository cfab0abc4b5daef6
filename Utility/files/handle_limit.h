// The budget of open files that a file system gets when nothing else is said: 507, or what the environment asks for.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

inline constexpr int32 DefaultFileBudget = 507;
// What the environment may ask for: values below the first are taken for DefaultFileBudget, those above the last are
// ignored.
inline constexpr int32 LowestRaisedBudget = 508;
inline constexpr int32 HighestRaisedBudget = 2040;

// The budget that the text of ZU_MAX_FILE_HANDLES asks for; DefaultFileBudget for null.
int32 FileBudgetFrom(const wchar16* text);

// The budget of the process.
int32 FileBudget();

// Reads the environment when the library is loaded and tells the runtime of a raised budget. Only the first object of
// the process does so.
class cMaxFileHandleHelper {
public:
    cMaxFileHandleHelper();
};

}  // namespace Torvo
