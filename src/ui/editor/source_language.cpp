#include "ui/editor/source_language.h"

#include "common/text.h"

namespace corvane::ui {

QString FormedText(const QString& text, const SourceLanguage& language) {
    const std::string source = text.toStdString();
    std::string formed;
    formed.reserve(source.size() + 1);
    for (const std::string_view line : common::SplitLines(source)) {
        formed.append(language.form(line)).push_back('\n');
    }
    return formed.empty() ? QStringLiteral("\n") : QString::fromStdString(formed);
}

}  // namespace corvane::ui
