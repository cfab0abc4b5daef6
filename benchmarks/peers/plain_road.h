// The plainest road of a call with the same shape: a thread-local pointer, an array slot, a virtual call. It lives in a
// shared library of its own, as the road that it is compared with does.
#pragma once

namespace peer {

class Service {
public:
    virtual ~Service() = default;
    virtual bool Ask(bool update) = 0;
};

__attribute__((visibility("default"))) void Prepare();
__attribute__((visibility("default"))) bool Ask();

}  // namespace peer
