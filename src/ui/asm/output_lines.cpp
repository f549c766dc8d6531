#include "ui/asm/output_lines.h"

#include <algorithm>
#include <utility>

namespace corvane::ui {

namespace {

constexpr int kTabWidth = 8;

}  // namespace

void OutputLines::SetText(const QString& text, std::vector<OutputLink> links) {
    beginResetModel();
    text_ = text;
    links_ = std::move(links);
    starts_.assign(1, 0);
    longestLine_ = 0;
    const bool hasTabs = text_.contains(u'\t');
    while (starts_.back() < text_.size()) {
        const qsizetype start = starts_.back();
        const qsizetype found = text_.indexOf(u'\n', start);
        const qsizetype end = found < 0 ? text_.size() : found;
        const qsizetype tabs =
            hasTabs ? QStringView(text_).mid(start, end - start).count(u'\t') : 0;
        longestLine_ =
            std::max(longestLine_, static_cast<int>(end - start + (kTabWidth - 1) * tabs));
        starts_.push_back(end + 1);
    }
    endResetModel();
}

QString OutputLines::Line(int row) const {
    const auto line = static_cast<std::size_t>(row);
    QString text = text_.mid(starts_[line], starts_[line + 1] - starts_[line] - 1);
    if (text.endsWith(u'\r')) {
        text.chop(1);
    }
    return text;
}

const OutputLink* OutputLines::LinkAt(int row) const {
    const auto found =
        std::lower_bound(links_.begin(), links_.end(), row + 1,
                         [](const OutputLink& link, int line) { return link.outputLine < line; });
    return found != links_.end() && found->outputLine == row + 1 ? &*found : nullptr;
}

int OutputLines::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || starts_.empty() ? 0 : static_cast<int>(starts_.size()) - 1;
}

QVariant OutputLines::data(const QModelIndex& index, int role) const {
    return role == Qt::DisplayRole ? QVariant(Line(index.row())) : QVariant();
}

}  // namespace corvane::ui
