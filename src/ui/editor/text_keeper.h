// Keeps a text that is being edited in the user's data folder, as long as it has not been saved.
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <string>

#include "app/kept_texts.h"

class QTextDocument;

namespace corvane::ui {

// Follows the typing at most five seconds behind and does nothing while nothing is typed.
class TextKeeper final : public QObject {
    Q_OBJECT
  public:
    TextKeeper(QTextDocument& document, app::KeptTexts texts,
               std::function<std::string()> textToKeep);

    const app::KeptTexts& Texts() const { return texts_; }
    // Without the text that is being edited.
    std::vector<app::KeptText> Latest() const { return texts_.Latest(id_); }

    // The file that the text belongs to from here on; empty when it has none yet.
    void SetPath(const std::string& path) { path_ = path; }

    // The text has been saved.
    void Forget();
    // The text is about to be dropped: keeps it if it has not been saved.
    void LetGo();
    // The text is now this kept one, and is kept in its place.
    void TakeOver(const std::string& id);

  signals:
    // Why the text could not be kept; empty when it has been.
    void Kept(const QString& failure);

  private:
    void Keep();

    QTextDocument* document_;
    app::KeptTexts texts_;
    std::function<std::string()> textToKeep_;
    QTimer timer_;
    std::string path_;
    std::string id_;  // empty when nothing of the text is kept
    int keptRevision_ = -1;
};

}  // namespace corvane::ui
