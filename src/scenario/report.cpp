#include "scenario/report.h"

#include <algorithm>
#include <numeric>

#include "common/text.h"

namespace corvane::scenario {

namespace {

std::string TitleOf(const FileReport& report, const Outcome& outcome) {
    return report.file + ": " + outcome.name;
}

// A bad byte of UTF-8, or a character that XML does not have, becomes "?".
std::string XmlText(std::string_view text) {
    std::string xml;
    while (!text.empty()) {
        const std::string_view character = common::FirstCharacters(text, 1);
        const auto first = static_cast<unsigned char>(character.front());
        text.remove_prefix(character.size());
        switch (first) {
            case '&':
                xml += "&amp;";
                break;
            case '<':
                xml += "&lt;";
                break;
            case '>':
                xml += "&gt;";
                break;
            case '"':
                xml += "&quot;";
                break;
            case '\n':
            case '\t':
                xml += "&#" + std::to_string(first) + ";";
                break;
            default:
                xml += first < ' ' || (first >= 0x80 && character.size() == 1)
                           ? "?"
                           : std::string(character);
        }
    }
    return xml;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : "\n") + line;
    }
    return text;
}

// A text in single quotes as YAML has it.
std::string YamlText(std::string_view text) {
    std::string yaml = "'";
    for (const char c : text) {
        yaml += c == '\'' ? "''" : std::string(1, c);
    }
    return yaml + "'";
}

// "#" begins a directive.
std::string TapName(std::string_view name) {
    std::string text;
    for (const char c : name) {
        text += c == '#' || c == '\\' ? std::string("\\") + c : std::string(1, c);
    }
    return text;
}

std::string CaseElement(const FileReport& report, const Outcome& outcome) {
    const std::string head = "    <testcase name=\"" + XmlText(outcome.name) + "\" classname=\"" +
                             XmlText(report.file) + "\" time=\"" +
                             inspect::SecondsText(outcome.clocks, report.clock) + "\"";
    if (outcome.failure.empty()) {
        return head + "/>\n";
    }
    const std::string message = XmlText(Joined(outcome.failure));
    return head + ">\n      <failure message=\"" + message + "\"/>\n    </testcase>\n";
}

std::string SuiteElement(const FileReport& report) {
    const std::int64_t clocks = std::accumulate(
        report.outcomes.begin(), report.outcomes.end(), std::int64_t{0},
        [](std::int64_t sum, const Outcome& outcome) { return sum + outcome.clocks; });
    std::string text = "  <testsuite name=\"" + XmlText(report.file) + "\" tests=\"" +
                       std::to_string(report.outcomes.size()) + "\" failures=\"" +
                       std::to_string(FailureCount(report)) + "\" time=\"" +
                       inspect::SecondsText(clocks, report.clock) + "\">\n";
    for (const Outcome& outcome : report.outcomes) {
        text += CaseElement(report, outcome);
    }
    return text + "  </testsuite>\n";
}

}  // namespace

std::string OutcomeText(const FileReport& report, const Outcome& outcome) {
    std::string text = (outcome.failure.empty() ? "ok   " : "FAIL ") + TitleOf(report, outcome) +
                       " (" + inspect::TimeText(outcome.clocks, report.clock) + ")\n";
    for (const std::string& line : outcome.failure) {
        text += "    " + line + "\n";
    }
    return text;
}

int FailureCount(const FileReport& report) {
    return static_cast<int>(
        std::count_if(report.outcomes.begin(), report.outcomes.end(),
                      [](const Outcome& outcome) { return !outcome.failure.empty(); }));
}

std::string SummaryText(const std::vector<FileReport>& reports) {
    std::size_t tests = 0;
    int failed = 0;
    for (const FileReport& report : reports) {
        tests += report.outcomes.size();
        failed += FailureCount(report);
    }
    return std::to_string(tests - static_cast<std::size_t>(failed)) + " passed, " +
           std::to_string(failed) + " failed\n";
}

std::string TapText(const std::vector<FileReport>& reports) {
    std::string text;
    int number = 0;
    for (const FileReport& report : reports) {
        for (const Outcome& outcome : report.outcomes) {
            text += (outcome.failure.empty() ? "ok " : "not ok ") + std::to_string(++number) +
                    " - " + TapName(TitleOf(report, outcome)) + "\n  ---\n  time: " +
                    YamlText(inspect::TimeText(outcome.clocks, report.clock)) + "\n";
            if (!outcome.failure.empty()) {
                text += "  message: |\n";  // which readers take that know no quoted list
            }
            for (const std::string& line : outcome.failure) {
                text += "    " + line + "\n";
            }
            text += "  ...\n";
        }
    }
    return "TAP version 13\n1.." + std::to_string(number) + "\n" + text;
}

std::string JUnitText(const std::vector<FileReport>& reports) {
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n";
    for (const FileReport& report : reports) {
        text += SuiteElement(report);
    }
    return text + "</testsuites>\n";
}

}  // namespace corvane::scenario
