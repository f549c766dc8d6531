// Options whose values have a range. A bad value is a CLI::ValidationError, that is wrong usage.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "inspect/faults.h"

namespace corvane::cli {

// A whole number from lowest on.
void AddNumberOption(CLI::App& app, const std::string& names, std::optional<std::int64_t>& value,
                     std::int64_t lowest, const std::string& description);
void AddNumberOption(CLI::App& app, const std::string& names, int& value, int lowest,
                     const std::string& description);

// A frequency above 0; the function is told its text too.
void AddFrequencyOption(CLI::App& app, const std::string& names, float& megahertz,
                        const std::string& description,
                        const std::function<void(const std::string&)>& tellText = {});

// An option that takes a list of faults only behind "="; alone it means every fault.
void AddFaultsOption(CLI::App& app, const std::string& name, inspect::FaultSet& faults,
                     const std::string& description);

// One to four hexadecimal digits, up to a highest value.
void AddHexOption(CLI::App& app, const std::string& names, std::optional<int>& value, int highest,
                  const std::string& description);

// The same, repeated up to a number of times.
void AddHexListOption(CLI::App& app, const std::string& names, std::vector<int>& values,
                      int highest, std::size_t mostValues, const std::string& description);

}  // namespace corvane::cli
