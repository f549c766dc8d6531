// Lets a person select, copy and change the values that a window shows in labels. A click selects
// one. Tab leads to the one selected last, as one stop for all of them, and the arrow keys from
// there to its neighbours. Ctrl+C copies it; a double click, Enter or F2 asks for a change.
#pragma once

#include <QObject>
#include <QPalette>
#include <QPointer>
#include <vector>

class QKeyEvent;
class QLabel;
class QMenu;
class QWidget;

namespace corvane::ui {

class ValueActions final : public QObject {
    Q_OBJECT
  public:
    // What the context menu calls the change.
    ValueActions(QWidget& window, const QString& changeCaption);

    // Adds "Run Back to Last Change" to the context menu.
    void OfferLastChange();
    // The same for the value that was selected last.
    void RequestLastChange() { emit LastChangeRequested(current_); }

    // The first one that is added is the one that Tab leads to at first.
    void Add(QLabel& value);

  signals:
    void Clicked(QLabel* value);
    void ChangeRequested(QLabel* value);
    void LastChangeRequested(QLabel* value);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    template <typename Action>
    auto ForContextValue(Action action);
    bool HandleKey(QLabel& value, QKeyEvent& key);
    void SetCurrent(QLabel& value);
    void ShowSelected(QLabel& value, bool isSelected);
    QLabel* Neighbour(const QLabel& value, int key) const;

    QWidget* window_;
    std::vector<QLabel*> values_;
    QLabel* current_ = nullptr;
    QMenu* contextMenu_;
    QPointer<QLabel> contextValue_;
    QPalette::ColorRole background_ = QPalette::NoRole;  // of the selected one before
    QPalette::ColorRole foreground_ = QPalette::NoRole;
    bool fillsBackground_ = false;
};

}  // namespace corvane::ui
