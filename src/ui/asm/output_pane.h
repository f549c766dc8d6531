// Shows a listing. Some of its lines lead to lines of the source: by a click, by Enter, or one
// after the other.
#pragma once

#include <QPlainTextEdit>
#include <optional>
#include <vector>

namespace corvane::ui {

struct OutputLink {
    int outputLine;  // both count from 1
    int sourceLine;
};

class OutputPane final : public QPlainTextEdit {
    Q_OBJECT
  public:
    explicit OutputPane(QWidget* parent = nullptr);

    // The caret stands at the text's end. The links are in order of their output lines.
    void ShowOutput(const QString& text, std::vector<OutputLink> links);
    void Clear();
    bool HasLinks() const { return !links_.empty(); }

    // The link after, or before, the caret's line; behind the last one comes the first.
    void FollowNext();
    void FollowPrevious();

  signals:
    void LinkFollowed(int sourceLine);

  protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    const OutputLink* LinkAt(const QTextCursor& position) const;
    void Follow(const OutputLink& link);
    void MarkLinks();

    std::vector<OutputLink> links_;
    std::optional<int> followedLine_;
};

}  // namespace corvane::ui
