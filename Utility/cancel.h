// Cancel checking: whether the user has asked to stop.
//
// Long operations ask from time to time. The library has no user interface, so it passes the question on to a callback
// that the application installs; without one nothing is ever cancelled. The callback belongs to the caller's instance:
// with the default store it is installed on each thread that is to be cancellable, and runs on that thread, inside the
// call that asks. Calls on one instance must not overlap. Nothing here leaves an error record.
//
// Example: examples/families/cancel.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// What the application implements.
class cCheckEscCallback {
public:
    // The library calls neither this nor any other way of destroying the callback.
    virtual ~cCheckEscCallback() = default;
    // Whether the user asks to stop. `update` is what the caller of CheckEsc4Update passed, false for CheckEsc.
    virtual bool CheckEsc(bool update) = 0;
    // The operation has taken notice of the wish.
    virtual void CancelConfirmed() = 0;
};

// The service behind the functions below, which describe the operations.
class ZUAPI cCheckEsc {
public:
    virtual ~cCheckEsc() = default;
    // As InitCheckEscCallback.
    virtual void SetCallback(cCheckEscCallback* callback) = 0;
    virtual bool CheckEsc() = 0;
    // As CheckEsc4Update.
    virtual bool CheckEscUpdate(bool update) = 0;
    virtual void CancelConfirmed() = 0;

    // A new service without a callback, owned by the caller; null if memory is short.
    static cCheckEsc* Create();
    // The service of the caller's instance.
    static cCheckEsc* Instance();
    // Replaces it. The former one is not destroyed: who replaces a service owns the old one.
    static bool Instance(cCheckEsc* service);
};

// Installs the callback, which is not owned; null removes it.
ZUAPI void InitCheckEscCallback(cCheckEscCallback* callback);
// Asks the callback with `update` false; false without a callback.
ZUAPI bool CheckEsc();
// Asks the callback with the given `update`; false without a callback.
ZUAPI bool CheckEsc4Update(bool update);
// Tells the callback; nothing without one.
ZUAPI void CancelConfirmed();

}  // namespace Torvo
