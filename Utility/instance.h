// Instance data: the private set of services on which every call of the library works.
//
// The library has no global service objects. Every service (file system, error list, locale, character sets and so on)
// is a singleton only relative to an InstanceData, an object that holds a small table of service pointers under fixed
// keys. Which InstanceData a call sees is decided by a store. By default the store is thread-local: each thread owns a
// complete private set, created at its first call. A host may install a store of its own through two callbacks, and
// then decides itself who shares what; the library takes no lock around the services, so a host that returns one
// instance to several threads serialises its calls.
//
// The keys of the services are
//
//   1 cCheckEsc   2 cFileSystem   3 cLocaleInfo   4 cCharsetConverter   5 cCharsetInfo   7 cErrorSystem
//   8 cFileCache   9 cStringResourceBuffers   13 StringNormalizerManager
//
// and 6, 10, 11 and 12 are free. They are created in the order 9, 7, 3, 5, 4, 13, 1, 2, 8 and deleted in the order 9,
// 7, 13, 5, 4, 3, 1, 2, 8. When one cannot be created, for want of memory, it and those after it are missing: its
// `Instance` gives null, and the free functions that need it must not be called.
//
// Nothing is cleaned up when a thread ends. A thread that used the library calls InstanceData::Destroy before it ends,
// or its services, with their open files and buffers, are leaked.
//
// Example: examples/families/instance.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// The set of services: a table of pointers, which it does not own. A call on one instance must not overlap another.
class ZUAPI InstanceData {
public:
    // Releases the table, not the services; see Destroy.
    virtual ~InstanceData() = default;

    // Puts `value` under `key`, replacing what was there; the former value is not destroyed. True; false only for a key
    // of the caller's own, above 15, when memory is short, and then nothing is changed.
    virtual bool SetSlot(unsigned int key, void* value) = 0;
    // The value under `key`, or null.
    virtual void* GetSlot(unsigned int key) = 0;
    // Whether Destroy may destroy this instance when it is asked to respect the flag; true from construction.
    virtual bool GetAutoDestroy() = 0;
    // Clears that flag for good.
    virtual void ClearAutoDestroy() = 0;

    // Makes an instance without any service and stores it in the current store. Null if memory is short.
    static InstanceData* Create();

    // Deletes the services of the caller's instance, takes the instance out of the current store and deletes it.
    // With `onlyIfAutoDestroy`, an instance whose flag was cleared is left alive. With `fromThreadStore` the instance
    // is the one that the thread-local store holds, whatever store is current, and nothing happens when it holds none;
    // the services deleted are still those that the current store leads to, and it is the current store that forgets.
    // So with a host's store current and an instance of the thread's own beside it, the thread-local store is left with
    // a pointer to a deleted instance, and the host's instance with deleted services: call ClearExternalDataStorage and
    // SetInstanceData(nullptr) after it, and delete the host's instance. Otherwise a thread without an instance gets
    // a complete one first, which is then destroyed.
    static void Destroy(bool onlyIfAutoDestroy, bool fromThreadStore);
};

// The caller's instance; created, with all services, when there is none. Null only if memory is short.
ZUAPI InstanceData* GetInstanceData();

// Stores `instance` for the caller in the current store. The former one is not destroyed. False if the store refuses.
ZUAPI bool SetInstanceData(InstanceData* instance);

// Creates a new instance with all services and stores it, whether the caller had one or not; the former one is
// overwritten in the store, not destroyed. When a service cannot be created, it and those after it are missing.
ZUAPI InstanceData* CreateInstanceData();

// Installs a host's store for the whole process. `get` answers the instance for the calling thread or null, `set`
// stores one and tells whether it did. Calls nest: only the first takes effect, later ones are counted. An instance
// that a thread already had moves into the host's store at its next call. A null `get` answers null and a null `set`
// refuses; every call then works on a new instance that cannot be kept, and that nobody frees.
ZUAPI void SetExternalDataStorage(InstanceData* (*get)(), bool (*set)(InstanceData*));

// Takes one SetExternalDataStorage back; the last one makes the thread-local store current again. While outer ones
// remain, a calling thread without an instance in its thread-local store takes the host's one back to it. After the
// last one the thread starts without an instance, and the host keeps what it stored. A call without a counterpart is
// not caught: the next SetExternalDataStorage then only counts.
ZUAPI void ClearExternalDataStorage();

}  // namespace Torvo
