// The error list: what went wrong, collected until the application asks.
//
// A function of the library that fails says so in two ways: it returns a failure value, and where the failure concerns
// the application it leaves a record here. Nothing is ever shown to a user by the library. The application reads the
// list when it sees fit, or has it composed into one text and handed to an object of its own.
//
// There is one list per instance (<Utility/instance.h>), so by default one per thread. It takes no lock: the calls of
// one instance must not overlap.
//
// RECORDS. A record is not a finished sentence. It holds a level, a resource identifier, a number, a GUID that names
// the component, a message format, and up to three short texts: a prefix, which the application's cErrorFuncs may
// supply, and two parameters. The library's own errors come without a format: the application looks the format up by
// GetResourceID in its own string tables and hands it to GetErrorMsg, for each record of the group, before it reads the
// group. Without a format a record composes to its prefix alone, and a group of such records to spaces:
//
//     for (int32 i = 0; i < NumErrors(); ++i) GetErrorMsg(MyFormat(GetResourceID(i)), i, text, 200);
//     ReportErrors();
//
// docs/errors.md lists all that the library raises, with the parameters.
//
// The list holds 30 records. One number is told once: while a record with a number stands, another error of that number
// only raises its level to the larger of the two; the later texts and GUID are dropped. cErrorFuncs can switch that
// off. Number 0 stands for "no record", and -1 for the end of a group; -1 is never merged.
//
// GROUPS. The errors between two calls of EndError form a group, which is read as one message. The end of a group is
// a record too: it takes one of the 30 places and counts in NumErrors.
//
// FORMATS. In a message format "^0" stands for the first parameter, "^1" for the second and "^^" for a caret. A caret
// before anything else, or at the end, makes the format unusable: its text ends there. A format is walked by
// character (zuNextChar of <Utility/strings.h>) and of each character the first unit is copied, so where the system
// takes a base and its combining marks, or a pair of surrogates, as one character, the units behind the first are left
// out; in parameters and prefixes every unit is kept. A record whose format is empty, or whose number is 0, composes to
// its prefix alone.
//
// OVERFLOW. When there is no room for an error, or a message does not fit into the reader's buffer, information has
// been lost, and the list remembers it until ClearErrors. Nothing is recorded any more in that state, readers get the
// text " Too many errors.  Error information has been lost.", and what was stored stays readable by index.
//
// Texts are zero-terminated, and sizes are in 16-bit units with the terminator. Indexes are positions 0 to 29 in the
// list of records, and are not checked. Where memory is too short to keep a text, the text is left out and the list is
// in the state of overflow; no call throws, except GetErrorNum, which says when.
//
// Example: examples/families/errors.cpp
//          examples/families/error_functions.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// How severe an error is. Any number may be used; a larger one is more severe. These are the two that the library uses.
enum eErrorLevel : int32 {
    ERRORLEVEL_END_OF_GROUP = 0,  // the record that ends a group
    ERRORLEVEL_ERROR = 4,         // every error that the library itself leaves
};

// A value that the list keeps for the application, and that changes nothing in the list's own behaviour.
enum eErrorMode : int32 {
    ERRORMODE_DEFAULT = 0,  // the value at the start
};

// What the application may implement to take part. The calls come from inside the calls of the list, on their thread,
// and must not call the list themselves.
class cErrorFuncs {
public:
    // The library calls neither this nor any other way of destroying the object.
    virtual ~cErrorFuncs() = default;
    // Receives the text of ReportErrors, after the list was cleared.
    virtual void ReportErrorText(const wchar16* text) = 0;
    // Asked first in SetError and HaveErrors: true means to behave as though nothing happened.
    virtual bool ErrorsSuppressed() = 0;
    // Asked in SetError before it looks for a record of the same number: true means not to look, and to store the error
    // again. Not asked for number -1.
    virtual bool KeepDuplicateErrors() = 0;
    // Asked in SetError once for each record that is stored: a text to stand before the message, or null for none.
    // `sinceEndError` is how many errors the group has so far, 0 for the first one.
    virtual const wchar16* GetErrorPrefix(int32 sinceEndError) = 0;
};

// What EnumerateErrors calls for each record: with the record's GUID, its number, and address and length of its two
// parameters, which are not terminated. The pointers are good until the visitor returns or calls the list.
using ErrorVisitor = void (*)(const GUID* guid, const int32* number, const wchar16* const* param0,
                              const int32* param0Length, const wchar16* const* param1, const int32* param1Length);

// The service behind the functions below, which describe the operations of the same names.
class ZUAPI cErrorSystem {
public:
    virtual ~cErrorSystem() = default;
    virtual bool HaveErrors() = 0;
    virtual int32 NumErrors() = 0;
    virtual bool FirstError() = 0;
    virtual void ClearErrors() = 0;
    virtual bool GetNextError(bool first, wchar16* buffer, uint64 size) = 0;
    virtual bool ThisErrorOccurred(int32 number) = 0;
    virtual int32 GetErrorNum(int32 index) = 0;
    virtual int32 GetResourceID(int32 index) = 0;
    virtual const GUID& GetErrorGUID(int32 index) = 0;
    virtual void GetErrorMsg(const wchar16* format, uint64 index, wchar16* buffer, uint64 size) = 0;
    virtual void SetError(eErrorLevel level, int32 resourceId, const wchar16* format, const GUID& guid, int32 number,
                          const wchar16* param0, const wchar16* param1) = 0;
    virtual void SetError(eErrorLevel level, const wchar16* format, const GUID& guid, int32 number,
                          const wchar16* param0, const wchar16* param1) = 0;
    virtual void EndError() = 0;
    virtual void SetErrorFunctions(cErrorFuncs* functions) = 0;
    // As ReportErrors, with `report` in place of the application's object; null receives nothing.
    virtual void ReportErrorsTo(void (*report)(const wchar16* text)) = 0;
    virtual void ReportErrors() = 0;
    virtual void SetZUErrorMode(eErrorMode mode) = 0;
    virtual eErrorMode GetZUErrorMode() = 0;
    // Calls `visitor`, which may be null, for each record of the first group, in order; for none in the state of
    // overflow. Then clears the list if asked to. The walk shares its position with GetNextError: it starts at the
    // first record, and after each call of the visitor goes on one behind the position then standing, wherever the
    // visitor's own calls have moved it.
    virtual void EnumerateErrors(ErrorVisitor visitor, bool clearAfterwards) = 0;

    // A new service with an empty list, owned by the caller; null if memory is short.
    static cErrorSystem* Create();
    // The service of the caller's instance.
    static cErrorSystem* Instance();
    // Replaces it; who replaces a service owns the old one.
    static bool Instance(cErrorSystem* service);
};

// Whether there are records. False while the application's object suppresses errors, whatever is stored.
ZUAPI bool HaveErrors();
// How many records there are, ends of groups included.
ZUAPI int32 NumErrors();
// Whether the next error would be the first of its group.
ZUAPI bool FirstError();
// Empties the list and ends the state of overflow. The application's object and the mode stay, and so does what
// GetResourceID answers for the records that are gone.
ZUAPI void ClearErrors();

// Reads the next group into `buffer`: the messages in the order in which they were raised, each followed by a space,
// the last one too. A message that ends in a line feed loses that one. With `first`, the first group is read, else the
// one behind the group read last. False, with an empty buffer, when there is none; in the state of overflow the result
// is the same, but the buffer holds the warning.
//
// A message that does not fit, with its space and the terminator, ends the reading; the list is then in the state of
// overflow, and the warning is appended to the messages before it, or, when there is no room for that, written over the
// end of the buffer. The buffer has at least 52 units. A smaller one holds the beginning of the warning. A null buffer
// counts as one of size 0: nothing is written, and a group that it cannot take still means overflow.
ZUAPI bool GetNextError(bool first, wchar16* buffer, uint64 size);

// Whether a record of that number stands. Number 0 is that of an unused record, so it "occurred" unless 30 are stored.
ZUAPI bool ThisErrorOccurred(int32 number);
// The number of a record, 0 for an unused one. For number 15 the real number is carried as text: it is read, as by
// StringToInt (<Utility/number_parsing.h>), from the start of the first parameter, and with all texts of this and the
// later records behind it, so digits may follow from there; 0 if no number stands there. Throws std::out_of_range if
// the record's text is no longer there, which can only be when a callback has cleared the list while an error was
// stored.
ZUAPI int32 GetErrorNum(int32 index);
// The resource identifier of a record, -1 if it was raised without one.
ZUAPI int32 GetResourceID(int32 index);
// The GUID of a record, valid while the record stands.
ZUAPI const GUID& GetErrorGUID(int32 index);
// Composes the message of one record into `buffer`, cut to `size` - 1 units; nothing is written to a null buffer. A
// `format` that is not null becomes the record's format, and stays it.
ZUAPI void GetErrorMsg(const wchar16* format, uint64 index, wchar16* buffer, uint64 size);

// Raises an error. All texts are copied, and each may be null. When a record of the same number stands, that record's
// level grows; otherwise a new record is stored, unless 30 are, or information was lost before.
ZUAPI void SetError(eErrorLevel level, int32 resourceId, const wchar16* format, const GUID& guid, int32 number,
                    const wchar16* param0, const wchar16* param1);
// The same with a resource identifier of -1; nothing when `format` is null.
ZUAPI void SetError(eErrorLevel level, const wchar16* format, const GUID& guid, int32 number, const wchar16* param0,
                    const wchar16* param1);
// Ends the group; nothing when no error was stored since the last end.
ZUAPI void EndError();

// Sets the application's object, which is not owned; null removes it.
ZUAPI void SetErrorFunctions(cErrorFuncs* functions);
// Composes the first group as GetNextError does, in a text of any length, clears the whole list, and hands the text to
// the application's object, if there is one and there was a group. Later groups are cleared without being told. In the
// state of overflow the text is the warning alone.
ZUAPI void ReportErrors();

// Keeps a value for the application.
ZUAPI void SetZUErrorMode(eErrorMode mode);
ZUAPI eErrorMode GetZUErrorMode();

}  // namespace Torvo
