// Assembling with gpasm, the assembler of the package gputils.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "asm/assembler.h"
#include "common/diagnostic.h"
#include "project/cod_file.h"

namespace corvane::project {

struct GpasmOptions {
    std::string source;              // the path of the .asm file, as messages name it
    std::string processor;           // "16f84a"; empty: the source names it
    std::vector<std::string> extra;  // options that are passed on
    std::function<bool()> isCancelled;
};

struct GpasmResult {
    std::vector<common::Diagnostic> messages;  // what it has said, in its order
    std::string failure;                       // why there is no result besides; empty otherwise
    bool isCancelled = false;
    bool hasErrors = false;  // in messages
    std::string listing;     // empty when it wrote none
    std::string hex;         // empty after errors and failures, and so are
    std::string codBytes;
    CodFile cod;
};

// Runs the program of that name (CORVANE_GPASM names another) in the source's folder. Its files go
// into a folder that is removed; it is ended after 60 seconds, or CORVANE_GPASM_TIMEOUT.
GpasmResult RunGpasm(const GpasmOptions& options);

// The messages among what it has printed. Those about the source itself bear the name that the
// person gave it.
std::vector<common::Diagnostic> ReadGpasmMessages(std::string_view printed,
                                                  const std::string& source);

// "16f84a" for the PIC16F84A of a person.
std::string GpasmProcessor(std::string_view modelName);

// Whether the source says which processor it is for, by PROCESSOR or by LIST P=.
bool NamesProcessor(std::string_view text);

// Whether an assembly's source has lines of gpasm's dialect: LIST, PROCESSOR, INCLUDE, #INCLUDE.
bool IsWrittenForGpasm(const assembler::Assembly& assembly);

}  // namespace corvane::project
