#include "monkey/playground.h"

#include <QAbstractButton>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>

#include "ui/window/qt_dialogs.h"

namespace corvane::monkey {

namespace {

constexpr int kDamagedBytes = 3000;

class FencedDialogs final : public app::Dialogs {
  public:
    FencedDialogs(QWidget& window, Playground& playground)
        : real_(window), playground_(&playground) {}

    void Inform(const std::string& text) override { real_.Inform(text); }
    void InformWithDetails(const std::string& text, const std::string& details) override {
        real_.InformWithDetails(text, details);
    }
    bool Ask(const std::string& question) override { return real_.Ask(question); }
    std::optional<std::string> Input(const std::string& prompt,
                                     const std::string& defaultText) override {
        return real_.Input(prompt, defaultText);
    }
    std::optional<std::string> OpenFile(const app::FileDialog& dialog) override {
        return Fenced(real_.OpenFile(dialog));
    }
    std::optional<std::string> SaveFile(const app::FileDialog& dialog) override {
        return Fenced(real_.SaveFile(dialog));
    }
    std::optional<int> ChooseModel(int currentModel) override {
        return real_.ChooseModel(currentModel);
    }

  private:
    std::optional<std::string> Fenced(const std::optional<std::string>& path) {
        const std::string folder = playground_->Folder().toStdString();
        if (path && !path->starts_with(folder)) {
            return playground_->AnyFile().toStdString();
        }
        return path;
    }

    ui::QtDialogs real_;
    Playground* playground_;
};

}  // namespace

std::size_t Pick(Generator& random, std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
}

Playground::Playground(Generator& random) : random_(random) {
    WriteFiles();
    QDir::setCurrent(Folder());
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(variable, folder_.path().toLocal8Bit());
    }
}

void Playground::WriteFiles() {
    for (const char* source : {CORVANE_SOURCE_DIR "/examples", CORVANE_SOURCE_DIR "/tests/asm"}) {
        const QDir folder(source);
        const QStringList kinds = {"*.asm", "*.bas", "*.hex"};
        for (const QString& name : folder.entryList(kinds, QDir::Files)) {
            QFile::copy(folder.filePath(name), Folder() + name);
        }
    }
    QFile::copy(QStringLiteral(CORVANE_SOURCE_DIR "/tests/asm/every_instruction.hex"),
                Folder() + QStringLiteral("every instruction.hex"));
    QFile::copy(QStringLiteral(CORVANE_SOURCE_DIR "/tests/asm/errors.asm"),
                Folder() + QStringLiteral("größte Fehler.asm"));
    QDir(Folder()).mkdir(QStringLiteral("folder.asm"));
    for (const char* extension : {"asm", "bas", "hex", "lst"}) {
        QFile damaged(Folder() + "damaged." + extension);
        damaged.open(QIODevice::WriteOnly);
        for (int i = 0; i < kDamagedBytes; ++i) {
            damaged.putChar(static_cast<char>(Pick(random_, 256)));
        }
    }
}

QString Playground::AnyFile() {
    const QStringList names = QDir(Folder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    const std::size_t chosen = Pick(random_, static_cast<std::size_t>(names.size()) + 1);
    const auto index = static_cast<qsizetype>(chosen);
    return Folder() + (index < names.size() ? names[index] : QStringLiteral("no such file.asm"));
}

std::unique_ptr<app::Dialogs> Playground::MakeDialogs(QWidget& window) {
    return std::make_unique<FencedDialogs>(window, *this);
}

bool Playground::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show) {
        return false;
    }
    if (auto* files = qobject_cast<QFileDialog*>(watched)) {
        files->setOption(QFileDialog::ReadOnly);  // it renames and deletes files otherwise
    }
    if (auto* browse = watched->findChild<QAbstractButton*>(QStringLiteral("fileBrowser"))) {
        browse->setEnabled(false);  // the print dialog writes a PDF file where it is told
    }
    if (auto* name = watched->findChild<QLineEdit*>(QStringLiteral("filename"))) {
        name->setText(Folder() + "print.pdf");
        name->setReadOnly(true);
    }
    return false;
}

}  // namespace corvane::monkey
