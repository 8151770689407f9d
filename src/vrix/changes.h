#pragma once

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "product/plan.h"
#include "vrix/run.h"
#include "vrix/store.h"

namespace vrix {

// One step of a command: from a store as it is then, what is to be changed in it.
struct Step {
    std::string label;  // for people; empty where its changes tell enough
    std::function<Plan(const ProductStore& store)> plan;
};

// Makes a registry hold what the store does.
void copyStore(const ProductStore& from, Registry& to);

// Plans all steps before the first change, then makes the changes, or with --dry-run none, and prints them. What later
// steps find is what the earlier ones leave. Throws Refusal.
void perform(Run& run, Store& store, const std::vector<Step>& steps);

}  // namespace vrix
