// The architecture view. It shows what it is given and reports what is done to it; the commands
// are the desktop's.
#pragma once

#include <QMainWindow>

#include "core/processor.h"
#include "ui/main/gpr_table.h"
#include "ui/main/last_step.h"
#include "ui/main/processor_panel.h"
#include "ui/main/run_panel.h"
#include "ui/main/sfr_table.h"

namespace corvane::ui {

class ValueActions;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    MainWindow();

    // Draws the state.
    void ekran(const core::Processor& processor);
    // Draws one register table.
    void gprprint(const core::Processor& processor);
    void sfrprint(const core::Processor& processor);

    // Another model: the tables go to their first rows.
    void ShowModel(const core::Processor& processor);
    void ShowProgram(const std::string& path);
    // What the simulation does, for the status line.
    void ShowStatus(const std::string& status);

    // What a label shows, if it is a value that can be changed.
    std::optional<app::ValuePlace> PlaceOf(const QLabel& value,
                                           const core::Processor& processor) const;

    // Of the value that was selected last.
    void RequestLastChange();

  signals:
    // A person wants to change what this label shows, or to see where it changed last.
    void ChangeRequested(QLabel* value);
    void LastChangeRequested(QLabel* value);
    void GprsScrolled();
    void SfrsScrolled();
    void FileDropped(const QString& path);
    // The person wants to end the application. The window stays until the receiver hides it.
    void CloseRequested();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void AddScrollKeys();
    void AddValueActions();

    QWidget* focusTaker_;
    ProcessorPanel* processorPanel_;
    LastInstructionPanel* lastInstruction_;
    GprTable* gprs_;
    SfrTable* sfrs_;
    RunPanel* runPanel_;
    QLabel* status_;
    ValueActions* valueActions_;
    LastStep lastStep_;
};

}  // namespace corvane::ui
