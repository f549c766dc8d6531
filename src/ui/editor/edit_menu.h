// The Edit menu of a window with a source editor: undo and redo, clipboard, find, go to line.
#pragma once

#include <QMenu>

#include "app/dialogs.h"
#include "ui/editor/find_bar.h"
#include "ui/editor/source_editor.h"

namespace corvane::ui {

// The menu, owned by the parent; "Go to line" asks for its number by the dialogs.
QMenu* MakeEditMenu(SourceEditor& editor, FindBar& findBar, app::Dialogs& dialogs, QWidget* parent);

}  // namespace corvane::ui
