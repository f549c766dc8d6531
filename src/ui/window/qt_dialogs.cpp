#include "ui/window/qt_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QStringList>

#include "common/text.h"
#include "ui/dialogs/select_microcontroller_dialog.h"
#include "ui/widgets/qt_text.h"
#include "ui/window/modal_dialog.h"

namespace corvane::ui {

namespace {

const QString kTitle = QStringLiteral("Corvane");

QString QtText(std::string_view text) {
    return QString::fromStdString(common::WithLf(text));
}

QMessageBox::StandardButton ShowBox(QWidget* window, std::string_view text,
                                    std::string_view details,
                                    QMessageBox::StandardButtons buttons) {
    QMessageBox box(QMessageBox::NoIcon, kTitle, QtText(text), buttons, window);
    box.setTextFormat(Qt::PlainText);
    box.setWindowModality(Qt::WindowModal);
    if (!details.empty()) {
        box.setDetailedText(QtText(details));
    }
    return static_cast<QMessageBox::StandardButton>(RunModal(box, window));
}

// "Intel HEX files (*.hex)|*.hex|All files (*.*)|*.*" as the toolkit wants it: the pattern stands
// in brackets behind the description, which alone is shown; "*.*" means every file, also one
// without a point in its name.
QStringList NameFilters(std::string_view filters) {
    QStringList result;
    const QStringList parts = QtString(filters).split(QLatin1Char('|'));
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern =
            parts[i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parts[i + 1];
        result.append(parts[i] + " (" + pattern + ")");
    }
    return result;
}

std::optional<std::string> RunFileDialog(QFileDialog& box, QWidget* window,
                                         const app::FileDialog& dialog) {
    box.setWindowModality(Qt::WindowModal);
    box.setWindowTitle(QtString(dialog.title));
    box.setOption(QFileDialog::HideNameFilterDetails);
    box.setNameFilters(NameFilters(dialog.filters));
    box.setDirectory(QString::fromStdString(dialog.folder));
    if (!dialog.fileName.empty()) {
        box.selectFile(QString::fromStdString(dialog.fileName));
    }
    if (RunModal(box, window) != QDialog::Accepted || box.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return box.selectedFiles().constFirst().toStdString();
}

}  // namespace

void QtDialogs::Inform(const std::string& text) {
    ShowBox(window_, text, "", QMessageBox::Ok);
}

void QtDialogs::InformWithDetails(const std::string& text, const std::string& details) {
    ShowBox(window_, text, details, QMessageBox::Ok);
}

bool QtDialogs::Ask(const std::string& question) {
    return ShowBox(window_, question, "", QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

std::optional<std::string> QtDialogs::Input(const std::string& prompt,
                                            const std::string& defaultText) {
    QInputDialog box(window_);
    box.setWindowModality(Qt::WindowModal);
    box.setWindowTitle(kTitle);
    box.setInputMode(QInputDialog::TextInput);
    box.setLabelText(QtText(prompt));
    box.setTextValue(QtText(defaultText));
    if (RunModal(box, window_) != QDialog::Accepted) {
        return std::nullopt;
    }
    return box.textValue().toStdString();
}

std::optional<std::string> QtDialogs::OpenFile(const app::FileDialog& dialog) {
    QFileDialog box(window_);
    box.setAcceptMode(QFileDialog::AcceptOpen);
    box.setFileMode(QFileDialog::ExistingFile);
    return RunFileDialog(box, window_, dialog);
}

// At the first start the folder is the application's, where an installed one lets nobody write.
std::optional<std::string> QtDialogs::SaveFile(const app::FileDialog& dialog) {
    app::FileDialog question = dialog;
    if (!QFileInfo(QString::fromStdString(dialog.folder)).isWritable()) {
        question.folder = QDir::homePath().toStdString();
    }
    QFileDialog box(window_);
    box.setAcceptMode(QFileDialog::AcceptSave);
    box.setFileMode(QFileDialog::AnyFile);
    box.setOption(QFileDialog::DontConfirmOverwrite);
    return RunFileDialog(box, window_, question);
}

std::optional<int> QtDialogs::ChooseModel(int currentModel) {
    SelectMicrocontrollerDialog box(currentModel, window_);
    return RunModal(box, window_) == QDialog::Accepted ? std::optional(box.ChosenModel())
                                                       : std::nullopt;
}

}  // namespace corvane::ui
