// A listing as rows for a list view. Only the rows that are shown are ever made.
#pragma once

#include <QAbstractListModel>
#include <optional>
#include <vector>

namespace corvane::ui {

struct OutputLink {
    int outputLine;  // both count from 1
    int sourceLine;
    QString file{};       // of the line; empty: the source itself
    bool isNote = false;  // no mistake by itself
};

class OutputLines final : public QAbstractListModel {
    Q_OBJECT
  public:
    using QAbstractListModel::QAbstractListModel;

    // Line ends are LF or CR LF. The links are in order of their output lines.
    void SetText(const QString& text, std::vector<OutputLink> links);
    const QString& Text() const { return text_; }
    // Without its line end; rows count from 0.
    QString Line(int row) const;
    int LongestLine() const { return longestLine_; }  // in characters, a tab counts eight

    const std::vector<OutputLink>& Links() const { return links_; }
    // The link in this row, or nullptr.
    const OutputLink* LinkAt(int row) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    QString text_;
    std::vector<qsizetype> starts_;  // of the lines, and behind the last one
    std::vector<OutputLink> links_;
    int longestLine_ = 0;
};

}  // namespace corvane::ui
