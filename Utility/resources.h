// String resources: message texts by number.
//
// `resource[id]` gives the text of a number, from a table compiled into the program (cStringTable) or from the string
// table of a resource library (cResourceDLL, a Windows DLL on every system). A text always comes back, at worst one
// that says that none was found, as a plain pointer that nobody frees. It points into a ring of ten buffers that
// belongs to the caller's instance: a text is valid for the next nine look-ups, and a caller who keeps it longer copies
// it. So up to ten texts can be held at once, as for one message with several looked-up parts. Texts are cut to 255
// units.
//
// Look-ups allocate nothing, but for those that load a resource library or try to, and nothing here leaves an error
// record. Calls on one instance must not overlap.
//
// Example: examples/families/resources.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// The root of the family.
class ZUAPI cResourceHandle {
public:
    cResourceHandle() = default;
    cResourceHandle(const cResourceHandle&) = default;
    cResourceHandle& operator=(const cResourceHandle&) = default;
    virtual ~cResourceHandle() = default;

    // The text of `id`; see cStringResource.
    virtual wchar16* operator[](int id) const = 0;

protected:
    // Copies the text of `id` into `buffer`, 256 units; false, with the buffer's content unspecified, if there is none.
    virtual bool FindString(int id, wchar16* buffer) const = 0;
};

// The look-up with its fallbacks, on top of a FindString that a derived class provides.
class ZUAPI cStringResource : public cResourceHandle {
public:
    cStringResource() = default;
    cStringResource(const cStringResource&) = default;
    cStringResource& operator=(const cStringResource&) = default;

    // The text of `id`, never null. Without one: the library's own text for 58 "Internal Error: %u" (for the caller to
    // format), 59 "System Error" and 60 "Program cannot run because required resource was not found.  Executable file
    // may be damaged.", and "The string resource (7) could not be accessed." for any other number, such as 7.
    wchar16* operator[](int id) const override;

private:
    wchar16* GetNextBuffer() const;
};

// Texts from a table in memory, which is not owned, not copied, and outlives the object.
class ZUAPI cStringTable : public cStringResource {
public:
    // One row. A table is an array that ends with a row of id 0, which therefore cannot be looked up. The rows need no
    // order; of two equal ids the first wins.
    struct sStringTable {
        int32 id;
        const wchar16* text;  // a row without one is not found
    };

    cStringTable();  // no table: nothing is found
    cStringTable(sStringTable* table);
    cStringTable(const cStringTable& other);  // shares the table
    cStringTable& operator=(const cStringTable&) = default;

    operator const sStringTable*() const { return table; }

protected:
    bool FindString(int id, wchar16* buffer) const override;

private:
    const sStringTable* table;
};

// Texts from a resource library, loaded at the first look-up. Of a number the low 16 bits count. A library that cannot
// be loaded is tried again at each look-up. Of a text in several languages, which one is the system's choice: by the
// language of the thread's user interface on Windows; elsewhere the neutral one, else that of the thread's locale, of
// its primary language, of the United States, else the first.
class ZUAPI cResourceDLL : public cStringResource {
public:
    // Thrown for a null name.
    enum eLoadError : int32 { NullName = 1 };

    cResourceDLL();  // an empty name, nothing loaded
    // Takes over one reference to a module that is already loaded: the destructor frees it.
    cResourceDLL(HINSTANCE const& module);
    // Stores the name, at most 259 units, without loading anything. A longer name is refused: nothing will be found.
    cResourceDLL(const wchar16* name);
    cResourceDLL(std::nullptr_t) : cResourceDLL(static_cast<const wchar16*>(nullptr)) {}
    // Copies the name and the handle, without a reference of its own: both objects free the same module.
    cResourceDLL(const cResourceDLL& other);
    // As the copy constructor. A module that the object had before is forgotten, not freed.
    cResourceDLL& operator=(const cResourceDLL&) = default;
    ~cResourceDLL() override;

    // Stores another name, as the constructor does: one that is refused replaces the former one too. Once a module is
    // loaded, the name has no effect any more.
    void SetResource(const wchar16* name);

protected:
    bool FindString(int id, wchar16* buffer) const override;

private:
    HINSTANCE GetResource() const;
    static bool bIsWIN95();

    wchar16 path[260];
    mutable HINSTANCE module;
};

// The service that holds the ring of buffers.
class ZUAPI cStringResourceBuffers {
public:
    virtual ~cStringResourceBuffers() = default;
    // The next of the ten buffers of 256 units; the eleventh call gives the buffer of the first again.
    virtual wchar16* GetNextBuffer() = 0;

    // A new service, owned by the caller; null if memory is short.
    static cStringResourceBuffers* Create();
    // The service of the caller's instance.
    static cStringResourceBuffers* Instance();
    // Replaces it; who replaces a service owns the old one.
    static bool Instance(cStringResourceBuffers* service);
};

}  // namespace Torvo
