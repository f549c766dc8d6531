#include "ui/main/main_window.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QUrl>
#include <QVBoxLayout>
#include <array>

#include "ui/widgets/fitting_area.h"
#include "ui/window/value_actions.h"

namespace corvane::ui {

namespace {

QString DroppedFile(const QMimeData& data) {
    return data.urls().size() == 1 ? data.urls().constFirst().toLocalFile() : QString();
}

// Assistive technology is told of each new text of a label.
QLabel* NewStatusLine() {
    auto* status = new QLabel;
    status->setObjectName("status");
    status->setTextFormat(Qt::PlainText);
    status->setAccessibleDescription(QObject::tr("State of the simulation"));
    status->setToolTip(status->accessibleDescription());
    status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    status->setIndent(status->fontMetrics().averageCharWidth());
    return status;
}

// Takes the keyboard focus from the scroll bars.
QPushButton* NewFocusTaker() {
    auto* button = new QPushButton;
    button->setObjectName("Command1");
    button->setAccessibleName(QObject::tr("Register tables"));
    button->setAccessibleDescription(
        QObject::tr("Page Up and Page Down scroll the general purpose registers, with Shift the "
                    "special function registers"));
    button->setToolTip(button->accessibleDescription());
    button->setFlat(true);
    button->setFixedSize(10, 10);
    return button;
}

}  // namespace

MainWindow::MainWindow()
    : focusTaker_(NewFocusTaker()),
      processorPanel_(new ProcessorPanel),
      lastInstruction_(new LastInstructionPanel),
      gprs_(new GprTable),
      sfrs_(new SfrTable),
      runPanel_(new RunPanel(focusTaker_)),
      status_(NewStatusLine()),
      valueActions_(new ValueActions(*this, tr("Change &Value..."))) {
    setObjectName("MainWindow");
    setWindowTitle("Corvane");
    setAcceptDrops(true);

    gprs_->SetFocusTaker(focusTaker_);
    sfrs_->SetFocusTaker(focusTaker_);
    connect(gprs_, &RegisterTable::Scrolled, this, &MainWindow::GprsScrolled);
    connect(sfrs_, &RegisterTable::Scrolled, this, &MainWindow::SfrsScrolled);
    AddScrollKeys();

    auto* top = new QHBoxLayout;
    top->addWidget(processorPanel_, 1);
    top->addWidget(lastInstruction_);
    auto* tables = new QHBoxLayout;
    tables->addWidget(gprs_, 1);
    tables->addWidget(sfrs_, 2);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->addLayout(top);
    layout->addLayout(tables, 1);
    layout->addWidget(runPanel_);
    setCentralWidget(new FittingArea(content));
    statusBar()->addWidget(status_, 1);
    AddValueActions();
    focusTaker_->setFocus();
}

void MainWindow::AddValueActions() {
    valueActions_->OfferLastChange();
    connect(valueActions_, &ValueActions::ChangeRequested, this, &MainWindow::ChangeRequested);
    connect(valueActions_, &ValueActions::LastChangeRequested, this,
            &MainWindow::LastChangeRequested);
    for (QLabel* label : centralWidget()->findChildren<QLabel*>()) {
        const bool isValue = qobject_cast<DataLabel*>(label) != nullptr ||
                             qobject_cast<BitCell*>(label) != nullptr ||
                             qobject_cast<PathLabel*>(label) != nullptr;
        if (isValue && label->buddy() == nullptr) {
            valueActions_->Add(*label);
        }
    }
}

void MainWindow::RequestLastChange() {
    valueActions_->RequestLastChange();
}

std::optional<app::ValuePlace> MainWindow::PlaceOf(const QLabel& value,
                                                   const core::Processor& processor) const {
    if (const auto place = processorPanel_->PlaceOf(value)) {
        return place;
    }
    const auto gpr = gprs_->PlaceOf(value, processor);
    return gpr ? gpr : sfrs_->PlaceOf(value, processor);
}

void MainWindow::AddScrollKeys() {
    struct Key {
        QKeySequence keys;
        QScrollBar* bar;
        QAbstractSlider::SliderAction action;
    };
    const std::array keys = {
        Key{Qt::Key_PageUp, gprs_->ScrollBar(), QAbstractSlider::SliderPageStepSub},
        Key{Qt::Key_PageDown, gprs_->ScrollBar(), QAbstractSlider::SliderPageStepAdd},
        Key{Qt::SHIFT | Qt::Key_PageUp, sfrs_->ScrollBar(), QAbstractSlider::SliderPageStepSub},
        Key{Qt::SHIFT | Qt::Key_PageDown, sfrs_->ScrollBar(), QAbstractSlider::SliderPageStepAdd},
    };
    for (const Key& key : keys) {
        const auto* shortcut = new QShortcut(key.keys, this);
        connect(shortcut, &QShortcut::activated, key.bar,
                [bar = key.bar, action = key.action] { bar->triggerAction(action); });
    }
}

void MainWindow::ekran(const core::Processor& processor) {
    lastStep_.Observe(processor.state);
    lastInstruction_->Show(processor.state);
    runPanel_->Show(processor.state);
    processorPanel_->Show(processor.state, lastStep_.HasChangedW());
    gprprint(processor);
    sfrprint(processor);
}

void MainWindow::gprprint(const core::Processor& processor) {
    gprs_->gprprint(processor, lastStep_);
}

void MainWindow::sfrprint(const core::Processor& processor) {
    sfrs_->sfrprint(processor, lastStep_);
}

void MainWindow::ShowModel(const core::Processor& processor) {
    runPanel_->ShowModel(*processor.model);
    gprs_->SetListSize(processor.description.gprList.size());
    sfrs_->SetListSize(processor.description.sfrList.size());
}

void MainWindow::ShowProgram(const std::string& path) {
    runPanel_->ShowProgram(path);
}

void MainWindow::ShowStatus(const std::string& status) {
    const QString text = QString::fromStdString(status);
    if (status_->text() != text) {
        status_->setText(text);
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    emit CloseRequested();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!DroppedFile(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    emit FileDropped(DroppedFile(*event->mimeData()));
}

}  // namespace corvane::ui
