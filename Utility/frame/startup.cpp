#include <Utility/frame/storage.h>

// The static objects of the library, all in this file, because their order is that of their definitions: each may rely
// on those above it, and they are cleaned up in the reverse order. None of the clean-ups touches a service.

namespace Torvo {

StorageFrame storageFrame;

}  // namespace Torvo
