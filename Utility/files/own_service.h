// Tells the library's own services from those that a host has put in their place.
#pragma once

#include <typeinfo>

namespace Torvo {

// A service as the library's own implementation, if it is that and not a host's; else null.
template <typename Own, typename Service>
Own* AsOwn(Service* service) {
    return service != nullptr && &typeid(*service) == &typeid(Own) ? static_cast<Own*>(service) : nullptr;
}

}  // namespace Torvo
