#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <set>

#include "ui/dialogs/configuration_bits_dialog.h"
#include "ui/dialogs/select_microcontroller_dialog.h"
#include "ui/window/qt_dialogs.h"

namespace corvane::ui {
namespace {

// What a person does with the box that comes up next.
template <typename Box>
void Then(std::function<void(Box&)> act) {
    QTimer::singleShot(0, qApp, [act] {
        auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        act(*box);
    });
}

class DialogsTest : public testing::Test {
  public:
    DialogsTest() { window.show(); }

    QWidget window;
    QtDialogs dialogs{window};
};

// The second window's box keeps the first one's from returning, although it has been answered.
TEST_F(DialogsTest, AWindowStaysUntilItsDialogHasReturned) {
    const QPointer<QWidget> other = new QWidget;
    other->setAttribute(Qt::WA_DeleteOnClose);
    other->show();
    Then<QMessageBox>([&](QMessageBox& first) {
        Then<QMessageBox>([&](QMessageBox& second) {
            first.accept();
            other->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            EXPECT_NE(other, nullptr);
            QTimer::singleShot(0, &second, &QDialog::accept);
        });
        dialogs.Inform("second");
        EXPECT_NE(other, nullptr);
    });
    QtDialogs(*other).Inform("first");
    EXPECT_NE(other, nullptr);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(other, nullptr);
}

TEST_F(DialogsTest, AClosedWindowAsksNothing) {
    auto* other = new QWidget;
    other->setAttribute(Qt::WA_DeleteOnClose);
    other->show();
    other->close();
    bool isAsked = false;
    QTimer::singleShot(0, qApp, [&] {
        if (QWidget* box = QApplication::activeModalWidget()) {
            isAsked = true;
            box->close();
        }
    });
    EXPECT_FALSE(QtDialogs(*other).Ask("too late"));
    EXPECT_FALSE(isAsked);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isAsked);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST_F(DialogsTest, MessageBoxes) {
    Then<QMessageBox>([this](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Corvane");
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        EXPECT_EQ(box.text(), "<b>one</b>\ntwo");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_EQ(box.windowModality(), Qt::WindowModal);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    dialogs.Inform("<b>one</b>\r\ntwo");

    struct Case {
        Qt::Key key;
        bool answer;
    };
    for (const Case& c : {Case{Qt::Key_Return, true}, {Qt::Key_Escape, false}}) {
        Then<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
            QTest::keyClick(&box, c.key);
        });
        EXPECT_EQ(dialogs.Ask("Do you want to overwrite existing file a.lst?"), c.answer);
    }
}

TEST_F(DialogsTest, AreAboveAWindowThatIsKeptOnTop) {
    QWidget view;
    view.setWindowFlag(Qt::WindowStaysOnTopHint);
    for (const bool isThere : {false, true}) {
        view.setVisible(isThere);
        Then<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint), isThere);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        dialogs.Inform("text");
    }
}

TEST_F(DialogsTest, InputBox) {
    Then<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Corvane");
        EXPECT_EQ(box.labelText(), "Enter new clock frequency [MHz].");
        EXPECT_EQ(box.textValue(), "4");
        QTest::keyClicks(box.findChild<QLineEdit*>(), "2.5");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.Input("Enter new clock frequency [MHz].", "4"), "2.5");
    Then<QInputDialog>([](QInputDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(dialogs.Input("", "4"), std::nullopt);
}

TEST_F(DialogsTest, FileDialogs) {
    const app::FileDialog question{.title = "Select Program File",
                                   .filters = "Intel HEX files (*.hex)|*.hex|All files (*.*)|*.*",
                                   .folder = QDir::tempPath().toStdString() + "/"};
    Then<QFileDialog>([](QFileDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Select Program File");
        const auto* filters = box.findChild<QComboBox*>("fileTypeCombo");
        EXPECT_EQ(filters->itemText(0), "Intel HEX files (*.hex)");
        EXPECT_EQ(filters->itemText(1), "All files (*.*)");
        EXPECT_TRUE(box.nameFilters().at(1).endsWith(" (*)")) << "a name may have no point";
        EXPECT_EQ(box.directory().path(), QDir::tempPath());
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(dialogs.OpenFile(question), std::nullopt);
    Then<QFileDialog>([](QFileDialog& box) {
        box.selectFile("neu \u00e4.hex");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.SaveFile(question),
              QDir::temp().filePath(QString::fromUtf8("neu \u00e4.hex")).toStdString());
    Then<QFileDialog>([](QFileDialog& box) {
        EXPECT_EQ(box.directory(), QDir::home());
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(dialogs.SaveFile({.title = {}, .filters = {}, .folder = "/proc/nowhere/"}),
              std::nullopt);
}

TEST_F(DialogsTest, SelectMicrocontroller) {
    const auto checked = [](const SelectMicrocontrollerDialog& box) {
        std::string rows;
        for (int row = 0; row < 6; ++row) {
            const auto* choice =
                box.findChild<QAbstractButton*>(QStringLiteral("opcija[%1]").arg(row));
            rows += choice->isChecked() ? std::to_string(row) : "";
        }
        return rows;
    };
    const auto click = [](const SelectMicrocontrollerDialog& box, const char* name) {
        QTest::mouseClick(box.findChild<QAbstractButton*>(name), Qt::LeftButton);
    };
    Then<SelectMicrocontrollerDialog>([&](SelectMicrocontrollerDialog& box) {
        EXPECT_EQ(checked(box), "1");
        click(box, "opcija[2]");
        EXPECT_EQ(checked(box), "2");
        click(box, "Command1");
    });
    EXPECT_EQ(dialogs.ChooseModel(1), 2);
    Then<SelectMicrocontrollerDialog>([&](SelectMicrocontrollerDialog& box) {
        click(box, "opcija[2]");
        click(box, "Command2");
    });
    EXPECT_EQ(dialogs.ChooseModel(1), std::nullopt);
    Then<SelectMicrocontrollerDialog>([&](SelectMicrocontrollerDialog& box) {
        EXPECT_EQ(checked(box), "") << "the model in force is not offered";
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.ChooseModel(7), 7);
    Then<SelectMicrocontrollerDialog>([&](SelectMicrocontrollerDialog& box) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
        QTest::keyClick(box.focusWidget(), Qt::Key_Down);
        EXPECT_EQ(checked(box), "4");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.ChooseModel(3), 4);
}

TEST(ConfigurationBitsDialog, ShowsTheWordAndGivesItBack) {
    // Partial code protection is no choice; Close turns it off.
    ConfigurationBitsDialog dialog(models::ModelFamily::Pic16F87x28, 0x1D51);
    std::set<QString> selected;
    for (const QRadioButton* button : dialog.findChildren<QRadioButton*>()) {
        if (button->isChecked()) {
            selected.insert(button->objectName());
        }
    }
    EXPECT_EQ(selected,
              (std::set<QString>{"op21", "op32", "op42", "op52", "op61", "op72", "op82", "op93"}));
    dialog.findChild<QAbstractButton*>("Command1")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.Word(), 0x3D71);
}

TEST(ConfigurationBitsDialog, OneChoiceOfAFieldExcludesTheOthers) {
    ConfigurationBitsDialog dialog(models::ModelFamily::Pic16F62x, 0x3F50);
    dialog.findChild<QRadioButton*>("op88")->click();
    EXPECT_EQ(dialog.Word(), 0x3F53);
    dialog.findChild<QRadioButton*>("op81")->click();
    EXPECT_EQ(dialog.Word(), 0x3F40);
}

}  // namespace
}  // namespace corvane::ui
