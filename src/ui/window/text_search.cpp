#include "ui/window/text_search.h"

namespace corvane::ui {

QTextCursor FindInText(const QString& text, const QTextCursor& start,
                       QTextDocument::FindFlags flags) {
    const QTextDocument& document = *start.document();
    const QTextCursor found = document.find(text, start, flags);
    if (!found.isNull()) {
        return found;
    }
    QTextCursor farEnd(start);
    farEnd.movePosition(flags.testFlag(QTextDocument::FindBackward) ? QTextCursor::End
                                                                    : QTextCursor::Start);
    return document.find(text, farEnd, flags);
}

}  // namespace corvane::ui
