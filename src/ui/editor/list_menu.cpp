#include "ui/editor/list_menu.h"

#include <QAction>
#include <utility>

namespace corvane::ui {

namespace {

constexpr int kWidestText = 60;  // characters

// "&1 text" to "&9 text", "1&0 text"
QString Caption(std::size_t index, const QString& text) {
    const QString number = QString::number(index + 1);
    QString plain = text;
    plain.replace(QLatin1Char('&'), QStringLiteral("&&"));
    return number.chopped(1) + QLatin1Char('&') + number.right(1) + QLatin1Char(' ') + plain;
}

}  // namespace

ListMenu::ListMenu(const char* name, const QString& caption, QWidget& parent,
                   std::function<void(const std::string& id)> choose)
    : QMenu(caption, &parent), choose_(std::move(choose)) {
    menuAction()->setObjectName(name);
    menuAction()->setEnabled(false);
    setToolTipsVisible(true);
}

void ListMenu::Show(std::vector<ListEntry> entries) {
    if (entries == entries_) {
        return;
    }
    clear();
    entries_ = std::move(entries);
    const int width = fontMetrics().averageCharWidth() * kWidestText;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const ListEntry& entry = entries_[i];
        const QString text = fontMetrics().elidedText(entry.text, Qt::ElideMiddle, width);
        QAction* action = addAction(Caption(i, text));
        action->setObjectName(menuAction()->objectName() + QStringLiteral("[%1]").arg(i));
        action->setToolTip(entry.toolTip);
        action->setEnabled(entry.isEnabled);
        connect(
            action, &QAction::triggered, this, [this, id = entry.id] { choose_(id); },
            Qt::QueuedConnection);
    }
    menuAction()->setEnabled(!entries_.empty());
}

}  // namespace corvane::ui
