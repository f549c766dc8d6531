// Runs each scripts/*.txt: what a person does with the windows, and what the windows then show.
// scripts/README.md says how they are written.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QAbstractItemView>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QTest>
#include <algorithm>
#include <set>
#include <sstream>

#include "app/pin_appearance.h"
#include "common/text.h"
#include "shipped_files.h"
#include "ui/desktop_fixture.h"
#include "ui/shown_text.h"

namespace corvane::ui {
namespace {

namespace fs = std::filesystem;

// The windows of one test have one person in front of them.
class SharedDialogs final : public app::Dialogs {
  public:
    explicit SharedDialogs(app::ScriptedDialogs& person) : person_(person) {}

    void Inform(const std::string& text) override { person_.Inform(text); }
    void InformWithDetails(const std::string& text, const std::string& details) override {
        person_.InformWithDetails(text, details);
    }
    bool Ask(const std::string& question) override { return person_.Ask(question); }
    std::optional<std::string> Input(const std::string& prompt, const std::string& text) override {
        return person_.Input(prompt, text);
    }
    std::optional<std::string> OpenFile(const app::FileDialog& dialog) override {
        return person_.OpenFile(dialog);
    }
    std::optional<std::string> SaveFile(const app::FileDialog& dialog) override {
        return person_.SaveFile(dialog);
    }
    std::optional<int> ChooseModel(int row) override { return person_.ChooseModel(row); }

  private:
    app::ScriptedDialogs& person_;
};

// "first rest of the line" as two texts.
std::pair<std::string, std::string> Split(const std::string& line) {
    const std::size_t blank = line.find(' ');
    return {line.substr(0, blank), blank == std::string::npos ? "" : line.substr(blank + 1)};
}

std::string Replaced(std::string text, std::string_view old, std::string_view replacement) {
    for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos;
         at += replacement.size()) {
        text.replace(at, old.size(), replacement);
    }
    return text;
}

// With the byte itself in place of "\xE4".
std::string WithBytes(std::string text) {
    for (std::size_t at = 0; (at = text.find("\\x", at)) != std::string::npos; ++at) {
        const char byte = static_cast<char>(std::stoi(text.substr(at + 2, 2), nullptr, 16));
        text.replace(at, 4, 1, byte);
    }
    return text;
}

class WindowScript : public DesktopTest, public testing::WithParamInterface<std::string> {
  public:
    std::unique_ptr<app::Dialogs> MakeDialogs(const QWidget& /*window*/) override {
        dialogs = &person;
        return std::make_unique<SharedDialogs>(person);
    }

    // From "== title" to the next one a script has one application.
    void BeginPart() {
        EXPECT_EQ(person.Shown(), Texts{}) << "nobody looked at these messages";
        desktop.reset();
        person.answers.clear();
        person.texts.clear();
        person.models.clear();
        store.values.clear();
        clock.perRead = {};
        fs::remove_all(folder.path);
        fs::create_directory(folder.path);
        store.values["Last Path"] = folder.path;
    }

    void Do(const std::string& line) {
        using Command = void (WindowScript::*)(const std::string&);
        static const std::map<std::string, Command> kCommands = {
            {"answer", &WindowScript::Answer},   {"cell", &WindowScript::Cell},
            {"bold", &WindowScript::Bold},       {"choose", &WindowScript::Choose},
            {"click", &WindowScript::Click},     {"clipboard", &WindowScript::Clipboard},
            {"clock", &WindowScript::ClockStep}, {"copied", &WindowScript::Copied},
            {"close", &WindowScript::Close},     {"color", &WindowScript::Color},
            {"do", &WindowScript::Trigger},      {"file", &WindowScript::File},
            {"focus", &WindowScript::Focus},     {"hold", &WindowScript::Hold},
            {"release", &WindowScript::Release}, {"input", &WindowScript::Input},
            {"is", &WindowScript::Is},           {"key", &WindowScript::Key},
            {"line", &WindowScript::Line},       {"link", &WindowScript::Link},
            {"twin", &WindowScript::Twin},       {"fifo", &WindowScript::Fifo},
            {"load", &WindowScript::LoadWords},  {"model", &WindowScript::Model},
            {"opened", &WindowScript::Opened},   {"openfile", &WindowScript::OpenFile},
            {"pin", &WindowScript::PinIs},       {"run", &WindowScript::RunWrites},
            {"set", &WindowScript::Set},         {"setting", &WindowScript::Setting},
            {"shown", &WindowScript::Shown},     {"start", &WindowScript::StartUp},
            {"stored", &WindowScript::Stored},   {"type", &WindowScript::Type},
            {"wait", &WindowScript::Wait},       {"window", &WindowScript::Switch},
            {"write", &WindowScript::WriteFile}};
        const auto [command, rest] = Split(line);
        const auto found = kCommands.find(command);
        ASSERT_NE(found, kCommands.end()) << command;
        const std::string text = WithBytes(
            Replaced(Replaced(rest, "%F", folder.path), "\\n", command == "write" ? "\r\n" : "\n"));
        (this->*found->second)(text);
    }

  private:
    static int Number(const std::string& text) { return std::stoi(text, nullptr, 0); }

    app::Window NumberOf(const std::string& name) {
        static const std::map<std::string, app::Window> kNames = {
            {"memory", app::Window::ProgramMemoryViewer},
            {"eeprom", app::Window::EepromMemoryViewer},
            {"stack", app::Window::HardwareStackViewer},
            {"disassembler", app::Window::Disassembler},
            {"breakpoints", app::Window::BreakpointsManager},
            {"assembler", app::Window::Assembler},
            {"basic", app::Window::BasicCompiler}};
        return name == "chip" ? app::ChipViewOf(desktop->Workbench().Model().family)
                              : kNames.at(name);
    }

    // The window that was named last; the main window at first and when that one is closed.
    QWidget& Current() {
        QWidget* window = current == "main" ? nullptr : desktop->Find(NumberOf(current));
        return window != nullptr ? *window : desktop->Main();
    }
    QObject* Find(const std::string& name) {
        const QString wanted = QString::fromStdString(name);
        auto* found = name == "this" ? &Current() : Current().findChild<QObject*>(wanted);
        return found != nullptr ? found : desktop->Main().findChild<QObject*>(wanted);
    }
    QPlainTextEdit& Editor() { return *Child<QPlainTextEdit>(Current(), "RichTextBox1"); }
    QWidget* FocusWidget() {
        auto* editor = Current().findChild<QWidget*>("RichTextBox1");
        return Current().focusWidget() != nullptr || editor == nullptr ? Current().focusWidget()
                                                                       : editor;
    }

    std::string PropertyOf(const std::string& name, const std::string& property) {
        QObject* object = Find(name);
        if (object == nullptr) {
            ADD_FAILURE() << "there is no " << name;
            return "";
        }
        if (property == "bold") {
            return object->property("font").value<QFont>().bold() ? "true" : "false";
        }
        const QVariant value = object->property(property.c_str());
        EXPECT_TRUE(value.isValid()) << name << " has no " << property;
        return value.toString().toStdString();
    }

    // Preparing.

    void Setting(const std::string& text) {
        const std::size_t equals = text.find('=');
        store.values[text.substr(0, equals)] = text.substr(equals + 1);
    }
    void ClockStep(const std::string& milliseconds) {
        clock.perRead = std::chrono::milliseconds(Number(milliseconds));
    }
    void StartUp(const std::string& modelRow) {
        current = "main";
        Start(modelRow.empty() ? std::nullopt : std::optional(Number(modelRow)));
    }
    void WriteFile(const std::string& text) {
        const auto [name, content] = Split(text);
        if (content == "folder") {
            fs::remove_all(folder.path + name);
            fs::create_directories(folder.path + name);
        } else {
            folder.Write(name, content);
        }
    }
    void Link(const std::string& text) {
        const auto [name, target] = Split(text);
        fs::create_symlink(target, folder.path + name);
    }
    void Fifo(const std::string& name) { mkfifo((folder.path + name).c_str(), 0600); }
    void Twin(const std::string& text) {
        const auto [name, other] = Split(text);
        fs::create_hard_link(folder.path + other, folder.path + name);
    }
    void LoadWords(const std::string& text) {  // "3005 0*40"
        std::string hex;
        int address = 0;
        std::istringstream words(text);
        for (std::string word; words >> word;) {
            const std::size_t star = word.find('*');
            const int value = std::stoi(word.substr(0, star), nullptr, 16);
            int count = star == std::string::npos ? 1 : std::stoi(word.substr(star + 1));
            for (; count > 0; --count) {
                const std::string record = "02" + common::Hex4(2 * address++) + "00" +
                                           common::Hex2(value) + common::Hex2(value >> 8);
                hex += ":" + record + common::RecordChecksum(record) + "\r\n";
            }
        }
        desktop->Workbench().LoadProgramFile(folder.Write("program.hex", hex));
        EXPECT_EQ(desktop->Workbench().LoadedWords(), address);
        person.Shown();
    }
    // A program that writes these cells one after the other, run to its end: "085=1E 005=01".
    void RunWrites(const std::string& text) {
        std::string words;
        int steps = 0;
        std::istringstream writes(text);
        for (std::string write; writes >> write; steps += 4) {
            words += "30" + write.substr(1, 2) + " 0084 30" + write.substr(4) + " 0080 ";
        }
        LoadWords(words + "0000");
        desktop->Workbench().Simulation().Start();
        for (; steps > 0; --steps) {
            desktop->Workbench().Simulation().Step();
        }
    }
    void Answer(const std::string& text) { person.answers.push_back(text == "yes"); }
    void Input(const std::string& text) { person.texts.emplace_back(text); }
    void Choose(const std::string& name) {
        person.texts.push_back(name.empty() ? std::nullopt : std::optional(folder.path + name));
    }
    void Model(const std::string& row) {
        person.models.push_back(row.empty() ? std::nullopt : std::optional(Number(row)));
    }
    void Clipboard(const std::string& text) {
        QApplication::clipboard()->setText(QString::fromStdString(text));
    }

    // Doing.

    void Switch(const std::string& name) {
        current = name;
        if (name != "main" && desktop->Find(NumberOf(name)) == nullptr) {
            if (name == "chip") {
                desktop->Workbench().OpenMicrocontrollerView();
            } else {
                desktop->Workbench().OpenWindow(NumberOf(name));
            }
            EXPECT_NE(desktop->Find(NumberOf(name)), nullptr) << name;
        }
        QApplication::setActiveWindow(&Current());
    }
    void OpenFile(const std::string& path) { desktop->OpenFile(QString::fromStdString(path)); }
    void Close(const std::string& /*rest*/) {
        Current().close();
        QCoreApplication::processEvents();
    }
    void Trigger(const std::string& text) {
        const auto [name, times] = Split(text);
        auto* action = qobject_cast<QAction*>(Find(name));
        ASSERT_NE(action, nullptr) << name;
        for (int i = times.empty() ? 1 : Number(times); i > 0; --i) {
            ASSERT_TRUE(action->isEnabled()) << name;
            action->trigger();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
            QCoreApplication::processEvents();
        }
    }
    void Click(const std::string& text) {
        std::istringstream names(text);
        for (std::string name; names >> name;) {
            auto* widget = qobject_cast<QWidget*>(Find(name));
            ASSERT_NE(widget, nullptr) << name;
            EXPECT_TRUE(widget->isVisible()) << name;
            QTest::mouseClick(widget, Qt::LeftButton);
        }
    }
    void Copied(const std::string& text) {
        EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), text);
    }
    void Hold(const std::string& name) {
        QTest::mousePress(Child<QWidget>(Current(), name), Qt::LeftButton);
    }
    void Release(const std::string& name) {
        QTest::mouseRelease(Child<QWidget>(Current(), name), Qt::LeftButton);
    }
    void Key(const std::string& text) {
        std::istringstream keys(text);
        for (std::string key; keys >> key;) {
            const auto [name, times] = Split(Replaced(key, "*", " "));
            for (int i = times.empty() ? 1 : Number(times); i > 0; --i) {
                const QKeySequence sequence(QString::fromStdString(name),
                                            QKeySequence::PortableText);
                QTest::keySequence(FocusWidget(), sequence);
            }
        }
    }
    void Type(const std::string& text) {
        for (const char c : text) {
            c == '\n' ? QTest::keyClick(FocusWidget(), Qt::Key_Return)
                      : QTest::keyClick(FocusWidget(), c);
        }
    }
    void Set(const std::string& text) {
        const auto [name, rest] = Split(text);
        const auto [property, value] = Split(rest);
        EXPECT_TRUE(Find(name)->setProperty(property.c_str(), QString::fromStdString(value)));
    }

    // Looking.

    void Is(const std::string& text) {
        const auto [name, rest] = Split(text);
        const auto [property, value] = Split(rest);
        EXPECT_EQ(PropertyOf(name, property), value);
    }
    void Wait(const std::string& text) {
        const auto [name, rest] = Split(text);
        const auto [property, value] = Split(rest);
        EXPECT_TRUE(WaitFor([&, &property = property, &name = name, &value = value] {
            return PropertyOf(name, property) == value;
        })) << PropertyOf(name, property);
    }
    void Cell(const std::string& text) {  // "001=02": of data memory
        const std::size_t cell = std::stoul(text.substr(0, 3), nullptr, 16);
        EXPECT_EQ(common::Hex2(desktop->Workbench().Processor().state.dataMemory.at(cell)),
                  text.substr(4));
    }
    void Bold(const std::string& text) {  // "Text1 0003h": what a text area sets off
        const auto [name, expected] = Split(text);
        std::string bold;
        const auto* area = Child<QPlainTextEdit>(Current(), name);
        for (QTextBlock line = area->document()->begin(); line.isValid(); line = line.next()) {
            for (const QTextLayout::FormatRange& range : line.layout()->formats()) {
                bold += line.text().mid(range.start, range.length).toStdString() + " ";
            }
        }
        EXPECT_EQ(common::TrimRight(bold), expected);
    }
    void Focus(const std::string& name) {
        const QWidget* widget = FocusWidget();
        EXPECT_EQ(widget == nullptr ? "" : widget->objectName().toStdString(), name);
    }
    // The beginning of the next message; all of it with a "." behind.
    void Shown(const std::string& text) {
        const Texts seen = person.Shown();
        messages.insert(messages.end(), seen.begin(), seen.end());
        if (text.empty()) {
            EXPECT_EQ(messages, Texts{});
        } else {
            ASSERT_FALSE(messages.empty()) << "no message";
            EXPECT_EQ(common::WithLf(messages.front()).substr(0, text.size()), text);
            messages.erase(messages.begin());
        }
    }
    void File(const std::string& text) {
        const auto [name, content] = Split(text);
        EXPECT_EQ(Replaced(folder.Read(name), "\r\n", "\n"), content);
    }
    void Stored(const std::string& text) {
        const std::size_t equals = text.find('=');
        EXPECT_EQ(store.values[text.substr(0, equals)], text.substr(equals + 1));
    }
    void Opened(const std::string& text) {  // the titles of all windows that are open
        std::set<std::string> titles;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible()) {
                titles.insert(window->windowTitle().toStdString());
            }
        }
        std::string all;
        for (const std::string& title : titles) {
            all += (all.empty() ? "" : ", ") + title;
        }
        EXPECT_EQ(all, text);
    }
    // "NAME NUMBER TEXT": the beginning of a line of a text area, its number counted from 1.
    void Line(const std::string& text) {
        const auto [name, rest] = Split(text);
        const auto [number, expected] = Split(rest);
        Texts lines;
        if (const auto* list = qobject_cast<QAbstractItemView*>(Find(name))) {
            for (int row = 0; row < list->model()->rowCount(); ++row) {
                lines.push_back(list->model()->index(row, 0).data().toString().toStdString());
            }
        } else {
            const auto* area = Child<QPlainTextEdit>(Current(), name);
            for (int line = 1; line <= area->blockCount(); ++line) {
                lines.push_back(LineOf(*area, line));
            }
        }
        const auto index = number == "last" ? lines.size() : std::stoul(number);
        ASSERT_LE(index, lines.size());
        EXPECT_EQ(lines.at(index - 1).substr(0, std::max<std::size_t>(1, expected.size())),
                  expected);
    }
    void Color(const std::string& text) {
        const auto [number, colors] = Split(text);
        EXPECT_EQ(ColorsOfLine(Editor(), Number(number)), colors);
    }
    // What a person sees of a pin: "ra0 [ra0in] OFF grey".
    void PinIs(const std::string& text) {
        const std::string pin = text.substr(0, 3);
        const models::Model& model = desktop->Workbench().Model();
        std::string seen = pin;
        Texts buttons = {pin + "in"};
        if (const auto channel = models::AnalogChannelOf(models::TraitsOf(model.family),
                                                         *core::FindPin(model, pin))) {
            buttons.push_back("an" + std::to_string(*channel) + "in");
        }
        for (const std::string& button : buttons) {
            seen += Child<QWidget>(Current(), button)->isVisible() ? " [" + button + "]" : "";
        }
        const auto* level = Child<QLabel>(Current(), pin + "out");
        const std::map<QString, std::string> colors = {
            {"#80ff80", " green"}, {"#808080", " grey"}, {"#ffffff", " white"}};
        EXPECT_EQ(level->palette().color(QPalette::WindowText), QColor(Qt::black));
        seen += " " + level->text().toStdString() +
                colors.at(level->palette().color(QPalette::Window).name());
        EXPECT_EQ(seen, text);
    }

    app::ScriptedDialogs person;
    Texts messages;
    std::string current = "main";
};

TEST_P(WindowScript, ShowsWhatItSays) {
    std::istringstream script(ReadSourceFile("tests/ui/scripts/" + GetParam() + ".txt"));
    std::string part = "the beginning";
    int number = 0;
    for (std::string line; std::getline(script, line);) {
        ++number;
        if (line.starts_with("== ")) {
            part = line;
            BeginPart();
        } else if (!line.empty() && !line.starts_with("#")) {
            SCOPED_TRACE(GetParam() + ".txt:" + std::to_string(number) + ": " + line + " (" + part +
                         ")");
            Do(line);
            ASSERT_FALSE(HasFatalFailure());
        }
    }
    BeginPart();
}

std::vector<std::string> ScriptNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(CORVANE_SOURCE_DIR "/tests/ui/scripts")) {
        if (entry.path().extension() == ".txt") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Folder, WindowScript, testing::ValuesIn(ScriptNames()),
                         [](const auto& script) { return script.param; });

}  // namespace
}  // namespace corvane::ui
