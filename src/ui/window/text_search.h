// Looking for words in a text.
#pragma once

#include <QTextCursor>
#include <QTextDocument>

namespace corvane::ui {

// Where the text stands next, from the cursor on; behind the end of the document it goes on at the
// other end. Null when it stands nowhere.
QTextCursor FindInText(const QString& text, const QTextCursor& start,
                       QTextDocument::FindFlags flags);

}  // namespace corvane::ui
