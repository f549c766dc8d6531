#include "monkey/monkey.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <QWindow>
#include <array>
#include <utility>

#include "monkey/windows_on_screen.h"

namespace corvane::monkey {

namespace {

constexpr int kActsUntilEscape = 150;           // then a dialog gets nothing but Escape,
constexpr int kActsUntilStuck = 600;            // which must help before this many
constexpr std::chrono::milliseconds kPause(1);  // lets the simulation go on

constexpr std::array kKeys = {
    Qt::Key_Return, Qt::Key_Escape,   Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Up,
    Qt::Key_Down,   Qt::Key_Left,     Qt::Key_Right, Qt::Key_Home,    Qt::Key_End,
    Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Space, Qt::Key_Delete,  Qt::Key_Backspace,
    Qt::Key_F1,     Qt::Key_F3,       Qt::Key_F5,    Qt::Key_F7,      Qt::Key_F8,
    Qt::Key_A,      Qt::Key_C,        Qt::Key_F,     Qt::Key_L,       Qt::Key_N,
    Qt::Key_O,      Qt::Key_P,        Qt::Key_S,     Qt::Key_V,       Qt::Key_X,
    Qt::Key_Y,      Qt::Key_Z,        Qt::Key_0,     Qt::Key_1,       Qt::Key_2,
    Qt::Key_3,      Qt::Key_4,        Qt::Key_5,     Qt::Key_Q,       Qt::Key_Menu,
};

constexpr std::array kModifiers = {
    Qt::KeyboardModifiers(Qt::NoModifier),   Qt::KeyboardModifiers(Qt::ControlModifier),
    Qt::KeyboardModifiers(Qt::AltModifier),  Qt::KeyboardModifiers(Qt::ShiftModifier),
    Qt::ControlModifier | Qt::ShiftModifier,
};

constexpr std::array kTexts = {
    "100",
    "20",
    "-1",
    "0.5",
    "1e99",
    "ZZZZ",
    "größe",
    "goto 0x0",
    "sleep",
    "movlw 0x12",
    "end",
    "dim a as word",
    "for i = 1 to 3",
    "portb.0=1",
    "next i",
    "a = a * 3",
    "org 0x7FFF",
    "'",
    ";",
    "\"",
};

}  // namespace

void Monkey::Begin(int acts) {
    actsLeft_ = acts;
    ScheduleNext();
}

// A timer of its own for each act: one that repeats would not fire in the event loop of a dialog
// that it has opened itself.
void Monkey::ScheduleNext() {
    QTimer::singleShot(kPause, qApp, [this] { Act(); });
}

// The toolkit's test functions let events in before they are done with a window. Nothing may happen
// to the window then, except in the event loop of a dialog that has just been opened.
void Monkey::Send(const std::function<void()>& input) {
    const int before = std::exchange(inputLevel_, QThread::currentThread()->loopLevel());
    input();
    inputLevel_ = before;
}

void Monkey::Act() {
    if (QThread::currentThread()->loopLevel() == inputLevel_) {
        ScheduleNext();
        return;
    }
    if (actsLeft_ > 1 || QApplication::activeModalWidget() != nullptr) {
        ScheduleNext();
    }
    if (actsLeft_ > 1) {
        --actsLeft_;
    }
    WatchDialog();
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog != nullptr && (actsLeft_ <= 1 || Pick(random_, 3) == 0)) {
        AnswerDialog(*dialog);
        return;
    }
    if (actsLeft_ <= 1) {
        actsLeft_ = 0;
        QCoreApplication::exit();
        return;
    }
    std::vector<QWidget*> windows = ReachableWindows();
    if (windows.empty()) {
        return;
    }
    QWidget& window = *OneOf(windows);
    seenTitles_.insert(window.windowTitle());
    switch (Pick(random_, 16)) {
        case 0:
        case 1:
        case 2:
            RunCommand(window);
            break;
        case 3:
            DropFile();
            break;
        case 4:
            MoveOrClose(window);
            break;
        case 5:
        case 6:
            TypeInto(window, kTexts[Pick(random_, kTexts.size())]);
            break;
        case 7:
        case 8:
        case 9:
            PressKey(window);
            break;
        default:
            Click(window);
    }
}

void Monkey::WatchDialog() {
    QWidget* dialog = QApplication::activeModalWidget();
    if (dialog != watchedDialog_ || dialog == nullptr) {
        watchedDialog_ = dialog;
        actsWithDialog_ = 0;
        return;
    }
    if (++actsWithDialog_ >= kActsUntilStuck) {
        stuckDialog_ = dialog->windowTitle() + " (" + dialog->metaObject()->className() + ")";
        actsLeft_ = 0;
        QCoreApplication::exit();
    }
}

void Monkey::AnswerDialog(QWidget& dialog) {
    if (actsLeft_ <= 1 || actsWithDialog_ > kActsUntilEscape) {
        QWidget* popup = QApplication::activePopupWidget();
        Send([&] { QTest::keyClick(popup != nullptr ? popup : &dialog, Qt::Key_Escape); });
        return;
    }
    if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
        if (auto* name = files->findChild<QLineEdit*>()) {
            name->setText(playground_.AnyFile());
        }
    }
    std::vector<QAbstractButton*> buttons;
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->isEnabled()) {
            buttons.push_back(button);
        }
    }
    if (!buttons.empty()) {
        QAbstractButton& button = *OneOf(buttons);
        ClickAt(button, button.rect().center());
    }
}

void Monkey::Click(QWidget& window) {
    std::vector<QWidget*> widgets = VisibleWidgets(window);
    QWidget& widget = *OneOf(widgets);
    if (widget.width() > 0 && widget.height() > 0) {
        ClickAt(widget,
                {static_cast<int>(Pick(random_, static_cast<std::size_t>(widget.width()))),
                 static_cast<int>(Pick(random_, static_cast<std::size_t>(widget.height())))});
    }
}

// Through the window, so that modal dialogs and menus get what is theirs.
void Monkey::ClickAt(QWidget& widget, QPoint position) {
    QWidget* top = widget.window();
    const QPoint inWindow = widget.mapTo(top, position);
    QWindow* window = top->windowHandle();
    if (window == nullptr || !QRect(QPoint(), window->size()).contains(inWindow)) {
        return;
    }
    const auto modifiers = kModifiers[Pick(random_, 10) < 8 ? 0 : Pick(random_, kModifiers.size())];
    const std::size_t kind = Pick(random_, 10);
    const auto button = kind == 0 ? Qt::RightButton : Qt::LeftButton;
    const auto click = kind == 1 ? QTest::MouseDClick : QTest::MouseClick;
    Send([&] { QTest::mouseEvent(click, window, button, modifiers, inWindow); });
}

void Monkey::PressKey(QWidget& window) {
    const Qt::Key key = kKeys[Pick(random_, kKeys.size())];
    const auto modifiers = kModifiers[Pick(random_, kModifiers.size())];
    const char character = QTest::keyToAscii(key);
    const QString text = character != 0 ? QString(QLatin1Char(character)) : QString();
    // Not keyClick(), which lets events in between the keys that it presses for the modifiers and
    // then goes on with a window that may have gone.
    const QPointer<QWindow> target = window.windowHandle();
    Send([&] {
        for (const bool isPress : {true, false}) {
            if (target != nullptr) {
                QTest::simulateEvent(target, isPress, key, modifiers, text, false);
            }
        }
    });
}

void Monkey::TypeInto(QWidget& window, const QString& text) {
    const QPointer<QWidget> target = window.focusWidget();
    for (const QChar character : text + QLatin1Char('\n')) {
        if (target == nullptr) {
            return;
        }
        const auto key = character == QLatin1Char('\n') ? Qt::Key_Return : Qt::Key(0);
        Send([&] {
            QTest::sendKeyEvent(QTest::Click, target, key, QString(character), Qt::NoModifier);
        });
    }
}

void Monkey::RunCommand(const QWidget& window) {
    std::vector<QAction*> commands = EnabledCommands(window);
    if (!commands.empty()) {
        OneOf(commands)->trigger();
    }
}

void Monkey::DropFile() {
    if (desktop_ == nullptr || !desktop_->Main().isVisible()) {
        return;
    }
    std::vector<QWidget*> reachable = ReachableWindows();
    if (std::find(reachable.begin(), reachable.end(), &desktop_->Main()) == reachable.end()) {
        return;
    }
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(playground_.AnyFile())});
    QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&desktop_->Main(), &event);
}

void Monkey::MoveOrClose(QWidget& window) {
    switch (Pick(random_, 8)) {
        case 0:
            window.close();
            break;
        case 1:
            window.setWindowState(window.windowState() ^ Qt::WindowMaximized);
            break;
        case 2:
            window.move(static_cast<int>(Pick(random_, 2000)) - 500,
                        static_cast<int>(Pick(random_, 2000)) - 500);
            break;
        default:
            window.resize(static_cast<int>(Pick(random_, 1200)) + 1,
                          static_cast<int>(Pick(random_, 900)) + 1);
    }
}

}  // namespace corvane::monkey
