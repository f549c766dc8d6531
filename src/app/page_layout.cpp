#include "app/page_layout.h"

#include <cmath>
#include <cstddef>

#include "common/text.h"

namespace corvane::app {

namespace {

constexpr int kHeaderLines = 3;      // with the two empty ones
constexpr double kTolerance = 1e-6;  // of sums of line heights

class PageWriter {
  public:
    PageWriter(std::vector<PrintedPage>& pages, std::string_view title, const PageMetrics& metrics)
        : pages_(&pages), title_(title), metrics_(&metrics) {}

    void BeginPage() {
        ++number_;
        line_ = kHeaderLines;
        pages_->push_back(
            {{kPageMargin, "Page " + std::to_string(number_) + "          " + title_}});
    }

    void Print(const std::string& text) {
        if (!text.empty()) {
            pages_->back().push_back({Position(), text});
        }
        ++line_;
        if (Position() > std::floor(metrics_->printableHeight) - kPageMargin + kTolerance) {
            BeginPage();
        }
    }

  private:
    double Position() const { return kPageMargin + line_ * metrics_->lineHeight; }

    std::vector<PrintedPage>* pages_;
    std::string title_;
    const PageMetrics* metrics_;
    int number_ = 0;
    int line_ = 0;  // the next one on the page
};

}  // namespace

std::string FittedLine(std::string_view line, double printableWidth, const TextWidth& textWidth) {
    const double usable = printableWidth - 2 * kPageMargin;
    const double width = textWidth(line);
    if (width <= usable) {
        return std::string(line);
    }
    const double fitting =
        std::floor(static_cast<double>(common::CharacterCount(line)) * usable / width);
    return std::string(
        common::FirstCharacters(line, fitting > 0 ? static_cast<std::size_t>(fitting) : 0));
}

std::vector<PrintedPage> LayOutPages(std::string_view title, std::string_view text, int copies,
                                     const PageMetrics& metrics, const TextWidth& textWidth) {
    std::vector<PrintedPage> pages;
    const std::vector<std::string_view> lines = common::SplitLines(text);
    for (int copy = 0; copy < copies; ++copy) {
        PageWriter writer(pages, title, metrics);
        writer.BeginPage();
        for (const std::string_view line : lines) {
            writer.Print(FittedLine(line, metrics.printableWidth, textWidth));
        }
    }
    return pages;
}

}  // namespace corvane::app
