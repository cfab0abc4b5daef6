// The operations of the system and of the C runtime that the library needs, under the platform's own names and with
// their documented contract, by family. The library calls these and nothing else of the system; each family has a
// header here and a source, or a few, in each of the folders `posix` and `windows`.
#pragma once

#include <Utility/platform/clock.h>
#include <Utility/platform/collation.h>
#include <Utility/platform/date_format.h>
#include <Utility/platform/files.h>
#include <Utility/platform/formatted_text.h>
#include <Utility/platform/host.h>
#include <Utility/platform/locales.h>
#include <Utility/platform/modules.h>
#include <Utility/platform/number_text.h>
#include <Utility/platform/regions.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/streams.h>
#include <Utility/platform/structured_storage.h>
#include <Utility/platform/text.h>
#include <Utility/platform/threads.h>
#include <Utility/platform/types.h>
#include <Utility/platform/version.h>
