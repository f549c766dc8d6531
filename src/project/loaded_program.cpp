#include "project/loaded_program.h"

#include <filesystem>
#include <utility>

#include "common/text_file.h"
#include "project/hex_file.h"

namespace corvane::project {

namespace fs = std::filesystem;

namespace {

// Without a word from the person: what the name says, else Intel HEX when the text begins like it.
ProgramKind KindOfText(const ProgramSource& source, std::string_view text) {
    const ProgramKind kind = source.kind.value_or(KindOf(source.file));
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    const bool isHex = begin != std::string_view::npos && text[begin] == ':';
    return kind == ProgramKind::Unknown && isHex ? ProgramKind::Hex : kind;
}

std::optional<CodFile> ReadCod(const std::string& path) {
    const auto bytes = common::ReadTextFile(path);
    auto cod = bytes ? ReadCodFile(*bytes) : common::Result<CodFile>::Failure("");
    return cod ? std::move(cod.value) : std::nullopt;
}

// The person's choice, else the model that the .cod file of a .hex file means, if it belongs to it.
std::optional<ModelChoice> ModelFor(const ProgramSource& source, Messages& messages) {
    const bool isOpen = source.model.name.empty() && !source.withoutSource;
    if (!isOpen || KindOf(source.file) != ProgramKind::Hex) {
        return source.model;
    }
    const std::string codFile = fs::path(source.file).replace_extension(".cod").string();
    const std::optional<CodFile> cod = ReadCod(codFile);
    const auto text =
        cod ? common::ReadTextFile(source.file) : common::Result<std::string>::Failure("");
    if (!text) {
        return source.model;
    }
    const auto image = loader::ReadIntelHex(*text, kCodWords);
    return image && Belongs(*cod, *image)
               ? ModelOfProcessor(codFile, cod->processor, source.model, messages)
               : source.model;
}

std::optional<Origin> OriginBeside(const ProgramSource& source, const ModelFile& modelFile,
                                   const loader::Program& image) {
    fs::path path(source.file);
    const std::string codFile = path.replace_extension(".cod").string();
    if (std::optional<CodFile> cod = ReadCod(codFile); cod && Belongs(*cod, image)) {
        return Origin{.file = codFile, .cod = std::move(cod)};
    }
    for (const ProgramKind kind : {ProgramKind::Basic, ProgramKind::Assembler}) {
        std::string file = path.replace_extension(SuffixOf(kind)).string();
        common::Result<std::string> text = common::ReadTextFile(file);
        Messages untold;
        std::optional<Build> build = text ? BuildText(file, kind, *std::move(text.value), modelFile,
                                                      source.clockFrequency, untold)
                                          : std::nullopt;
        if (build && HaveSameWords(FromImage(build->image).program, FromImage(image).program)) {
            return Origin{.file = std::move(file), .build = std::move(build)};
        }
    }
    return std::nullopt;
}

std::optional<LoadedProgram> LoadForGpasm(const ProgramSource& source, Messages& messages) {
    GpasmBuild build = BuildWithGpasm(source.file, source.model, source.assembler, messages);
    if (!build.program) {
        return std::nullopt;
    }
    return LoadedProgram{std::move(build.program->modelFile), std::move(build.program->image),
                         Origin{.file = source.file,
                                .cod = std::move(build.files.cod),
                                .ownName = fs::path(source.file).filename().string()}};
}

std::optional<LoadedProgram> LoadHex(const ProgramSource& source, std::string_view text,
                                     ModelFile modelFile, Messages& messages) {
    auto image = LoadHexText(source.file, text, *modelFile.model, messages);
    if (!image) {
        return std::nullopt;
    }
    const bool hasBeside = KindOf(source.file) == ProgramKind::Hex && !source.withoutSource;
    std::optional<Origin> origin =
        hasBeside ? OriginBeside(source, modelFile, *image) : std::nullopt;
    return LoadedProgram{std::move(modelFile), *std::move(image), std::move(origin)};
}

// Messages name the source as the person did and other files as gpasm does, or, of a .cod file that
// was found, all as they are from its folder.
std::function<std::string(const std::string& file)> ShownNames(const Origin& origin) {
    return [&origin](const std::string& named) {
        if (origin.ownName.empty()) {
            return (fs::path(origin.file).parent_path() / named).string();
        }
        return named == origin.ownName ? origin.file : named;
    };
}

}  // namespace

std::optional<LoadedProgram> LoadProgram(const ProgramSource& source, Messages& messages) {
    if (IsForGpasm(source.assembler, source.file)) {
        return LoadForGpasm(source, messages);
    }
    const std::optional<ModelChoice> model = ModelFor(source, messages);
    std::optional<ModelFile> modelFile = model ? ReadModelFile(*model, messages) : std::nullopt;
    if (!modelFile) {
        return std::nullopt;
    }
    common::Result<std::string> text = common::ReadTextFileOrPipe(source.file);
    if (!text) {
        AddError(messages, source.file, 0, text.error);
        return std::nullopt;
    }
    const ProgramKind kind = KindOfText(source, *text);
    if (kind == ProgramKind::Hex) {
        return LoadHex(source, *text, *std::move(modelFile), messages);
    }
    if (kind == ProgramKind::Unknown || text->empty()) {
        AddError(messages, source.file, 0,
                 kind == ProgramKind::Unknown
                     ? "It does not begin like Intel HEX; say with --format what it is."
                     : std::string(kEmptySource));
        return std::nullopt;
    }
    std::optional<Build> build = BuildText(source.file, kind, *std::move(text.value), *modelFile,
                                           source.clockFrequency, messages);
    if (!build) {
        return std::nullopt;
    }
    loader::Program image = build->image;
    return LoadedProgram{*std::move(modelFile), std::move(image),
                         Origin{.file = source.file, .build = std::move(build)}};
}

Program WithNames(const LoadedProgram& loaded) {
    Program program{.image = loaded.image};
    if (!loaded.origin) {
        return program;
    }
    const Origin& origin = *loaded.origin;
    if (origin.cod) {
        AddCodSource(program, *origin.cod, ShownNames(origin));
    } else if (origin.build->compilation) {
        AddBasicSource(program, origin.file, *origin.build->compilation, origin.build->assembly);
    } else {
        AddAssemblerSource(program, origin.file, origin.build->assembly);
    }
    return program;
}

SourcedProgram WithOperands(const LoadedProgram& loaded) {
    if (!loaded.origin) {
        return FromImage(loaded.image);
    }
    const Origin& origin = *loaded.origin;
    const int programWords = loaded.modelFile.model->programWords;
    if (origin.cod) {
        return FromCod(*origin.cod, fs::path(origin.file).parent_path(), programWords,
                       ShownNames(origin));
    }
    const Build& build = *origin.build;
    return build.compilation ? FromCompiledAssembly(build.assembly, build.compilation->sourceLines,
                                                    build.text, origin.file, programWords)
                             : FromAssembly(build.assembly, build.text, origin.file, programWords);
}

}  // namespace corvane::project
