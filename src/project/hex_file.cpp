#include "project/hex_file.h"

#include <utility>

#include "common/text_file.h"

namespace corvane::project {

std::optional<loader::Program> LoadHexText(const std::string& file, std::string_view text,
                                           const models::Model& model, Messages& messages) {
    common::Result<loader::Program, loader::HexError> program =
        loader::ReadIntelHex(text, model.programWords);
    if (!program) {
        AddError(messages, file, program.error.lineNumber, program.error.message);
        return std::nullopt;
    }
    if (const auto warning = loader::SkippedWordsMessage(*program, model.name)) {
        AddWarning(messages, file, 0, *warning);
    }
    return std::move(program.value);
}

std::optional<loader::Program> ReadHexFile(const std::string& file, const models::Model& model,
                                           Messages& messages) {
    const common::Result<std::string> text = common::ReadTextFileOrPipe(file);
    if (!text) {
        AddError(messages, file, 0, text.error);
        return std::nullopt;
    }
    return LoadHexText(file, *text, model, messages);
}

}  // namespace corvane::project
