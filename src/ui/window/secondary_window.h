// What the modeless windows have in common: their place on the screen, their open flag, "Always On
// Top", "Close" and when they redraw.
#pragma once

#include <QWidget>

#include "app/workbench.h"
#include "ui/window/refresh_when_visible.h"

class QBoxLayout;
class QCheckBox;
class QMenu;
class QPushButton;

namespace corvane::ui {

class SecondaryWindow : public QWidget {
    Q_OBJECT
  public:
    SecondaryWindow(app::Window number, app::Workbench& workbench);

    app::Window Number() const { return number_; }

    // Places and shows the window, which is open from then on, and draws it.
    void Open();
    void BringForward();
    // Draws the window anew from the current state, as soon as it can be seen.
    void Refresh() { refresh_.Request(); }
    // Scrolls a list of the program to this address (0..8191), if the window has one.
    virtual void BringIntoView(int /*address*/) {}
    // The same, and selects the line. False: there is none.
    virtual bool GoTo(int /*address*/) { return false; }
    // Another program is loaded, or none.
    virtual void ProgramChanged() {}
    void SetTopmost(bool topmost);

  protected:
    app::Workbench& Workbench() const { return *workbench_; }

    // Touches what differs from the current state, and nothing else.
    virtual void Draw() = 0;
    // The window has just been shown and counts as open.
    virtual void Opened() {}
    // Figures beside the position that are to be stored when the window closes, or read before it
    // is placed.
    virtual void ReadFigures() {}
    virtual void StoreFigures() {}

    // The bottom line of a viewer: "Always On Top" and "Close".
    void AddFooter(QBoxLayout& layout);
    // "Go to Address", Ctrl+G: asks for one of the model's and calls GoTo. Also in the menu, if one
    // is given.
    void AddGoToAddress(app::Dialogs& dialogs, QMenu* contextMenu = nullptr);
    QPushButton* CloseButton() const { return closeButton_; }  // null without a footer

    void closeEvent(QCloseEvent* event) override;

  private:
    void AskAddress(app::Dialogs& dialogs);

    app::Window number_;
    app::Workbench* workbench_;
    RefreshWhenVisible refresh_;
    QPushButton* closeButton_ = nullptr;
};

}  // namespace corvane::ui
