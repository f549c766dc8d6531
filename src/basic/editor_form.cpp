#include "basic/editor_form.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "common/text.h"
#include "models/symbol_lines.h"

namespace corvane::basic {

using common::ColoredSpan;
using common::TextColor;

namespace {

constexpr std::array<std::string_view, 32> kLanguageKeywords = {
    "Sqr",  "Dim",  "As",    "Bit",   "Byte",   "Word", "Not",  "Or",    "And",  "Xor",  "Nor",
    "Nand", "Nxor", "While", "Wend",  "If",     "Then", "Else", "Endif", "For",  "To",   "Step",
    "Next", "Goto", "Read",  "Write", "WaitMs", "Mod",  "LB",   "HB",    "True", "False"};

constexpr std::string_view kPunctuation = "=+-*/()<>,:.'";
constexpr std::string_view kSeparators = " \t";

struct Replacement {
    std::string_view from;
    std::string_view to;
};

constexpr std::array<Replacement, 2> kJoinedKeywords = {{{"go to", "goto"}, {"end if", "endif"}}};

// What stands apart for the keyword search and belongs together in the end.
constexpr std::array<Replacement, 10> kJoinedPunctuation = {{
    {"< >", "<>"},
    {"< =", "<="},
    {"> =", ">="},
    {" ( ", "("},
    {" )", ")"},
    {" ,", ","},
    {" :", ":"},
    {" . ", "."},
    {"' ", "'"},
    {"Step - ", "Step -"},
}};

// Every occurrence from left to right; what is put in is not searched again.
std::string ReplaceAll(std::string text, const Replacement& replacement) {
    std::size_t found = text.find(replacement.from);
    if (found == std::string::npos) {
        return text;
    }
    std::string result;
    result.reserve(text.size());
    std::size_t done = 0;
    for (; found != std::string::npos; found = text.find(replacement.from, done)) {
        result.append(text, done, found - done).append(replacement.to);
        done = found + replacement.from.size();
    }
    return result.append(text, done);
}

// The code in lower case, but for what stands between its double quotes; the comment as it is.
std::string WithLowerCaseCode(std::string_view line) {
    const std::string_view code = line.substr(0, line.find('\''));
    const std::size_t firstQuote = std::min(code.find('"'), code.size());
    const std::size_t afterQuotes = code.rfind('"') + 1;  // 0 without quotes
    std::string result = common::ToLower(code.substr(0, firstQuote));
    if (firstQuote < code.size()) {
        result.append(code.substr(firstQuote, afterQuotes - firstQuote));
        result.append(common::ToLower(code.substr(afterQuotes)));
    }
    return result.append(line.substr(code.size()));
}

// A blank on both sides of each punctuation character, and single blanks only.
std::string WithSpacedPunctuation(std::string_view line) {
    std::string result;
    result.reserve(line.size() * 2);
    const auto append = [&result](char c) {
        if (c != ' ' || !result.ends_with(' ')) {
            result += c;
        }
    };
    for (const char c : line) {
        const bool isPunctuation = kPunctuation.find(c) != std::string_view::npos;
        if (isPunctuation) {
            append(' ');
        }
        append(c);
        if (isPunctuation) {
            append(' ');
        }
    }
    return result;
}

const EditorKeyword* FindKeyword(std::string_view word,
                                 const std::vector<EditorKeyword>& keywords) {
    const auto found =
        std::find_if(keywords.begin(), keywords.end(),
                     [word](const EditorKeyword& keyword) { return keyword.search == word; });
    return found == keywords.end() ? nullptr : &*found;
}

// Every word between separators that is a keyword in its display form.
std::string WithDisplayedKeywords(std::string_view line,
                                  const std::vector<EditorKeyword>& keywords) {
    std::string result;
    result.reserve(line.size());
    while (!line.empty()) {
        const std::size_t length = std::min(line.find_first_of(kSeparators), line.size());
        const std::string_view word = line.substr(0, length);
        const EditorKeyword* keyword = FindKeyword(word, keywords);
        result.append(keyword != nullptr ? std::string_view(keyword->display) : word);
        result.append(line.substr(length, 1));
        line.remove_prefix(std::min(length + 1, line.size()));
    }
    return result;
}

void AddKeywordSpans(const std::string& paddedLine, const std::string& keyword,
                     std::vector<ColoredSpan>& spans) {
    if (paddedLine.find(keyword) == std::string::npos) {
        return;
    }
    for (const char before : {'(', '.', ' ', '\t'}) {
        for (const char after : kSeparators) {
            const std::size_t found = paddedLine.find(before + keyword + after);
            if (found != std::string::npos) {
                spans.push_back({static_cast<int>(found), static_cast<int>(keyword.size()),
                                 TextColor::Keyword});
            }
        }
    }
}

}  // namespace

std::vector<EditorKeyword> EditorKeywords(const models::ModelDescription& description) {
    std::vector<EditorKeyword> keywords;
    const auto add = [&keywords](std::string_view display) {
        keywords.push_back({common::ToLower(display), std::string(display)});
    };
    std::for_each(kLanguageKeywords.begin(), kLanguageKeywords.end(), add);
    for (const models::PredefinedSymbol& symbol :
         models::ReadSymbolLines(description.basicSymbolLines).symbols) {
        add(symbol.name);
    }
    return keywords;
}

std::string RewriteLine(std::string_view line, const std::vector<EditorKeyword>& keywords) {
    std::string text = WithSpacedPunctuation(WithLowerCaseCode(line));
    for (const Replacement& replacement : kJoinedKeywords) {
        text = ReplaceAll(std::move(text), replacement);
    }
    text = WithDisplayedKeywords(common::Trim(text), keywords);
    for (const Replacement& replacement : kJoinedPunctuation) {
        text = ReplaceAll(std::move(text), replacement);
    }
    return text;
}

std::string RewriteText(std::string_view text, const std::vector<EditorKeyword>& keywords) {
    if (text.empty()) {
        return "\r\n";
    }
    std::string result;
    result.reserve(text.size() + text.size() / 4);
    for (const std::string_view line : common::SplitLines(text)) {
        result.append(RewriteLine(line, keywords)).append("\r\n");
    }
    return result;
}

std::vector<ColoredSpan> ColorLine(std::string_view line,
                                   const std::vector<EditorKeyword>& keywords) {
    std::vector<ColoredSpan> spans;
    const std::string paddedLine = " " + std::string(line) + " ";
    for (const EditorKeyword& keyword : keywords) {
        AddKeywordSpans(paddedLine, keyword.display, spans);
    }
    const auto addFrom = [&spans](std::size_t start, std::size_t end, TextColor color) {
        spans.push_back({static_cast<int>(start), static_cast<int>(end - start), color});
    };
    if (const std::size_t quote = line.find('\''); quote != std::string_view::npos) {
        addFrom(quote, line.size(), TextColor::BasicComment);
    }
    if (const std::size_t quote = line.find('"'); quote != std::string_view::npos) {
        addFrom(quote, line.rfind('"') + 1, TextColor::Quoted);
    }
    return spans;
}

}  // namespace corvane::basic
