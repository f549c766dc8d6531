#include "ui/debug/tests_window.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "app/source_file.h"
#include "scenario/prepared_tests.h"
#include "ui/editor/text_view_window.h"
#include "ui/widgets/data_font.h"
#include "ui/widgets/path_label.h"
#include "ui/window/accessible_window.h"
#include "ui/window/event_pump.h"

namespace corvane::ui {

namespace {

constexpr int kFileRole = Qt::UserRole;
constexpr int kLineRole = Qt::UserRole + 1;

QPushButton* MakeButton(const char* name, const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    return button;
}

}  // namespace

TestsWindow::TestsWindow(app::Workbench& workbench, const DialogsFactory& makeDialogs)
    : workbench_(&workbench),
      dialogs_(makeDialogs(*this)),
      folderLabel_(new PathLabel),
      list_(new QTreeWidget),
      summary_(new QLabel),
      run_(MakeButton("testsrun", tr("&Run"))),
      choose_(MakeButton("testschoose", tr("&Open..."))),
      stop_(MakeButton("testsstop", tr("&Stop"))) {
    setObjectName("TestsWindow");
    setWindowTitle(tr("Firmware Tests"));
    setAttribute(Qt::WA_DeleteOnClose);
    MakeAccessibleAsWindow(*this);
    list_->setObjectName("testslist");
    list_->setAccessibleName(tr("Tests and what has become of them"));
    list_->setHeaderLabels({tr("Test"), tr("Result"), tr("Simulated time")});
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    summary_->setObjectName("testssummary");
    connect(list_, &QTreeWidget::itemActivated, this,
            [this](const QTreeWidgetItem* item) { OpenLine(*item); });
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeHeading());
    layout->addWidget(list_, 1);
    layout->addLayout(MakeFooter());
    resize(640, 420);
    End();
}

TestsWindow::~TestsWindow() = default;

QLayout* TestsWindow::MakeHeading() {
    auto* caption = new QLabel(tr("Folder:"));
    caption->setBuddy(folderLabel_);
    folderLabel_->setObjectName("testsfolder");
    folderLabel_->setAccessibleDescription(tr("Folder whose tests are run"));
    auto* heading = new QHBoxLayout;
    heading->addWidget(caption);
    heading->addWidget(folderLabel_, 1);
    return heading;
}

QLayout* TestsWindow::MakeFooter() {
    auto* close = MakeButton("Command1", tr("Close"));
    connect(run_, &QPushButton::clicked, this, [this] { RunFolder(folder_); });
    connect(choose_, &QPushButton::clicked, this, &TestsWindow::ChooseFile, Qt::QueuedConnection);
    connect(stop_, &QPushButton::clicked, this, [this] { isCancelled_ = true; });
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    for (const QKeySequence& keys :
         {QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)}) {
        const auto* shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, &QWidget::close);
    }
    auto* footer = new QHBoxLayout;
    footer->addWidget(summary_, 1);
    for (QWidget* button : {run_, choose_, stop_, close}) {
        footer->addWidget(button);
    }
    return footer;
}

void TestsWindow::ChooseFile() {
    const std::optional<std::string> path =
        dialogs_->OpenFile({.title = app::kFirmwareTest.openTitle,
                            .filters = app::kFirmwareTest.filters,
                            .folder = workbench_->Settings().LastPath()});
    if (path && !path->empty()) {
        workbench_->Settings().SetLastPathOf(*path);
        folder_ = workbench_->Settings().LastPath();
        folderLabel_->ShowPath(QString::fromStdString(*path));
        Run({*path});
    }
}

void TestsWindow::RunFolder(const std::string& folder) {
    folder_ = folder;
    folderLabel_->ShowPath(QString::fromStdString(folder));
    const common::Result<std::vector<std::string>> files = scenario::TestFilesBelow(folder);
    if (!files || files->empty()) {
        list_->clear();
        summary_->setText(files ? tr("There is no test file (.test) in this folder.")
                                : QString::fromStdString(files.error));
        return;
    }
    Run(*files);
}

// Queued events come while a test runs, so that it can be stopped.
void TestsWindow::Run(const std::vector<std::string>& files) {
    if (isRunning_) {
        return;
    }
    Begin();
    EventPump events;
    const app::TestOptions options = {.modelFolder = workbench_->ApplicationFolder(),
                                      .isCancelled = [&] {
                                          if (events.IsDue()) {
                                              events.LetEventsIn();
                                          }
                                          return isCancelled_;
                                      }};
    for (const std::string& file : files) {
        if (!isCancelled_) {
            app::RunTestFile(file, options,
                             [this](const app::TestResult& result) { Show(result); });
        }
    }
    End();
    if (isClosing_) {
        close();
    }
}

void TestsWindow::Begin() {
    isRunning_ = true;
    isCancelled_ = false;
    passed_ = 0;
    failed_ = 0;
    list_->clear();
    summary_->setText(tr("Running"));
    run_->setEnabled(false);
    choose_->setEnabled(false);
    stop_->setEnabled(true);
}

void TestsWindow::End() {
    if (isRunning_) {
        summary_->setText(
            (isCancelled_ ? tr("Stopped: %1 passed, %2 failed") : tr("%1 passed, %2 failed"))
                .arg(passed_)
                .arg(failed_));
    }
    isRunning_ = false;
    run_->setEnabled(true);
    choose_->setEnabled(true);
    stop_->setEnabled(false);
}

void TestsWindow::Show(const app::TestResult& result) {
    ++(result.hasPassed ? passed_ : failed_);
    const QString file = QString::fromStdString(result.file);
    const QString name = QFileInfo(file).fileName() +
                         (result.name.empty() ? "" : ": " + QString::fromStdString(result.name));
    const QString outcome = result.hasPassed      ? tr("✓ passed")
                            : result.name.empty() ? tr("✗ refused")
                                                  : tr("✗ failed");
    auto* item = new QTreeWidgetItem(list_, {name, outcome, QString::fromStdString(result.time)});
    item->setToolTip(0, file);
    item->setData(0, kFileRole, file);
    item->setData(0, kLineRole, result.line);
    for (const std::string& line : result.told) {
        auto* told = new QTreeWidgetItem(item, {QString::fromStdString(line)});
        told->setFirstColumnSpanned(true);
        told->setFont(0, DataFont());
        told->setToolTip(0, told->text(0));
        told->setData(0, kFileRole, file);
        told->setData(0, kLineRole, result.line);
    }
    item->setExpanded(true);
}

void TestsWindow::OpenLine(const QTreeWidgetItem& item) {
    const QString file = item.data(0, kFileRole).toString();
    if (const auto bytes = app::ReadFileOrInform(*dialogs_, file.toStdString())) {
        if (textView_ == nullptr) {
            textView_ = new TextViewWindow(this);
        }
        textView_->ShowFile(file, *bytes, std::max(1, item.data(0, kLineRole).toInt()));
    }
}

void TestsWindow::closeEvent(QCloseEvent* event) {
    if (isRunning_) {
        isCancelled_ = true;
        isClosing_ = true;
        event->ignore();
        return;
    }
    QWidget::closeEvent(event);
}

}  // namespace corvane::ui
