// Debug > Run Tests: the firmware tests below a folder, what has become of each, and the line of
// what has failed.
#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "app/firmware_tests.h"
#include "app/workbench.h"
#include "ui/window/dialogs_factory.h"

class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace corvane::ui {

class PathLabel;
class TextViewWindow;

class TestsWindow final : public QWidget {
    Q_OBJECT
  public:
    TestsWindow(app::Workbench& workbench, const DialogsFactory& makeDialogs);
    ~TestsWindow() override;

    // Runs the tests below this folder.
    void RunFolder(const std::string& folder);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QLayout* MakeHeading();
    QLayout* MakeFooter();
    void ChooseFile();
    void Run(const std::vector<std::string>& files);
    void Begin();
    void End();
    void Show(const app::TestResult& result);
    void OpenLine(const QTreeWidgetItem& item);

    app::Workbench* workbench_;
    std::unique_ptr<app::Dialogs> dialogs_;
    PathLabel* folderLabel_;
    QTreeWidget* list_;
    QLabel* summary_;
    QPushButton* run_;
    QPushButton* choose_;
    QPushButton* stop_;
    TextViewWindow* textView_ = nullptr;
    std::string folder_;
    int passed_ = 0;
    int failed_ = 0;
    bool isRunning_ = false;
    bool isCancelled_ = false;
    bool isClosing_ = false;
};

}  // namespace corvane::ui
