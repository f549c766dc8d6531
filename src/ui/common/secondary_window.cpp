#include "ui/common/secondary_window.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QCloseEvent>
#include <QPushButton>
#include <QShortcut>
#include <QWindow>

#include "ui/common/accessible_window.h"
#include "ui/common/window_placement.h"

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

void SecondaryWindow::closeEvent(QCloseEvent* event) {
    workbench_->Windows().Closed(number_);
    StorePosition(*this, workbench_->Settings(), number_);
    StoreFigures();
    event->accept();
}

}  // namespace corvane::ui
