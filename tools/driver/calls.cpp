#include "driver/calls.h"

namespace morvane::driver {

const Calls& calls() {
    static const Calls all = [] {
        Calls made;
        addOperations(made);
        addFunctions(made);
        return made;
    }();
    return all;
}

}  // namespace morvane::driver
