#include "ui/window/secondary_window.h"

#include <QAction>
#include <QBoxLayout>
#include <QCheckBox>
#include <QCloseEvent>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QWindow>

#include "app/hex_input.h"
#include "common/number_text.h"
#include "ui/window/accessible_window.h"
#include "ui/window/command.h"
#include "ui/window/window_placement.h"

namespace corvane::ui {

SecondaryWindow::SecondaryWindow(app::Window number, app::Workbench& workbench)
    : number_(number), workbench_(&workbench), refresh_(*this, [this] { Draw(); }) {
    setAttribute(Qt::WA_DeleteOnClose);
    MakeAccessibleAsWindow(*this);
    const auto* close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &QWidget::close);
}

void SecondaryWindow::Open() {
    if (!testAttribute(Qt::WA_Resized)) {
        resize(sizeHint());
    }
    ReadFigures();
    PlaceWindow(*this, workbench_->Settings(), number_);
    show();
    workbench_->Windows().Opened(number_);
    Opened();
    Refresh();
}

void SecondaryWindow::BringForward() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

void SecondaryWindow::SetTopmost(bool topmost) {
    // Through the window handle: changing the widget's own flags would hide it.
    overrideWindowFlags(windowFlags().setFlag(Qt::WindowStaysOnTopHint, topmost));
    if (windowHandle() != nullptr) {
        windowHandle()->setFlag(Qt::WindowStaysOnTopHint, topmost);
    }
    if (topmost) {
        raise();
    }
}

void SecondaryWindow::AddFooter(QBoxLayout& layout) {
    auto* alwaysOnTop = new QCheckBox(tr("Always On Top"));
    alwaysOnTop->setObjectName("Check1");
    connect(alwaysOnTop, &QCheckBox::toggled, this,
            [this](bool on) { workbench_->Windows().SetAlwaysOnTop(number_, on); });
    closeButton_ = new QPushButton(tr("Close"));
    closeButton_->setObjectName("Command1");
    closeButton_->setAutoDefault(true);
    connect(closeButton_, &QPushButton::clicked, this, &QWidget::close);
    auto* footer = new QHBoxLayout;
    footer->addWidget(alwaysOnTop);
    footer->addStretch();
    footer->addWidget(closeButton_);
    layout.addLayout(footer);
}

void SecondaryWindow::AddGoToAddress(app::Dialogs& dialogs, QMenu* contextMenu) {
    QAction* action = NewCommand(
        *this, {"menugotoaddress", tr("&Go to Address..."), QKeySequence(Qt::CTRL | Qt::Key_G)},
        *this, [this, &dialogs] { AskAddress(dialogs); });
    addAction(action);
    if (contextMenu != nullptr) {
        contextMenu->addAction(action);
    }
}

void SecondaryWindow::AskAddress(app::Dialogs& dialogs) {
    const std::optional<int> address = app::AskAddress(dialogs, workbench_->Processor().state.pc,
                                                       workbench_->Model().programWords - 1);
    if (address && !GoTo(*address)) {
        dialogs.Inform("The address " + common::Hex4(*address) + " is not listed.");
    }
}

void SecondaryWindow::closeEvent(QCloseEvent* event) {
    workbench_->Windows().Closed(number_);
    StorePosition(*this, workbench_->Settings(), number_);
    StoreFigures();
    event->accept();
}

}  // namespace corvane::ui
