// Shows a listing. Some of its lines lead to lines of the source: by a click, by Enter, or one
// after the other.
#pragma once

#include <QListView>
#include <optional>
#include <vector>

#include "ui/asm/output_lines.h"

class QMenu;

namespace corvane::ui {

// A list, not a text editor: filling an editor with a long listing takes longer than assembling.
class OutputPane final : public QListView {
    Q_OBJECT
  public:
    explicit OutputPane(QWidget* parent = nullptr);

    // The last line becomes the current one. The links are in order of their output lines.
    void ShowOutput(const QString& text, std::vector<OutputLink> links);
    void Clear();
    bool IsEmpty() const { return lines_.Text().isEmpty(); }
    const QString& Text() const { return lines_.Text(); }

    // The link after, or before, the one followed last, notes left out; behind the last one comes
    // the first.
    void FollowNext();
    void FollowPrevious();

  signals:
    void LinkFollowed(const corvane::ui::OutputLink& link);

  protected:
    bool event(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    class LineDelegate;

    void CopySelection();
    const OutputLink* LinkAt(const QModelIndex& index) const;
    void Follow(const OutputLink& link);
    template <typename Iterator, typename Condition>
    void FollowFirst(Iterator begin, Iterator end, const Condition& isWanted);

    OutputLines lines_;
    QMenu* contextMenu_;  // stays with the pane, which may go while it is open
    std::optional<int> followedLine_;
};

}  // namespace corvane::ui
