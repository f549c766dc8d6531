#include "ui/desktop/window_factory.h"

#include "ui/asm/assembler_window.h"
#include "ui/basic/basic_window.h"
#include "ui/breakpoints/breakpoints_manager.h"
#include "ui/chipview/chip_view.h"
#include "ui/dialogs/about_window.h"
#include "ui/dialogs/help_window.h"
#include "ui/disasm/disassembler_window.h"
#include "ui/viewers/eeprom_memory_viewer.h"
#include "ui/viewers/hardware_stack_viewer.h"
#include "ui/viewers/program_memory_viewer.h"

namespace corvane::ui {

SecondaryWindow* MakeSecondaryWindow(app::Window window, app::Workbench& workbench,
                                     const DialogsFactory& makeDialogs,
                                     const std::string& recoveryFolder) {
    switch (window) {
        case app::Window::ProgramMemoryViewer:
            return new ProgramMemoryViewer(workbench, makeDialogs);
        case app::Window::EepromMemoryViewer:
            return new EepromMemoryViewer(workbench, makeDialogs);
        case app::Window::HardwareStackViewer:
            return new HardwareStackViewer(workbench, makeDialogs);
        case app::Window::Disassembler:
            return new DisassemblerWindow(workbench, makeDialogs);
        case app::Window::BreakpointsManager:
            return new BreakpointsManager(workbench, makeDialogs);
        case app::Window::ChipView18:
        case app::Window::ChipView28:
        case app::Window::ChipView40:
        case app::Window::ChipView62x:
            return new ChipView(workbench);
        case app::Window::BasicCompiler:
            return new BasicWindow(workbench, makeDialogs, recoveryFolder);
        case app::Window::Assembler:
            return new AssemblerWindow(workbench, makeDialogs, recoveryFolder);
        case app::Window::Main:
            break;  // there is exactly one, and it is open
    }
    return nullptr;
}

QWidget* MakeTextWindow(TextWindow text) {
    switch (text) {
        case TextWindow::GettingStarted:
            return new HelpWindow(QObject::tr("Getting Started"), "getting_started.md");
        case TextWindow::HelpTopics:
            return new HelpWindow(QObject::tr("Help Topics"), "help_topics.md");
        case TextWindow::BasicHelpTopics:
            return new HelpWindow(QObject::tr("BASIC Compiler Help Topics"), "basic_compiler.md");
        case TextWindow::TestingFirmware:
            return new HelpWindow(QObject::tr("Testing Firmware"), "testing_firmware.md");
        case TextWindow::About:
            break;
    }
    return new AboutWindow;
}

}  // namespace corvane::ui
