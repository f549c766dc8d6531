#include "ui/editor/text_keeper.h"

#include <QTextDocument>
#include <chrono>
#include <utility>

namespace corvane::ui {

namespace {

// So that a text is on the disk five seconds after it was typed, on a slow disk too.
constexpr std::chrono::seconds kDelay(3);

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

}  // namespace

TextKeeper::TextKeeper(QTextDocument& document, app::KeptTexts texts,
                       std::function<std::string()> textToKeep)
    : document_(&document), texts_(std::move(texts)), textToKeep_(std::move(textToKeep)) {
    timer_.setSingleShot(true);
    timer_.setInterval(kDelay);
    connect(&timer_, &QTimer::timeout, this, &TextKeeper::Keep);
    connect(document_, &QTextDocument::contentsChanged, this, [this] {
        if (!timer_.isActive() && document_->isModified()) {
            timer_.start();
        }
    });
}

void TextKeeper::Keep() {
    timer_.stop();
    if (!document_->isModified() || document_->revision() == keptRevision_) {
        return;
    }
    const std::string text = textToKeep_();
    if (IsBlank(text)) {
        return;  // what was kept before is worth more
    }
    if (id_.empty()) {
        id_ = texts_.NewId();
    }
    const common::Status status = texts_.Keep(id_, path_, text);
    keptRevision_ = status ? document_->revision() : -1;
    emit Kept(QString::fromStdString(status.error));
}

void TextKeeper::Forget() {
    timer_.stop();
    if (!id_.empty()) {
        texts_.Forget(std::exchange(id_, {}));
    }
    keptRevision_ = -1;
}

void TextKeeper::LetGo() {
    if (!document_->isModified()) {
        Forget();
        return;
    }
    Keep();
    id_.clear();
    keptRevision_ = -1;
    texts_.ForgetOldest();
}

void TextKeeper::TakeOver(const std::string& id) {
    id_ = id;
    Keep();
}

}  // namespace corvane::ui
