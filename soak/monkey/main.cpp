// Lets a monkey play with the desktop application. It must not crash, hang in a dialog or leak.
#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <cstdio>

#include "monkey/monkey.h"
#include "ui/desktop/ini_settings_store.h"

namespace corvane::monkey {

namespace {

constexpr int kDefaultActs = 4000;
constexpr int kActsOfOneLife = 20'000;

struct Options {
    std::uint64_t seed;
    int acts;
    int seconds;  // 0: as long as the acts take
};

Options ParseOptions() {
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({{"seed", "Repeat what this seed did.", "N"},
                       {"acts", "So many acts.", "N", QString::number(kDefaultActs)},
                       {"seconds", "Go on until so many seconds have passed.", "N", "0"}});
    parser.process(*QCoreApplication::instance());
    const std::uint64_t seed =
        parser.isSet("seed") ? parser.value("seed").toULongLong() : std::random_device()();
    return {.seed = seed,
            .acts = parser.value("acts").toInt(),
            .seconds = parser.value("seconds").toInt()};
}

// The application is started anew whenever the monkey ends it.
bool Play(Monkey& monkey, Playground& playground, int acts) {
    app::SystemClock clock;
    ui::IniSettingsStore store((playground.Folder() + "settings.ini").toStdString());
    monkey.Begin(acts);
    while (!monkey.IsDone()) {
        const ui::Folders folders{CORVANE_SOURCE_DIR "/data/models/",
                                  (playground.Folder() + "recovery").toStdString()};
        ui::Desktop desktop(folders, store, clock,
                            [&](QWidget& window) { return playground.MakeDialogs(window); });
        if (!desktop.StartUp()) {
            return false;
        }
        desktop.Show();
        monkey.SetDesktop(&desktop);
        QCoreApplication::exec();
        monkey.SetDesktop(nullptr);
    }
    return monkey.StuckDialog().isEmpty();
}

// The screen that is none says so for each window.
void ShowMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text) {
    if (!text.startsWith(QStringLiteral("This plugin does not support"))) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }
}

int Run() {
    const Options options = ParseOptions();
    std::printf("seed %llu\n", static_cast<unsigned long long>(options.seed));
    std::fflush(stdout);
    Generator random(options.seed);
    Playground playground(random);
    qApp->installEventFilter(&playground);
    Monkey monkey(random, playground);
    QElapsedTimer timer;
    timer.start();
    int lives = 0;
    do {
        ++lives;
        if (!Play(monkey, playground, std::min(options.acts, kActsOfOneLife))) {
            std::printf("stuck: %s\n", qPrintable(monkey.StuckDialog()));
            return EXIT_FAILURE;
        }
    } while (timer.elapsed() < options.seconds * 1000LL);
    for (const QString& title : monkey.SeenTitles()) {
        std::printf("seen: %s\n", qPrintable(title));
    }
    std::printf("%d acts, nothing broke\n", lives * std::min(options.acts, kActsOfOneLife));
    return EXIT_SUCCESS;
}

int Main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("QT_QPA_PLATFORMTHEME", "generic");
    qInstallMessageHandler(ShowMessage);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return Run();
}

}  // namespace

}  // namespace corvane::monkey

int main(int argc, char* argv[]) {
    return corvane::monkey::Main(argc, argv);
}
