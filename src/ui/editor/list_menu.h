// A submenu whose entries are a list that changes, such as the files opened last.
#pragma once

#include <QMenu>
#include <functional>
#include <string>
#include <vector>

namespace corvane::ui {

struct ListEntry {
    std::string id;  // what the entry stands for
    QString text;
    QString toolTip;
    bool isEnabled = true;
    bool operator==(const ListEntry&) const = default;
};

class ListMenu final : public QMenu {
    Q_OBJECT
  public:
    // The submenu bears the name, its entries "name[0]" and so on. What is done with the entry that
    // was chosen is done when the menu has closed.
    ListMenu(const char* name, const QString& caption, QWidget& parent,
             std::function<void(const std::string& id)> choose);

    // The first ten have a digit as their key. An empty menu cannot be opened.
    void Show(std::vector<ListEntry> entries);

  private:
    std::function<void(const std::string& id)> choose_;
    std::vector<ListEntry> entries_;
};

}  // namespace corvane::ui
