// Where the lines of a printed text stand on its pages. Lengths are in millimetres.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::app {

constexpr double kPageMargin = 10;  // left, top and bottom

struct PageMetrics {
    double printableWidth;
    double printableHeight;
    double lineHeight;  // of the printer's font
};

// The printed width of a line in the printer's font.
using TextWidth = std::function<double(std::string_view)>;

struct PrintedLine {
    double top;  // from the page's top; the left end is at kPageMargin
    std::string text;
};

using PrintedPage = std::vector<PrintedLine>;  // empty lines are left out

// All pages of one print job. Each copy begins with page 1 on a fresh page.
std::vector<PrintedPage> LayOutPages(std::string_view title, std::string_view text, int copies,
                                     const PageMetrics& metrics, const TextWidth& textWidth);

// The line, cut in proportion if it is wider than the width between the margins.
std::string FittedLine(std::string_view line, double printableWidth, const TextWidth& textWidth);

}  // namespace corvane::app
