// The data EEPROM's content as a file: Intel HEX with one word a byte at 2100h, as programmers have
// it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/result.h"
#include "core/processor.h"
#include "models/catalogue.h"

namespace corvane::cli {

// All bytes of the model's EEPROM, 0 where the file is silent; its other records do not matter. The
// error is complete.
common::Result<std::vector<std::uint8_t>> ReadEepromFile(const std::string& file,
                                                         const models::Model& model);

// All bytes as stored, eight words a record; CR LF line ends.
std::string EepromHexText(const core::ProcessorState& state, const models::Model& model);

}  // namespace corvane::cli
