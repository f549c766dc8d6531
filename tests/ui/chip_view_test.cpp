#include "ui/chipview/chip_view.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <set>

#include "app/pin_appearance.h"
#include "common/text.h"
#include "core/registers.h"
#include "models/package.h"
#include "ui/desktop_fixture.h"

namespace corvane::ui {
namespace {

using core::kAdcon1;
using core::kCmcon;
using core::kIntcon;
using core::kOptionReg;
using core::kPortA;
using core::kTmr0;
using core::kTrisA;
using core::kVrcon;
using core::intcon::kIntf;
using core::intcon::kRbif;
using core::option_reg::kIntedg;
using core::option_reg::kPsa;
using core::option_reg::kT0cs;
using core::option_reg::kT0se;

constexpr std::size_t kPortC = kPortA + 2;
constexpr std::size_t kPortD = kPortA + 3;
constexpr std::size_t kTrisB = kTrisA + 1;
constexpr std::size_t kTrisC = kTrisA + 2;
constexpr std::size_t kTrisD = kTrisA + 3;
constexpr std::size_t kTrisE = kTrisA + 4;

// Rows of the model catalogue.
constexpr int k84 = 1;
constexpr int k873 = 2;
constexpr int k874 = 3;
constexpr int k877 = 5;
constexpr int k628 = 7;

struct Write {
    std::size_t cell;
    int value;
};

class ChipViewTest : public DesktopTest {
  public:
    void OpenView(int modelRow) {
        store.values["Simulation Rate"] = "1";
        Start(modelRow);
        Workbench().OpenMicrocontrollerView();
        view = desktop->Find(app::ChipViewOf(Workbench().Model().family));
        ASSERT_NE(view, nullptr);
    }

    // Starts a program that writes these cells one after the other, through INDF.
    void StartWrites(const std::vector<Write>& writes) {
        std::vector<int> words;
        for (const Write& write : writes) {
            words.insert(words.end(), {0x3000 | static_cast<int>(write.cell), 0x0084,
                                       0x3000 | write.value, 0x0080});
        }
        words.push_back(0x0000);
        Load(words);
        Workbench().Simulation().Start();
    }
    void RunWrites(std::size_t count) {
        for (std::size_t step = 0; step < 4 * count; ++step) {
            Workbench().Simulation().Step();
        }
    }
    void Run(const std::vector<Write>& writes) {
        StartWrites(writes);
        RunWrites(writes.size());
    }

    app::Workbench& Workbench() { return desktop->Workbench(); }
    int Cell(std::size_t address) { return Workbench().Processor().state.dataMemory.at(address); }
    template <typename Widget = QWidget>
    Widget* Find(const QString& name) {
        auto* widget = view->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name.toStdString();
        return widget;
    }
    void Click(const QString& name) {
        auto* button = Find<QAbstractButton>(name);
        ASSERT_TRUE(button->isVisible()) << name.toStdString();
        QTest::mouseClick(button, Qt::LeftButton);
    }
    std::string Focus() const { return view->focusWidget()->objectName().toStdString(); }

    // What a person sees of a pin: "ra0: [ra0in] OFF grey".
    std::string Seen(const QString& pin) {
        const models::Model& model = Workbench().Model();
        QStringList buttons = {pin + "in"};
        if (const auto channel =
                app::AnalogChannelOf(model.family, *core::FindPin(model, pin.toStdString()))) {
            buttons.append(QString("an%1in").arg(*channel));
        }
        std::string text = pin.toStdString() + ":";
        for (const QString& button : buttons) {
            text += Find(button)->isVisible() ? " [" + button.toStdString() + "]" : "";
        }
        const auto* level = Find<QLabel>(pin + "out");
        const std::map<QString, std::string> colours = {
            {"#80ff80", " green"}, {"#808080", " grey"}, {"#ffffff", " white"}};
        EXPECT_EQ(level->palette().color(QPalette::WindowText), QColor(Qt::black));
        return text + " " + level->text().toStdString() +
               colours.at(level->palette().color(QPalette::Window).name());
    }

    SecondaryWindow* view = nullptr;
};

TEST(PackagePins, HaveEveryIoPinOnceAndTheAnalogChannelsOfTheirLabels) {
    struct Case {
        int row;
        int pinCount;
        std::map<int, std::string_view> labels;  // the ends of both sides and the supply
    };
    const Case cases[] = {
        {k84, 18, {{1, "RA2"}, {5, "VSS"}, {9, "RB3"}, {10, "RB4"}, {14, "VDD"}, {18, "RA1"}}},
        {k628,
         18,
         {{1, "RA2/AN2/VREF"}, {5, "VSS"}, {9, "RB3/CCP1"}, {14, "VDD"}, {18, "RA1/AN1"}}},
        {k873,
         28,
         {{1, "\\MCLR/VPP/THV"},
          {8, "VSS"},
          {14, "RC3/SCK/SCL"},
          {15, "RC4/SDI/SDA"},
          {19, "VSS"},
          {20, "VDD"},
          {28, "RB7/PGD"}}},
        {k877,
         40,
         {{1, "\\MCLR/VPP/THV"},
          {11, "VDD"},
          {12, "VSS"},
          {20, "RD1/PSP1"},
          {21, "RD2/PSP2"},
          {31, "VSS"},
          {32, "VDD"},
          {40, "RB7/PGD"}}},
    };
    for (const Case& c : cases) {
        const models::Model& model = models::kModelCatalogue.at(static_cast<std::size_t>(c.row));
        std::map<int, std::string_view> labels;
        std::array<int, 5> masks{};
        for (const models::PackagePin& pin : models::PackagePins(model.family)) {
            labels[pin.number] = pin.label;
            const std::optional<core::Pin> io = core::FindPin(model, pin.label.substr(0, 3));
            if (!io) {
                continue;
            }
            masks.at(static_cast<std::size_t>(io->port)) ^= 1 << io->bit;
            const std::size_t an = pin.label.find("/AN");
            std::optional<int> channel;
            if (an != std::string_view::npos) {
                channel = pin.label.at(an + 3) - '0';
            }
            EXPECT_EQ(app::AnalogChannelOf(model.family, *io), channel) << pin.label;
        }
        for (std::size_t port = 0; port < masks.size(); ++port) {
            EXPECT_EQ(masks.at(port), models::TraitsOf(model.family).portPins.at(port))
                << model.name << " port " << port;
        }
        EXPECT_EQ(std::ssize(labels), c.pinCount);
        EXPECT_EQ(labels.rbegin()->first, c.pinCount);
        for (const auto& [number, label] : c.labels) {
            EXPECT_EQ(labels[number], label) << model.name << " pin " << number;
        }
    }
}

TEST_F(ChipViewTest, ShowsEachPinByItsDirectionLevelAndAnalogSetUp) {
    struct Case {
        int row;
        std::vector<Write> writes;
        const char* window;
        std::vector<std::string> seen;
    };
    const Case cases[] = {
        {k84,
         {{kTrisA, 0x1E}, {kPortA, 0x01}, {kTrisB, 0x7F}},
         "ChipView18 Microcontroller View - PIC16F84",
         {"ra0: ON green", "ra1: [ra1in] OFF grey", "rb6: [rb6in] OFF grey", "rb7: OFF grey"}},
        {k873,  // AN0, AN1 and AN4 are analog, RA2 and RA3 are references
         {{kAdcon1, 12}, {kTrisA, 0x3D}, {kPortA, 0x02}, {kTrisC, 0x0F}, {kPortC, 0x80}},
         "ChipView28 Microcontroller View - PIC16F873",
         {"ra0: [an0in] 0 white", "ra1: ON green", "ra2: VREF- white", "ra3: VREF+ white",
          "ra4: [ra4in] OFF grey", "ra5: [an4in] 0 white", "rc3: [rc3in] OFF grey",
          "rc7: ON green"}},
        {k877,  // AN0 to AN2 and AN4 to AN7 are analog, RA3 is a reference
         {{kAdcon1, 1},
          {kTrisA, 0x37},
          {kPortA, 0x08},
          {kTrisE, 0x05},
          {kTrisD, 0},
          {kPortD, 0x55}},
         "ChipView40 Microcontroller View - PIC16F877",
         {"ra2: [an2in] 0 white", "ra3: ON green", "re0: [an5in] 0 white", "re1: OFF grey",
          "re2: [an7in] 0 white", "rd6: ON green", "rd7: OFF grey"}},
        {k874,  // all digital
         {{kAdcon1, 6}},
         "ChipView40 Microcontroller View - PIC16F874",
         {"ra0: [ra0in] OFF grey", "ra3: [ra3in] OFF grey", "re2: [re2in] OFF grey"}},
        {k628,  // RA1 and RA2 are analog; then all digital, with the reference on RA2
         {{kCmcon, 5}, {kTrisA, 0x7F}, {kPortA, 0x80}},
         "ChipView62x Microcontroller View - PIC16F628",
         {"ra0: [ra0in] OFF grey", "ra1: [an1in] 0.00V white", "ra2: [an2in] 0.00V white",
          "ra3: [ra3in] OFF grey", "ra6: [ra6in] OFF grey", "ra7: ON green"}},
        {k628,
         {{kCmcon, 7}, {kVrcon, 0xEC}},
         "ChipView62x Microcontroller View - PIC16F628",
         {"ra1: [ra1in] OFF grey", "ra2: [ra2in] 2.50V white"}},
    };
    for (const Case& c : cases) {
        OpenView(c.row);
        EXPECT_EQ((view->objectName() + " " + view->windowTitle()).toStdString(), c.window);
        Run(c.writes);
        for (const std::string& seen : c.seen) {
            EXPECT_EQ(Seen(QString::fromStdString(seen.substr(0, 3))), seen) << c.window;
        }
    }
}

TEST_F(ChipViewTest, AClickTogglesTheLevelAndIsAnEdgeWhileASimulationRuns) {
    struct Case {
        int row;
        int option;
        const char* pin;
        std::size_t cell;
        int mask;
        std::vector<int> whileRunning;  // the cell's masked value after each click
    };
    const Case cases[] = {
        {k84, kT0cs | kPsa, "ra4", kTmr0, 0xFF, {1, 1, 2, 2}},
        {k628, kT0cs | kPsa | kT0se, "ra4", kTmr0, 0xFF, {0, 1, 1, 2}},
        {k873, kT0cs, "ra4", kTmr0, 0xFF, {0, 0, 1, 1}},  // prescaler 1:2
        {k877, kPsa, "ra4", kTmr0, 0xFF, {0, 0}},         // Timer0 counts instructions
        {k84, kIntedg, "rb0", kIntcon, kIntf, {kIntf}},
        {k877, kT0cs, "rb0", kIntcon, kIntf, {0, kIntf}},
        {k628, 0, "rb4", kIntcon, kRbif, {kRbif}},
        {k873, 0, "rb7", kIntcon, kRbif, {kRbif}},
        {k84, kT0cs, "rb3", kIntcon, kRbif | kIntf, {0, 0}},
    };
    for (const Case& c : cases) {
        const QString pin = c.pin;
        OpenView(c.row);
        Run({{kAdcon1, 6}, {kOptionReg, c.option}, {kTmr0, 0}});
        for (std::size_t click = 0; click < c.whileRunning.size(); ++click) {
            Click(pin + "in");
            EXPECT_EQ(Cell(c.cell) & c.mask, c.whileRunning.at(click))
                << c.pin << " click " << click;
            const char* level = click % 2 == 0 ? "in] ON green" : "in] OFF grey";
            EXPECT_EQ(Seen(pin), std::string(c.pin) + ": [" + c.pin + level);
            EXPECT_EQ(Focus(), "Command1");
        }

        Workbench().Simulation().Stop();
        const int before = Cell(c.cell);
        const auto* level = Find<QLabel>(pin + "out");
        for (int click = 0; click < 2; ++click) {
            const QString old = level->text();
            Click(pin + "in");
            EXPECT_NE(level->text(), old);
            EXPECT_EQ(Cell(c.cell), before) << "only a level";
        }
    }
}

TEST_F(ChipViewTest, AnOutputForgetsTheLevelItHadAsAnInput) {
    OpenView(k84);
    StartWrites({{kTrisB, 0xFF}, {kTrisB, 0x00}, {kTrisB, 0xFF}});
    RunWrites(1);
    Click("rb3in");
    EXPECT_EQ(Seen("rb3"), "rb3: [rb3in] ON green");
    RunWrites(1);
    EXPECT_EQ(Seen("rb3"), "rb3: OFF grey");
    RunWrites(1);
    EXPECT_EQ(Seen("rb3"), "rb3: [rb3in] OFF grey");
}

TEST_F(ChipViewTest, TheAnalogPanelSetsAValueWhenItIsAccepted) {
    struct Case {
        int row;
        int fullScale;
        int pageStep;
        int value;
        const char *zero, *text, *full;
    };
    for (const Case& c : {Case{k873, 1023, 100, 512, "0", "512", "1023"},
                          Case{k628, 500, 50, 333, "0.00V", "3.33V", "5.00V"}}) {
        OpenView(c.row);
        auto* panel = Find("Frame1");
        auto* slider = Find<QSlider>("VScroll1");
        const auto shown = [&] {
            return panel->isVisible() ? Find<QLabel>("labela1")->text().toStdString() + " " +
                                            Find<QLabel>("labela2")->text().toStdString()
                                      : "closed";
        };
        const QRect place = Find("ra0out")->geometry();
        EXPECT_EQ(shown(), "closed");
        Click("an0in");
        EXPECT_EQ(shown(), std::string("AN0 ") + c.zero);
        EXPECT_EQ(Focus(), "VScroll1");
        EXPECT_FALSE(slider->invertedAppearance()) << "the largest value is at the top";
        EXPECT_EQ(slider->orientation(), Qt::Vertical);
        EXPECT_EQ(slider->minimum(), 0);
        EXPECT_EQ(slider->maximum(), c.fullScale);
        EXPECT_EQ(slider->pageStep(), c.pageStep);
        EXPECT_EQ(slider->singleStep(), 1);
        slider->setValue(c.value);
        EXPECT_EQ(shown(), std::string("AN0 ") + c.text);
        EXPECT_EQ(Seen("ra0"), std::string("ra0: [an0in] ") + c.zero + " white") << "not yet";

        Click("an3in");  // without accepting AN0
        EXPECT_EQ(shown(), std::string("AN3 ") + c.zero);
        QTest::keyClick(slider, Qt::Key_End);
        Click("Command2");
        EXPECT_EQ(shown(), "closed");
        EXPECT_EQ(Focus(), "Command1");
        EXPECT_EQ(Seen("ra0"), std::string("ra0: [an0in] ") + c.zero + " white");
        EXPECT_EQ(Seen("ra3"), std::string("ra3: [an3in] ") + c.full + " white");

        Click("an3in");
        EXPECT_EQ(shown(), std::string("AN3 ") + c.full) << "it begins at the channel's value";
        slider->setValue(c.value);
        QTest::keyClick(slider, Qt::Key_Return);
        EXPECT_EQ(Seen("ra3"), std::string("ra3: [an3in] ") + c.text + " white");
        EXPECT_EQ(Find("ra0out")->geometry(), place) << "nothing moved";
    }
}

TEST_F(ChipViewTest, TheKeyboardReachesAndTogglesEveryPin) {
    for (const int row : {k84, k873, k877, k628}) {
        OpenView(row);
        Run({{kTrisB, 0xF7}});
        std::vector<std::string> expected;
        for (const models::PackagePin& pin : models::PackagePins(Workbench().Model().family)) {
            const std::optional<core::Pin> io =
                core::FindPin(Workbench().Model(), pin.label.substr(0, 3));
            if (!io || (io->port == 1 && io->bit == 3)) {
                continue;  // RB3 is an output
            }
            const std::size_t an = pin.label.find("/AN");
            const std::string name = an == std::string_view::npos
                                         ? std::string(pin.label.substr(0, 3))
                                         : std::string(pin.label.substr(an + 1, 3));
            expected.push_back(common::ToLower(name) + "in");
        }
        expected.insert(expected.end(), {"Check1", "Command1"});
        Texts reached = {expected.front()};
        Find(QString::fromStdString(expected.front()))->setFocus();
        while (reached.size() < expected.size()) {
            QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
            reached.push_back(Focus());
        }
        EXPECT_EQ(reached, expected) << "down the left side, down the right side";
    }

    QApplication::setActiveWindow(view);
    Find("rb0in")->setFocus();
    QTest::keyClick(view->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Seen("rb0"), "rb0: [rb0in] ON green");
    QTest::keyClick(view->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(Seen("rb0"), "rb0: [rb0in] OFF grey") << "the focus stays where it is";
    QTest::keyClick(view->focusWidget(), Qt::Key_Down);
    EXPECT_EQ(Focus(), "rb1in");
    QTest::keyClick(view->focusWidget(), Qt::Key_Right);
    EXPECT_EQ(Focus(), "rb6in");
    QTest::keyClick(view->focusWidget(), Qt::Key_Up);
    EXPECT_EQ(Focus(), "rb7in");
}

TEST_F(ChipViewTest, EveryControlSaysWhatItIs) {
    for (const int row : {k84, k873, k877, k628}) {
        OpenView(row);
        std::set<QString> meanings;
        const auto pins = models::PackagePins(Workbench().Model().family);
        for (const QLabel* level : view->findChildren<QLabel*>()) {
            if (level->objectName().endsWith("out")) {
                EXPECT_TRUE(level->accessibleName().isEmpty()) << "the name is the text";
                EXPECT_TRUE(meanings.insert(level->accessibleDescription()).second);
                EXPECT_EQ(level->toolTip(), level->accessibleDescription());
            }
        }
        for (QAbstractButton* button : view->findChildren<QAbstractButton*>()) {
            const QString name =
                QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name);
            EXPECT_FALSE(name.isEmpty()) << button->objectName().toStdString();
            EXPECT_TRUE(meanings.insert(name).second) << name.toStdString();
        }
    }
    EXPECT_EQ(Find("rb0out")->accessibleDescription(), "RB0/INT, pin 6: input");
    EXPECT_EQ(Find("ra0out")->accessibleDescription(), "RA0/AN0, pin 17: analog input");
    EXPECT_EQ(Find("ra5in")->accessibleName(), "Toggle RA5/not MCLR/THV");
}

}  // namespace
}  // namespace corvane::ui
