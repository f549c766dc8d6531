// A workbench with the real description files, a scripted person and a source window.
#pragma once

#include <QAction>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include "app/fakes.h"
#include "common/text.h"
#include "ui/common/dialogs_factory.h"
#include "ui/editor/source_window.h"
#include "ui/shown_text.h"

namespace corvane::ui {

template <typename Window>
class SourceWindowTest : public app::WorkbenchTest {
  protected:
    void SetUp() override { Start(models::kDefaultModel); }
    void TearDown() override { delete window; }

    void Start(int modelRow) {
        delete window;
        workbench.emplace(std::string(CORVANE_SOURCE_DIR) + "/data/models/", store, dialogs, views,
                          clock);
        views.workbench = &*workbench;
        ASSERT_TRUE(workbench->StartUp(modelRow));
        workbench->Settings().SetLastPathOf(folder.path);
        OpenWindow();
    }

    void OpenWindow() {
        delete window;
        window = new Window(*workbench, [this](QWidget&) {
            auto made = std::make_unique<app::ScriptedDialogs>();
            person = made.get();
            return made;
        });
        window->Open();
    }

    void Choose(const char* menuCommand) {
        auto* action = window->template findChild<QAction*>(menuCommand);
        ASSERT_NE(action, nullptr) << menuCommand;
        ASSERT_TRUE(action->isEnabled()) << menuCommand;
        action->trigger();
        QCoreApplication::processEvents();
    }
    // Answers the next file dialog with a file of this name.
    void ChooseFile(const char* menuCommand, const std::string& name) {
        person->texts.emplace_back(folder.path + name);
        Choose(menuCommand);
        person->Shown();
    }

    QPlainTextEdit& Pane(const char* name) {
        return *window->template findChild<QPlainTextEdit*>(name);
    }
    QPlainTextEdit& Source() { return Pane("RichTextBox1"); }
    std::string SourceText() { return Source().toPlainText().toStdString(); }
    std::string Caption() { return window->windowTitle().toStdString(); }

    // Line ends are CR LF.
    void Type(const std::string& text) {
        for (const char c : text) {
            if (c == '\r') {
                Press(Qt::Key_Return);
            } else if (c != '\n') {
                QTest::keyClick(&Source(), c);
            }
        }
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&Source(), key, modifiers);
    }

    // Prints with this command and reads back what was printed, with single blanks.
    std::string PrintedBy(const char* menuCommand, int copies = 1) {
        const QString pdf = QString::fromStdString(folder.path) + "printed.pdf";
        window->SetPrinterChooser([&](QPrinter& printer) {
            printer.setPageSize(QPageSize(QPageSize::A4));
            printer.setOutputFileName(pdf);
            printer.setCopyCount(copies);
            return true;
        });
        Choose(menuCommand);
        QProcess reader;
        reader.start("pdftotext", {"-layout", pdf, "-"});
        reader.waitForFinished(-1);
        static const QRegularExpression kBlanks(" +");
        return QString::fromUtf8(reader.readAllStandardOutput())
            .replace(kBlanks, " ")
            .toStdString();
    }

    QPointer<Window> window;
    app::ScriptedDialogs* person = nullptr;
};

}  // namespace corvane::ui
