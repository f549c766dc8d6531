#include "basic/basic_fixture.h"

#include <gtest/gtest.h>

#include "basic/editor_form.h"
#include "common/text_file.h"

namespace corvane::basic {

const models::Model& ModelNamed(std::string_view name) {
    return models::kModelCatalogue.at(static_cast<std::size_t>(models::FindModel(name).value()));
}

std::string ReadSourceFile(const std::string& pathInSourceTree) {
    const auto text = common::ReadTextFile(CORVANE_SOURCE_DIR "/" + pathInSourceTree);
    EXPECT_TRUE(text) << pathInSourceTree << ": " << text.error;
    return text ? *text : std::string();
}

models::ModelDescription Description(const models::Model& model) {
    const auto description = models::ReadModelDescription(
        ReadSourceFile("data/models/" + models::DescriptionFileName(model.name)));
    EXPECT_TRUE(description) << model.name << ": line " << description.error;
    return description ? *description : models::ModelDescription();
}

common::Result<Compilation, LineMessage> CompileSource(std::string_view text,
                                                       const models::Model& model,
                                                       const models::ModelDescription& description,
                                                       float clockFrequency) {
    const std::string rewritten = RewriteText(text, EditorKeywords(description));
    return Compile(rewritten, model, description, clockFrequency);
}

std::string CompileError(std::string_view text, std::string_view modelName) {
    const models::Model& model = ModelNamed(modelName);
    const auto compilation = CompileSource(text, model, Description(model));
    return compilation ? "" : ErrorText(compilation.error);
}

}  // namespace corvane::basic
