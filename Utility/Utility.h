// Everything that Torvo Utility offers, one header per family.
#pragma once

#include <Utility/arcs.h>
#include <Utility/arithmetic.h>
#include <Utility/bounded_copy.h>
#include <Utility/cancel.h>
#include <Utility/charsets.h>
#include <Utility/clipping.h>
#include <Utility/clock.h>
#include <Utility/conversion.h>
#include <Utility/errors.h>
#include <Utility/geometry.h>
#include <Utility/instance.h>
#include <Utility/integer_lists.h>
#include <Utility/linked_lists.h>
#include <Utility/locale_info.h>
#include <Utility/memory_blocks.h>
#include <Utility/metafiles.h>
#include <Utility/platform/host.h>
#include <Utility/platform/types.h>
#include <Utility/queues.h>
#include <Utility/regions.h>
#include <Utility/resources.h>
#include <Utility/sparse_sets.h>
#include <Utility/startup.h>
#include <Utility/strings.h>
#include <Utility/version.h>
