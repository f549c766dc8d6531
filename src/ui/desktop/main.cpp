#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QTimer>
#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <new>
#include <string_view>

#include "models/catalogue.h"
#include "project/model_files.h"
#include "ui/desktop/application_icon.h"
#include "ui/desktop/desktop.h"
#include "ui/desktop/ini_settings_store.h"
#include "ui/desktop/instance_lock.h"
#include "ui/desktop/recovery_folder.h"
#include "ui/window/qt_dialogs.h"

namespace {

constexpr int kUsageError = 2;

struct Options {
    std::optional<int> modelRow;
    QStringList files;  // absolute paths
    bool isValid = true;
};

// --help and --version must answer where there is no display.
bool AsksForText(int argc, char** argv) {
    return std::any_of(argv + 1, argv + argc, [](std::string_view argument) {
        return argument == "--help" || argument == "-h" || argument == "--help-all" ||
               argument == "--version" || argument == "-v";
    });
}

std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv) {
    if (AsksForText(argc, argv)) {
        return std::make_unique<QCoreApplication>(argc, argv);
    }
    return std::make_unique<QApplication>(argc, argv);
}

Options ParseOptions() {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QCoreApplication::tr("Development and simulation environment for PIC16 microcontrollers"));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption model(
        "model", QCoreApplication::tr("Start with this microcontroller, such as PIC16F628."),
        "NAME");
    parser.addOption(model);
    parser.addPositionalArgument(
        "FILE", QCoreApplication::tr("A .hex file to load, or an .asm or .bas file to open."),
        "[FILE...]");
    parser.process(*QCoreApplication::instance());

    Options options;
    for (const QString& file : parser.positionalArguments()) {
        options.files += QFileInfo(file).absoluteFilePath();
    }
    if (parser.isSet(model)) {
        const std::string name = parser.value(model).toStdString();
        options.modelRow = corvane::models::FindModel(name);
        options.isValid = options.modelRow.has_value();
        if (!options.isValid) {
            std::fprintf(stderr, "corvane: there is no model %s\n", name.c_str());
        }
    }
    return options;
}

// The event loop lets no exception through, so that there is nobody who could catch one.
[[noreturn]] void EndWithoutMemory() {
    std::fputs("corvane: out of memory\n", stderr);
    std::_Exit(EXIT_FAILURE);
}

}  // namespace

int main(int argc, char* argv[]) {
    std::set_new_handler(EndWithoutMemory);
    std::signal(SIGXFSZ, SIG_IGN);  // a file that grows too large is a failed write like any other
    const std::unique_ptr<QCoreApplication> application = MakeApplication(argc, argv);
    std::setlocale(LC_NUMERIC, "C");  // the toolkit has switched to the user's
    QCoreApplication::setApplicationName("Corvane");
    QCoreApplication::setApplicationVersion(CORVANE_VERSION);
    QGuiApplication::setDesktopFileName("org.corvane.Corvane");

    const Options options = ParseOptions();
    if (!options.isValid) {
        return kUsageError;
    }
    const corvane::ui::InstanceLock lock;
    if (lock.IsHeldByAnother()) {
        return EXIT_SUCCESS;
    }
    QApplication::setWindowIcon(corvane::ui::ApplicationIcon());
    corvane::ui::IniSettingsStore store(corvane::ui::IniSettingsStore::UserPath());
    corvane::app::SystemClock clock;
    corvane::ui::Desktop desktop(
        {corvane::project::ModelFolder() + "/", corvane::ui::RecoveryFolder()}, store, clock,
        [](QWidget& window) { return std::make_unique<corvane::ui::QtDialogs>(window); });
    if (!desktop.StartUp(options.modelRow)) {
        return EXIT_FAILURE;
    }
    desktop.Show();
    // A message about a file comes when the window is there.
    QTimer::singleShot(0, &desktop.Main(), [&] {
        for (const QString& file : options.files) {
            desktop.OpenFile(file);
        }
    });
    return QCoreApplication::exec();
}
