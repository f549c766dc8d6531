// The rules, each of which reads the paths of a program and adds what it finds.
#pragma once

#include <vector>

#include "check/check.h"
#include "check/paths.h"

namespace corvane::check {

// What the rules look at.
struct Subject {
    const Program& program;
    const models::ModelDescription& description;
    const Paths& paths;
};

using FindingList = std::vector<Finding>;

// A register that is named is not reached, because of RP0 or RP1.
void FindWrongBanks(const Subject& subject, FindingList& findings);

// GOTO and CALL that PCLATH sends elsewhere.
void FindWrongPages(const Subject& subject, FindingList& findings);

// Jumps by a write to PCL that PCLATH or the end of a block sends elsewhere.
void FindWrongTables(const Subject& subject, FindingList& findings);

// Calls that nest deeper than the stack, and subroutines that are entered before they have
// returned.
void FindStackFaults(const Subject& subject, FindingList& findings);

// Paths that leave the program's words.
void FindExits(const Subject& subject, FindingList& findings);

// Registers that an interrupt routine changes and the main program needs.
void FindLostContext(const Subject& subject, FindingList& findings);

// Words that no path reaches.
void FindUnreachable(const Subject& subject, FindingList& findings);

}  // namespace corvane::check
