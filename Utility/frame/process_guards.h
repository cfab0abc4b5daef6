// The static guards that other files than startup.cpp enter. They are defined there, since their order matters.
#pragma once

#include <Utility/frame/guard.h>

namespace Torvo {

extern ZUGuard handleLimitGuard;  // the reading of the environment's budget of files
extern ZUGuard randomGuard;       // the seeding of random_number

}  // namespace Torvo
