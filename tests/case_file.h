// Tests as files: lines "INPUT => EXPECTED", or parts that begin with "=== HEAD". Lines that begin
// with # are none. Escapes in lines are C's: \n, \r, \t, \0, \\ and \xE9.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>

#include "shipped_files.h"

namespace corvane {

inline std::string Unescaped(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const char c = text[++i];
        if (c == 'x') {
            result += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            result += c == 'n' ? '\n' : c == 'r' ? '\r' : c == 't' ? '\t' : c == '0' ? '\0' : c;
        }
    }
    return result;
}

// Expects that the function makes of each input what stands behind it.
inline void ExpectCases(const std::string& pathInSourceTree,
                        const std::function<std::string(const std::string&)>& function) {
    constexpr std::string_view kArrow = " => ";
    std::istringstream file(ReadSourceFile(pathInSourceTree));
    int cases = 0;
    for (std::string line; std::getline(file, line);) {
        const std::size_t arrow = (line + " ").find(kArrow);
        if (!line.starts_with('#') && arrow != std::string::npos) {
            const std::string expected = line.substr(std::min(line.size(), arrow + kArrow.size()));
            EXPECT_EQ(function(Unescaped(line.substr(0, arrow))), Unescaped(expected)) << line;
            ++cases;
        }
    }
    EXPECT_GT(cases, 1) << pathInSourceTree;
}

// Calls with the head of each part and the lines below it; returns how many there are.
inline int ForEachPart(
    const std::string& pathInSourceTree,
    const std::function<void(const std::string& head, const std::string& body)>& function) {
    constexpr std::string_view kMark = "=== ";
    std::istringstream file(ReadSourceFile(pathInSourceTree));
    std::string head;
    std::string body;
    int parts = 0;
    const auto endPart = [&] {
        if (!head.empty()) {
            function(head, body);
            ++parts;
        }
        body.clear();
    };
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(kMark)) {
            endPart();
            head = line.substr(kMark.size());
        } else if (!line.starts_with('#')) {
            body += line + "\n";
        }
    }
    endPart();
    return parts;
}

}  // namespace corvane
