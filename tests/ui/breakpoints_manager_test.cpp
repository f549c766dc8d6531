#include <QAccessible>
#include <QTest>

#include "ui/breakpoints/listing_row_button.h"
#include "ui/desktop_fixture.h"

namespace corvane::ui {
namespace {

class BreakpointsManagerTest : public DesktopTest {
  public:
    ListingRowButton& Row(int row) const {
        return *Child<ListingRowButton>(*manager, "linija[" + std::to_string(row) + "]");
    }

    SecondaryWindow* manager = nullptr;
};

TEST_F(BreakpointsManagerTest, SaysWhatARowShows) {
    Start();
    Load({0x3005, 0x0063});
    manager = &Open(app::Window::BreakpointsManager);
    QTest::mouseClick(&Row(4), Qt::LeftButton);
    const auto accessible = [this](int row) {
        return QAccessible::queryAccessibleInterface(&Row(row));
    };
    EXPECT_EQ(accessible(4)->text(QAccessible::Name),
              "0000    3005    MOVLW 0x05, breakpoint, current instruction");
    EXPECT_EQ(accessible(4)->role(), QAccessible::ListItem);
    EXPECT_EQ(accessible(4)->parent()->role(), QAccessible::List);
    EXPECT_TRUE(accessible(4)->state().checked);
    EXPECT_EQ(accessible(5)->text(QAccessible::Name), "0001    0063    SLEEP");
    EXPECT_TRUE(accessible(5)->state().checkable);
    EXPECT_FALSE(accessible(5)->state().checked);
    EXPECT_EQ(accessible(2)->text(QAccessible::Name), "Address Opcode  Instruction");
    EXPECT_FALSE(accessible(2)->state().checkable);
    accessible(5)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QCoreApplication::processEvents();
    EXPECT_EQ(TextOf(*manager, "prekidlabela[1]"), "0001");
}

TEST_F(BreakpointsManagerTest, AStepPaintsTheRowsThatItChanges) {
    struct PaintCounter : QObject {
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Paint) {
                painted += watched->objectName().toStdString() + " ";
            }
            return false;
        }
        std::string painted;
    };
    store.values = {{"Simulation Rate", "1"}};
    Start();
    Load(std::vector<int>(16));
    manager = &Open(app::Window::BreakpointsManager);
    Trigger("menustart");
    QCoreApplication::processEvents();
    PaintCounter counter;
    for (int row = 0; row < app::kListingRows; ++row) {
        Row(row).installEventFilter(&counter);
    }
    Trigger("menustep");
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.painted, "linija[4] linija[5] ");

    manager->showMinimized();
    Trigger("menustep");
    const auto isPc = [this](int row) { return Row(row).accessibleName().endsWith("instruction"); };
    EXPECT_TRUE(isPc(5)) << "drawn while nobody could see it";
    manager->showNormal();
    EXPECT_TRUE(isPc(6));
}

}  // namespace
}  // namespace corvane::ui
