// Does at random what a person can do: clicks, keys, commands, answers to dialogs, files that are
// dropped, windows that are moved and closed.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <set>

#include "monkey/playground.h"
#include "ui/desktop/desktop.h"

namespace corvane::monkey {

class Monkey {
  public:
    Monkey(Generator& random, Playground& playground) : random_(random), playground_(playground) {}

    // The desktop that its files are dropped on; null while there is none.
    void SetDesktop(ui::Desktop* desktop) { desktop_ = desktop; }

    // Acts from the event loop, also from those of dialogs, until so many acts are done; then it
    // closes what is open and ends the event loop.
    void Begin(int acts);
    bool IsDone() const { return actsLeft_ == 0; }

    // The title of a dialog that did not go away for whatever the monkey did to it, or empty.
    QString StuckDialog() const { return stuckDialog_; }

    // What it has come across: the titles of windows and dialogs.
    const std::set<QString>& SeenTitles() const { return seenTitles_; }

  private:
    void ScheduleNext();
    void Send(const std::function<void()>& input);
    void Act();
    void WatchDialog();
    void AnswerDialog(QWidget& dialog);
    void Click(QWidget& window);
    void ClickAt(QWidget& widget, QPoint position);
    void PressKey(QWidget& window);
    void TypeInto(QWidget& window, const QString& text);
    void RunCommand(const QWidget& window);
    void DropFile();
    void MoveOrClose(QWidget& window);

    template <typename T>
    T& OneOf(std::vector<T>& all) {
        return all[Pick(random_, all.size())];
    }

    Generator& random_;
    Playground& playground_;
    ui::Desktop* desktop_ = nullptr;
    int actsLeft_ = 0;
    int inputLevel_ = -1;  // the event loop in which an input is on its way
    QPointer<QWidget> watchedDialog_;
    int actsWithDialog_ = 0;
    QString stuckDialog_;
    std::set<QString> seenTitles_;
};

}  // namespace corvane::monkey
