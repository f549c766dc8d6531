// The whole desktop application with a scripted person in front of it.
#pragma once

#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QLabel>
#include <QMenuBar>
#include <memory>
#include <optional>

#include "app/fakes.h"
#include "ui/desktop/desktop.h"
#include "ui/widgets/bit_cell.h"

namespace corvane::ui {

using Texts = std::vector<std::string>;

// Lets events happen until the condition holds; false after ten seconds.
template <typename Condition>
bool WaitFor(Condition condition) {
    const QDeadlineTimer deadline(10'000);
    while (!condition() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return condition();
}

class DesktopTest : public testing::Test {
  public:
    // The application starts (again) with the settings as they are.
    void Start(std::optional<int> modelRow = std::nullopt) {
        desktop.reset();
        desktop.emplace(Folders{modelFolder, recoveryFolder}, store, clock,
                        [this](QWidget& window) { return MakeDialogs(window); });
        ASSERT_TRUE(desktop->StartUp(modelRow));
        desktop->Show();
    }

    // The person in front of the main window is the one that the tests script.
    virtual std::unique_ptr<app::Dialogs> MakeDialogs(const QWidget& window) {
        auto made = std::make_unique<app::ScriptedDialogs>();
        if (qobject_cast<const MainWindow*>(&window) != nullptr) {
            dialogs = made.get();
        }
        return made;
    }

    void Load(const std::vector<int>& words) {
        desktop->Workbench().LoadProgramFile(folder.Write("program.hex", app::HexOf(words)));
        ASSERT_EQ(dialogs->Shown().back().substr(0, 20), "Operation completed.");
    }

    void Trigger(const char* menuCommand) {
        auto* action = Child<QAction>(desktop->Main(), menuCommand);
        ASSERT_TRUE(action->isEnabled()) << menuCommand;
        action->trigger();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }

    template <typename Widget>
    static Widget* Child(const QWidget& window, const std::string& name) {
        auto* child = window.findChild<Widget*>(QString::fromStdString(name));
        EXPECT_NE(child, nullptr) << name;
        return child;
    }

    static std::string TextOf(const QWidget& window, const std::string& label) {
        return Child<QLabel>(window, label)->text().toStdString();
    }
    std::string Text(const std::string& label) { return TextOf(desktop->Main(), label); }

    // What a cell says: "STATUS bit 5: 1".
    std::string Bit(const std::string& cell) {
        return Child<BitCell>(desktop->Main(), cell)->accessibleName().toStdString();
    }

    SecondaryWindow& Open(app::Window window) {
        desktop->Workbench().OpenWindow(window);
        return *desktop->Find(window);
    }

    std::string modelFolder = CORVANE_SOURCE_DIR "/data/models/";
    app::TemporaryFolder folder;
    std::string recoveryFolder = folder.path + "recovery/";
    common::MapSettingsStore store;
    app::ScriptedDialogs* dialogs = nullptr;
    app::FakeClock clock;
    std::optional<Desktop> desktop;
};

}  // namespace corvane::ui
