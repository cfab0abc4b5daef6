// The list of errors, and the resources that its texts come from.
#include <Utility/errors.h>
#include <Utility/resources.h>
#include <faults/operations.h>
#include <support/fixture_path.h>

#include <memory>

namespace Torvo::test {

namespace error_operations {
namespace {

constexpr GUID SomeKind = {1, 2, 3, {4}};
const wchar16* const LongParameter =
    ZUTEXT("a parameter that is so long that it has to have a block of its own, as most have");

// More than an error list has room for from the start.
const wstring16& VeryLongParameter() {
    static const wstring16 text(1500, 'x');
    return text;
}

void RaiseOne() {
    SetError(ERRORLEVEL_ERROR, ZUTEXT("^0"), SomeKind, 7, VeryLongParameter().c_str(), nullptr);
}

// An error list of a row's own, for one keeps the room that it has taken once.
class OwnErrors {
public:
    OwnErrors() : own(cErrorSystem::Create()), former(cErrorSystem::Instance()) { cErrorSystem::Instance(own.get()); }
    ~OwnErrors() { cErrorSystem::Instance(former); }
    OwnErrors(const OwnErrors&) = delete;
    OwnErrors& operator=(const OwnErrors&) = delete;

private:
    const std::unique_ptr<cErrorSystem> own;
    cErrorSystem* const former;
};

// What the list has to say: whether it is that something was lost.
bool HasLostSomething() {
    static TextBuffer text;
    GetNextError(true, text.units, 500);
    return text.Is(ZUTEXT(" Too many errors.  Error information has been lost."));
}

class Listener : public cErrorFuncs {
public:
    void ReportErrorText(const wchar16*) override { ++reported; }
    bool ErrorsSuppressed() override { return false; }
    bool KeepDuplicateErrors() override { return false; }
    const wchar16* GetErrorPrefix(int32) override { return ZUTEXT("prefix"); }

    int reported = 0;
};

Operations ListOperations() {
    return {
        {"cErrorSystem::Create", [](Trial& trial) { TryToMake(trial, [] { return cErrorSystem::Create(); }); }},
        {"cErrorSystem::Instance", [] { return cErrorSystem::Instance(cErrorSystem::Instance()); }},
        {"SetError",
         [](Trial& trial) {
             const OwnErrors own;
             wchar16 text[1600] = {};
             trial.Try(
                 [&] {
                     ClearErrors();
                     RaiseOne();
                     GetErrorMsg(nullptr, 0, text, 1600);
                     return text[0] == 'x' && text[1499] == 'x';
                 },
                 // The record is there without its text, and the list tells that it lost something.
                 [] { return NumErrors() == 1 && GetErrorNum(0) == 7 && HasLostSomething(); }, {7});
             EXPECT_EQ(NumErrors(), 1);
         }},
        {"SetError, with a resource",
         [](Trial& trial) {
             const OwnErrors own;
             wchar16 text[3200] = {};
             trial.Try(
                 [&] {
                     ClearErrors();
                     SetError(ERRORLEVEL_ERROR, 49, ZUTEXT("a longer format: ^0^1"), SomeKind, 7,
                              VeryLongParameter().c_str(), VeryLongParameter().c_str());
                     GetErrorMsg(nullptr, 0, text, 3200);
                     return text[0] == 'a' && text[17 + 2999] == 'x';
                 },
                 [] { return NumErrors() == 1 && GetResourceID(0) == 49 && HasLostSomething(); }, {7});
         }},
        {"EndError",
         [] {
             EndError();
             return NumErrors() == 0;
         }},
        {"GetErrorMsg",
         [](Trial& trial) {
             const OwnErrors own;
             RaiseOne();
             static wchar16 text[1600];
             text[0] = 'n';
             trial.Try(
                 [&] {
                     GetErrorMsg(nullptr, 0, text, 1600);
                     return text[0] == 'x' && text[1499] == 'x';
                 },
                 [] { return text[0] == 0 && NumErrors() == 1; }, {7});
         }},
        {"GetNextError",
         [](Trial& trial) {
             const OwnErrors own;
             static wchar16 text[1600];
             bool isFound = false;
             trial.Try(
                 [&] {
                     ClearErrors();
                     RaiseOne();
                     isFound = GetNextError(true, text, 1600);
                     return isFound && text[0] == 'x' && text[1499] == 'x';
                 },
                 [&] { return isFound && HasLostSomething(); }, {7});
         }},
        {"ReportErrors",
         [](Trial& trial) {
             RaiseOne();
             Listener listener;
             SetErrorFunctions(&listener);
             trial.Try([&] {
                 ReportErrors();
                 return listener.reported > 0;
             });
             SetErrorFunctions(nullptr);
         }},
        {"HaveErrors", [] { return !HaveErrors(); }},
        {"NumErrors", [] { return NumErrors() == 0; }},
        {"FirstError", [] { return FirstError(); }},
        {"ClearErrors",
         [] {
             ClearErrors();
             return NumErrors() == 0;
         }},
        {"ThisErrorOccurred", [] { return !ThisErrorOccurred(7); }},
        {"GetErrorNum", [] { return GetErrorNum(0) == 0; }},
        {"GetResourceID", [] { return GetResourceID(0) == GetResourceID(0); }},
        {"GetErrorGUID", [] { return &GetErrorGUID(0) != nullptr; }},
        {"SetErrorFunctions",
         [] {
             SetErrorFunctions(nullptr);
             return true;
         }},
        {"SetZUErrorMode",
         [] {
             SetZUErrorMode(ERRORMODE_DEFAULT);
             return true;
         }},
        {"GetZUErrorMode", [] { return GetZUErrorMode() == ERRORMODE_DEFAULT; }},
    };
}

// The string table's search, which is for derived classes.
class OpenTable : public cStringTable {
public:
    using cStringTable::cStringTable;
    using cStringTable::FindString;
};
class OpenLibrary : public cResourceDLL {
public:
    using cResourceDLL::cResourceDLL;
    using cResourceDLL::FindString;
};

cStringTable::sStringTable rows[] = {{1, ZUTEXT("one")}, {0, nullptr}};

wstring16 LibraryPath() {
    return Wide(DataPath("strings.dll"));
}

// Tries the look-up of a text in a library that is not loaded yet. Without memory it is not found.
void TryLookUp(Trial& trial) {
    const wstring16 path = LibraryPath();
    const cResourceDLL library(path.c_str());
    trial.Try([&] { return Is(library[1], ZUTEXT("one")); });
}

Operations ResourceOperations() {
    return {
        {"cStringResourceBuffers::Create",
         [](Trial& trial) { TryToMake(trial, [] { return cStringResourceBuffers::Create(); }); }},
        {"cStringResourceBuffers::Instance",
         [] { return cStringResourceBuffers::Instance(cStringResourceBuffers::Instance()); }},
        {"cStringResource::GetNextBuffer",
         [] { return cStringResourceBuffers::Instance()->GetNextBuffer() != nullptr; }},
        {"cStringResource::operator[]", [] { return Is(cStringTable(rows)[1], ZUTEXT("one")); }},
        {"cStringTable::FindString",
         [] {
             TextBuffer text;
             return OpenTable(rows).FindString(1, text.units) && text.Is(ZUTEXT("one"));
         }},
        {"cStringTable::cStringTable", [] { return Is(cStringTable(cStringTable(rows))[1], ZUTEXT("one")); }},
        {"cResourceDLL::cResourceDLL, of a name",
         [] {
             const cResourceDLL library(ZUTEXT("there is no such library"));
             return true;
         }},
        {"cResourceDLL::cResourceDLL", [](Trial& trial) { TryLookUp(trial); }},
        {"cResourceDLL::cResourceDLL, of a module, and its copy",
         [] {
             const cResourceDLL library(HINSTANCE{});
             const cResourceDLL copy(library);  // NOLINT(performance-unnecessary-copy-initialization): it is meant
             return true;
         }},
        {"cResourceDLL::GetResource", [](Trial& trial) { TryLookUp(trial); }},
        {"cResourceDLL::bIsWIN95", [](Trial& trial) { TryLookUp(trial); }},
        {"cResourceDLL::FindString",
         [](Trial& trial) {
             const wstring16 path = LibraryPath();
             const OpenLibrary library(path.c_str());
             TextBuffer text;
             trial.Try([&] { return library.FindString(1, text.units) && text.Is(ZUTEXT("one")); });
         }},
        {"cResourceDLL::SetResource",
         [](Trial& trial) {
             const wstring16 path = LibraryPath();
             cResourceDLL library;
             trial.Try([&] {
                 library.SetResource(path.c_str());
                 return Is(library[1], ZUTEXT("one"));
             });
         }},
        {"cResourceDLL::~cResourceDLL",
         [](Trial& trial) {
             const wstring16 path = LibraryPath();
             trial.Try([&] {
                 const cResourceDLL library(path.c_str());
                 return Is(library[1], ZUTEXT("one"));
             });
         }},
    };
}

}  // namespace
}  // namespace error_operations

Operations ErrorOperations() {
    using namespace error_operations;
    Operations all = ListOperations();
    for (const Operation& operation : ResourceOperations()) all.push_back(operation);
    return all;
}

}  // namespace Torvo::test
