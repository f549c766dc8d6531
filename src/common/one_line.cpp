#include "common/one_line.h"

namespace corvane::common {

std::string OneLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        switch (c) {
            case '\\':
                line += "\\\\";
                break;
            case '\n':
                line += "\\n";
                break;
            case '\r':
                line += "\\r";
                break;
            default:
                line += c;
        }
    }
    return line;
}

std::string FromOneLine(std::string_view line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char next = i + 1 < line.size() ? line[i + 1] : '\0';
        if (line[i] != '\\' || (next != '\\' && next != 'n' && next != 'r')) {
            text += line[i];
            continue;
        }
        text += next == 'n' ? '\n' : next == 'r' ? '\r' : '\\';
        ++i;
    }
    return text;
}

}  // namespace corvane::common
