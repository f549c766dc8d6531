#include "ui/chipview/chip_view.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <set>

#include "common/text.h"
#include "models/package.h"
#include "ui/desktop_fixture.h"

namespace corvane::ui {
namespace {

constexpr std::array kModelOfEachFamily = {1, 2, 5, 7};  // rows of the catalogue

class ChipViewTest : public DesktopTest {
  public:
    void OpenView(int modelRow) {
        Start(modelRow);
        desktop->Workbench().OpenMicrocontrollerView();
        view = desktop->Find(app::ChipViewOf(Model().family));
        ASSERT_NE(view, nullptr);
    }
    const models::Model& Model() { return desktop->Workbench().Model(); }
    QWidget* Find(const char* name) { return Child<QWidget>(*view, name); }
    std::string Focus() const { return view->focusWidget()->objectName().toStdString(); }

    SecondaryWindow* view = nullptr;
};

TEST_F(ChipViewTest, TheKeyboardReachesAndTogglesEveryPin) {
    for (const int row : kModelOfEachFamily) {
        OpenView(row);
        std::vector<std::string> expected;
        for (const models::PackagePin& pin : models::PackagePins(Model().family)) {
            const std::optional<core::Pin> io = core::FindPin(Model(), pin.label.substr(0, 3));
            if (!io) {
                continue;
            }
            const std::size_t an = pin.label.find("/AN");
            const std::string name = an == std::string_view::npos
                                         ? std::string(pin.label.substr(0, 3))
                                         : std::string(pin.label.substr(an + 1, 3));
            expected.push_back(common::ToLower(name) + "in");
        }
        expected.insert(expected.end(), {"Check1", "Command1"});
        Texts reached = {expected.front()};
        Find(expected.front().c_str())->setFocus();
        while (reached.size() < expected.size()) {
            QTest::keyClick(view->focusWidget(), Qt::Key_Tab);
            reached.push_back(Focus());
        }
        EXPECT_EQ(reached, expected) << "down the left side, down the right side";
    }

    QApplication::setActiveWindow(view);
    Find("rb0in")->setFocus();
    QTest::keyClick(view->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(TextOf(*view, "rb0out"), "ON");
    QTest::keyClick(view->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(TextOf(*view, "rb0out"), "OFF") << "the focus stays where it is";
    QTest::keyClick(view->focusWidget(), Qt::Key_Down);
    EXPECT_EQ(Focus(), "rb1in");
    QTest::keyClick(view->focusWidget(), Qt::Key_Right);
    EXPECT_EQ(Focus(), "rb6in");
    QTest::keyClick(view->focusWidget(), Qt::Key_Up);
    EXPECT_EQ(Focus(), "rb7in");
}

TEST_F(ChipViewTest, EveryControlSaysWhatItIs) {
    for (const int row : kModelOfEachFamily) {
        OpenView(row);
        std::set<QString> meanings;
        const auto pins = models::PackagePins(Model().family);
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
}

}  // namespace
}  // namespace corvane::ui
