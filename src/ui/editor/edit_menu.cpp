#include "ui/editor/edit_menu.h"

#include <QAction>
#include <QTextCursor>
#include <QTextDocument>

namespace corvane::ui {

namespace {

template <typename Command>
QAction* AddCommand(QMenu& menu, const char* name, const QString& caption,
                    const QKeySequence& shortcut, Command command) {
    QAction* action = menu.addAction(caption);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    // Queued, because a command may wait for an answer, and whoever chose it must not wait with it.
    QObject::connect(action, &QAction::triggered, &menu, command, Qt::QueuedConnection);
    return action;
}

void AskLine(SourceEditor& editor, app::Dialogs& dialogs) {
    const std::string lines = std::to_string(editor.blockCount());
    const std::optional<std::string> answer =
        dialogs.Input("Go to line (1 to " + lines + ").", std::to_string(editor.CaretLine()));
    if (!answer) {
        return;
    }
    bool isNumber = false;
    const int line = QString::fromStdString(*answer).trimmed().toInt(&isNumber);
    if (isNumber) {
        editor.GoToLine(line);
    }
    editor.setFocus();
}

}  // namespace

QMenu* MakeEditMenu(SourceEditor& editor, FindBar& findBar, app::Dialogs& dialogs,
                    QWidget* parent) {
    auto* menu = new QMenu(QMenu::tr("&Edit"), parent);
    menu->setObjectName("menuedit");
    QAction* undo = AddCommand(*menu, "menuundo", QMenu::tr("&Undo"), QKeySequence::Undo,
                               [&editor] { editor.Undo(); });
    QAction* redo = AddCommand(*menu, "menuredo", QMenu::tr("&Redo"), QKeySequence::Redo,
                               [&editor] { editor.Redo(); });
    menu->addSeparator();
    QAction* cut = AddCommand(*menu, "menucut", QMenu::tr("Cu&t"), QKeySequence::Cut,
                              [&editor] { editor.Cut(); });
    QAction* copy = AddCommand(*menu, "menucopy", QMenu::tr("&Copy"), QKeySequence::Copy,
                               [&editor] { editor.copy(); });
    AddCommand(*menu, "menupaste", QMenu::tr("&Paste"), QKeySequence::Paste,
               [&editor] { editor.Paste(); });
    AddCommand(*menu, "menuselectall", QMenu::tr("Select &All"), QKeySequence::SelectAll,
               [&editor] { editor.selectAll(); });
    editor.SetContextActions(menu->actions());
    menu->addSeparator();
    AddCommand(*menu, "menufind", QMenu::tr("&Find..."), QKeySequence::Find,
               [&findBar] { findBar.Open(); });
    AddCommand(*menu, "menufindnext", QMenu::tr("Find &Next"), QKeySequence(Qt::Key_F3),
               [&findBar] { findBar.FindNext(); });
    AddCommand(*menu, "menufindprevious", QMenu::tr("Find Pre&vious"),
               QKeySequence(Qt::SHIFT | Qt::Key_F3), [&findBar] { findBar.FindPrevious(); });
    AddCommand(*menu, "menureplace", QMenu::tr("R&eplace..."), QKeySequence(Qt::CTRL | Qt::Key_H),
               [&findBar] { findBar.OpenReplace(); });
    AddCommand(*menu, "menugotoline", QMenu::tr("&Go to Line..."),
               QKeySequence(Qt::CTRL | Qt::Key_G),
               [&editor, &dialogs] { AskLine(editor, dialogs); });
    for (QAction* action : {undo, redo, cut, copy}) {
        action->setEnabled(false);
    }
    QObject::connect(&editor, &QPlainTextEdit::undoAvailable, undo, &QAction::setEnabled);
    QObject::connect(&editor, &QPlainTextEdit::redoAvailable, redo, &QAction::setEnabled);
    QObject::connect(&editor, &QPlainTextEdit::copyAvailable, cut, &QAction::setEnabled);
    QObject::connect(&editor, &QPlainTextEdit::copyAvailable, copy, &QAction::setEnabled);
    return menu;
}

}  // namespace corvane::ui
