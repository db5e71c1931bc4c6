#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "driver/arguments.h"
#include "driver/forms.h"
#include "driver/program.h"

namespace morvane::driver {

// A call whose arguments have been read and found right: begins it, and enters its value, where it
// has one, by the time its work has ended.
struct Invocation {
    std::function<void(std::shared_ptr<Answer> result)> begin;
    // It has a value that only its work gives, so there is no answer before.
    bool isAwaited = false;
};

// Reads the arguments; where one is wrong it says so through them, and the invocation is not used.
using Call = std::function<Invocation(Program&, Arguments&)>;
using Calls = std::map<std::string, Call, std::less<>>;

// Everything that can be called, by its name.
[[nodiscard]] const Calls& calls();

// The two halves of it: operations of the store, and functions without a state.
void addOperations(Calls& calls);
void addFunctions(Calls& calls);

}  // namespace morvane::driver
