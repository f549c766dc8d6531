// A scripted person, windows that only take notes, and a clock that stands still.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "app/workbench.h"
#include "common/number_text.h"
#include "common/text_file.h"

namespace corvane::app {

namespace fs = std::filesystem;

class ScriptedDialogs final : public Dialogs {
  public:
    void Inform(const std::string& text) override { shown_.push_back(text); }
    void InformWithDetails(const std::string& text, const std::string& details) override {
        shown_.push_back(text + "|" + details);
    }
    bool Ask(const std::string& question) override {
        shown_.push_back(question);
        return Next(answers);
    }
    std::optional<std::string> Input(const std::string& prompt,
                                     const std::string& defaultText) override {
        shown_.push_back(prompt + "|" + defaultText);
        return Next(texts);
    }
    std::optional<std::string> OpenFile(const FileDialog& dialog) override {
        return ChooseFile(dialog);
    }
    std::optional<std::string> SaveFile(const FileDialog& dialog) override {
        return ChooseFile(dialog);
    }
    std::optional<int> ChooseModel(int currentModel) override {
        shown_.push_back("model " + std::to_string(currentModel));
        return Next(models);
    }

    // What was shown since the last call.
    std::vector<std::string> Shown() { return std::exchange(shown_, {}); }

    std::deque<bool> answers;
    std::deque<std::optional<std::string>> texts;  // typed texts and chosen files
    std::deque<std::optional<int>> models;

  private:
    std::optional<std::string> ChooseFile(const FileDialog& dialog) {
        shown_.push_back(std::string(dialog.title) + "|" + std::string(dialog.filters) + "|" +
                         dialog.folder + dialog.fileName);
        return Next(texts);
    }

    template <typename Value>
    Value Next(std::deque<Value>& script) {
        if (script.empty()) {
            ADD_FAILURE() << "nobody expected " << shown_.back();
            return {};
        }
        Value value = script.front();
        script.pop_front();
        return value;
    }

    std::vector<std::string> shown_;
};

class RecordingViews final : public Views, public SliceTimer {
  public:
    void Refresh(Window window) override {
        Note("refresh ", window);
        if (window == Window::Main && duringRefresh) {
            duringRefresh();
        }
    }
    void BringPcIntoView() override { calls.emplace_back("breakpoint"); }
    void ModelChanged() override { calls.emplace_back("model"); }
    void ProgramChanged() override { calls.emplace_back("program"); }
    void CommandsChanged() override { commandsSeen.push_back(workbench->Commands()); }
    void GoingThroughHistory(std::int64_t /*step*/) override {
        if (duringGoing) {
            duringGoing();
        }
    }
    void ArrivedInHistory() override {}
    void ShowWindow(Window window) override { Note("show ", window); }
    void CloseWindow(Window window) override {
        Note("close ", window);
        workbench->Windows().Closed(window);
    }
    void SetTopmost(Window window, bool topmost) override {
        Note(topmost ? "top " : "untop ", window);
    }
    void ScheduleSlice(std::chrono::nanoseconds delay) override { scheduled = delay; }

    std::vector<std::string> Calls() { return std::exchange(calls, {}); }

    Workbench* workbench = nullptr;
    std::vector<std::string> calls;
    std::vector<CommandStates> commandsSeen;
    std::optional<std::chrono::nanoseconds> scheduled;
    std::function<void()> duringRefresh;
    std::function<void()> duringGoing;

  private:
    void Note(const char* what, Window window) {
        calls.push_back(what + std::to_string(static_cast<int>(window)));
    }
};

class FakeClock final : public Clock {
  public:
    std::chrono::nanoseconds SteadyTime() override { return now += perRead; }
    float SecondsSinceMidnight() override { return timeOfDay; }

    std::chrono::nanoseconds now{0};
    std::chrono::nanoseconds perRead{0};
    float timeOfDay = 1000;
};

// A folder of its own, with trailing separator, that lasts as long as the object.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = (fs::temp_directory_path() / "corvane-XXXXXX").string();
        path = std::string(mkdtemp(pattern.data())) + "/";
    }
    ~TemporaryFolder() { fs::remove_all(path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    // Writes a file and returns its path.
    std::string Write(const std::string& name, std::string_view text) const {
        EXPECT_EQ(common::WriteTextFile(path + name, text), std::nullopt);
        return path + name;
    }
    std::string Read(const std::string& name) const {
        return common::ReadTextFile(path + name).value.value_or("(no file)");
    }

    std::string path;
};

// A description file in which every address is a register of its own.
inline std::string PlainDescription(const std::string& symbolLines = "") {
    std::string text = "***** Section 1 *****\r\n";
    for (int address = 0; address < models::kDataMemorySize; ++address) {
        const std::string hex = common::Hex3(address);
        const bool isTris = address >= 0x85 && address <= 0x89;
        text += hex;
        text += "," + hex;
        text += address < 0x0C || isTris ? ",SFR," : ",RAM,";
        text += address == 0x81 || isTris ? "FF,FF\r\n" : "00,FF\r\n";
    }
    return text + "***** Section 2 *****\r\n" + symbolLines + "***** Section 3 *****\r\n";
}

// One Intel HEX data record from address 0 on.
inline std::string HexOf(const std::vector<int>& words) {
    std::string record = common::Hex2(std::ssize(words) * 2) + "000000";
    for (const int word : words) {
        record += common::Hex2(word) + common::Hex2(word >> 8);
    }
    return ":" + record + common::RecordChecksum(record) + "\r\n:00000001FF\r\n";
}

// A workbench with a person, windows and a clock, in a folder with all description files.
class WorkbenchTest : public testing::Test {
  public:
    WorkbenchTest() {
        for (const models::Model& model : models::kModelCatalogue) {
            folder.Write(models::DescriptionFileName(model.name), PlainDescription());
        }
    }

    // The application starts (again) with the settings as they are.
    bool StartUp(std::optional<int> modelRow = std::nullopt) {
        workbench.emplace(folder.path, store, dialogs, views, views, clock);
        views.workbench = &*workbench;
        const bool started = workbench->StartUp(modelRow);
        views.Calls();
        return started;
    }

    void Load(const std::vector<int>& words) {
        workbench->LoadProgramFile(folder.Write("program.hex", HexOf(words)));
        EXPECT_EQ(dialogs.Shown().back().substr(0, 20), "Operation completed.");
        views.Calls();
    }

    void Open(std::initializer_list<Window> windows) {
        for (const Window window : windows) {
            workbench->Windows().Opened(window);
        }
    }

    TemporaryFolder folder;
    common::MapSettingsStore store;
    ScriptedDialogs dialogs;
    RecordingViews views;
    FakeClock clock;
    std::optional<Workbench> workbench;
};

using Texts = std::vector<std::string>;

}  // namespace corvane::app
