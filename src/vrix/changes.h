#pragma once

#include <functional>
#include <string>
#include <vector>

#include "product/plan.h"
#include "vrix/run.h"
#include "vrix/store.h"

namespace vrix {

// One step of a command: from a store as it is then, what is to be changed in it.
struct Step {
    std::string label;  // for output; empty where its changes are enough
    std::function<Plan(const ProductStore& store)> plan;
};

// Plans all steps before the first change, then makes the changes and prints them. What later steps find is what the
// earlier ones leave. `unreachable` is the number of values that go and that no call can reach. Throws Refusal.
void perform(Run& run, Store& store, const std::vector<Step>& steps, std::size_t unreachable = 0);

}  // namespace vrix
