#include "ui/editor/edit_menu.h"

#include <QAction>
#include <QTextCursor>
#include <QTextDocument>

#include "ui/window/command.h"

namespace corvane::ui {

namespace {

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
    QAction* undo = AddCommand(*menu, {"menuundo", QMenu::tr("&Undo"), QKeySequence::Undo}, *menu,
                               [&editor] { editor.Undo(); });
    QAction* redo = AddCommand(*menu, {"menuredo", QMenu::tr("&Redo"), QKeySequence::Redo}, *menu,
                               [&editor] { editor.Redo(); });
    menu->addSeparator();
    QAction* cut = AddCommand(*menu, {"menucut", QMenu::tr("Cu&t"), QKeySequence::Cut}, *menu,
                              [&editor] { editor.Cut(); });
    QAction* copy = AddCommand(*menu, {"menucopy", QMenu::tr("&Copy"), QKeySequence::Copy}, *menu,
                               [&editor] { editor.copy(); });
    AddCommand(*menu, {"menupaste", QMenu::tr("&Paste"), QKeySequence::Paste}, *menu,
               [&editor] { editor.Paste(); });
    AddCommand(*menu, {"menuselectall", QMenu::tr("Select &All"), QKeySequence::SelectAll}, *menu,
               [&editor] { editor.selectAll(); });
    editor.SetContextActions(menu->actions());
    menu->addSeparator();
    AddCommand(*menu, {"menufind", QMenu::tr("&Find..."), QKeySequence::Find}, *menu,
               [&findBar] { findBar.Open(); });
    AddCommand(*menu, {"menufindnext", QMenu::tr("Find &Next"), QKeySequence(Qt::Key_F3)}, *menu,
               [&findBar] { findBar.FindNext(); });
    AddCommand(
        *menu,
        {"menufindprevious", QMenu::tr("Find Pre&vious"), QKeySequence(Qt::SHIFT | Qt::Key_F3)},
        *menu, [&findBar] { findBar.FindPrevious(); });
    AddCommand(*menu, {"menureplace", QMenu::tr("R&eplace..."), QKeySequence(Qt::CTRL | Qt::Key_H)},
               *menu, [&findBar] { findBar.OpenReplace(); });
    AddCommand(*menu,
               {"menugotoline", QMenu::tr("&Go to Line..."), QKeySequence(Qt::CTRL | Qt::Key_G)},
               *menu, [&editor, &dialogs] { AskLine(editor, dialogs); });
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
