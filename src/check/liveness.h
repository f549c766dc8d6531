// What the instructions that a path still comes to need from the ones before them.
#pragma once

#include <vector>

#include "check/effects.h"
#include "check/rules.h"

namespace corvane::check {

// By place: the resources that some path from there reads before it writes them. Calls are matched
// with their returns.
std::vector<Resources> LiveResources(const Subject& subject);

// A place from which a path goes on to read the resource, and that reads it: kNone when there is
// none.
std::uint32_t ReaderOf(const Subject& subject, std::uint32_t place, Resources resource);

}  // namespace corvane::check
