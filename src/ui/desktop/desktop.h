// The desktop application: the workbench, the main window in front of it, and the windows that are
// opened from there.
#pragma once

#include <QPointer>
#include <QTimer>
#include <map>
#include <memory>
#include <optional>

#include "app/workbench.h"
#include "ui/debug/tests_window.h"
#include "ui/desktop/going_frame.h"
#include "ui/desktop/main_menu.h"
#include "ui/main/main_window.h"
#include "ui/window/dialogs_factory.h"
#include "ui/window/refresh_when_visible.h"
#include "ui/window/secondary_window.h"

namespace corvane::ui {

// The windows that show a text and keep no position.
enum class TextWindow : std::uint8_t {
    GettingStarted,
    HelpTopics,
    BasicHelpTopics,
    TestingFirmware,
    About
};

struct Folders {
    std::string application;  // the description files, with trailing separator
    std::string recovery;     // texts that were not saved
};

class Desktop final : private app::Views, private app::SliceTimer {
  public:
    Desktop(Folders folders, common::SettingsStore& store, app::Clock& clock,
            DialogsFactory makeDialogs);
    ~Desktop() override;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    // Makes the stored model current, or the given one. False: the application must end.
    [[nodiscard]] bool StartUp(std::optional<int> modelRow = std::nullopt);
    void Show();

    app::Workbench& Workbench() { return workbench_; }
    MainWindow& Main() { return mainWindow_; }
    SecondaryWindow* Find(app::Window window) const;  // null when it is not open

    // Loads a program; opens an assembler or BASIC source in its window. The extension tells.
    void OpenFile(const QString& path);

    void SelectMicrocontroller();
    void OpenText(TextWindow text);
    void RunTests();
    void RunBackToLastChange() { mainWindow_.RequestLastChange(); }
    void Quit();

  private:
    void Refresh(app::Window window) override;
    void BringPcIntoView() override;
    void ModelChanged() override;
    void ProgramChanged() override;
    void CommandsChanged() override;
    void GoingThroughHistory(std::int64_t step) override;
    void ArrivedInHistory() override { going_.reset(); }
    void ShowWindow(app::Window window) override;
    void CloseWindow(app::Window window) override;
    void SetTopmost(app::Window window, bool topmost) override;
    void ScheduleSlice(std::chrono::nanoseconds delay) override;

    void DrawMain();
    void ChangeValue(const QLabel& value);
    void RunBackToLastChange(const QLabel& value);
    void OpenSource(app::Window window, const QString& path);
    void End(int exitCode);

    std::string recoveryFolder_;
    DialogsFactory makeDialogs_;
    MainWindow mainWindow_;
    std::unique_ptr<app::Dialogs> dialogs_;
    QTimer sliceTimer_;
    app::Workbench workbench_;
    MainMenu menu_;
    RefreshWhenVisible& mainRefresh_;  // owned by the main window
    std::map<app::Window, QPointer<SecondaryWindow>> windows_;
    std::map<TextWindow, QPointer<QWidget>> textWindows_;
    QPointer<TestsWindow> testsWindow_;
    std::optional<GoingFrame> going_;  // while the simulation goes through its history
};

}  // namespace corvane::ui
