// What a screen reader and a keyboard find in every window and dialog of the application.
#include <QAbstractButton>
#include <QAccessible>
#include <QGroupBox>
#include <QRegularExpression>
#include <QSet>
#include <QTimer>

#include "ui/desktop_fixture.h"
#include "ui/dialogs/configuration_bits_dialog.h"
#include "ui/dialogs/select_microcontroller_dialog.h"
#include "ui/window/qt_dialogs.h"

namespace corvane::ui {
namespace {

// One window and everything in it.
class Audit {
  public:
    explicit Audit(QWidget& window) : window_(&window) {
        Visit(*QAccessible::queryAccessibleInterface(&window));
        for (QAction* action : window.findChildren<QAction*>()) {
            VisitAction(*action);
        }
    }

  private:
    void Visit(QAccessibleInterface& element) {
        const QString name = element.text(QAccessible::Name);
        const QObject* object = element.object();
        const QString id = object == nullptr ? QString() : object->objectName();
        SCOPED_TRACE((window_->windowTitle() + ": '" + name + "' " + id).toStdString());
        EXPECT_NE(element.role(), QAccessible::NoRole);
        QAccessibleActionInterface* actions = element.actionInterface();
        const auto* button = qobject_cast<const QAbstractButton*>(object);
        const bool canBeUsed = element.state().focusable || button != nullptr ||
                               (actions != nullptr && !actions->actionNames().isEmpty());
        const auto* group =
            object == nullptr ? nullptr : qobject_cast<const QGroupBox*>(object->parent());
        if (canBeUsed && element.role() != QAccessible::Separator && !IsValue(object)) {
            EXPECT_NE(name, group == nullptr ? QString() : group->title())
                << "has no name of its own";
        }
        if (button != nullptr && !IsPartOfAnother(*button)) {
            EXPECT_NE(button->focusPolicy() & Qt::TabFocus, 0) << "Tab passes it";
        }
        if (const auto* label = qobject_cast<const QLabel*>(object)) {
            VisitLabel(*label, name);
        }
        for (int i = 0; i < element.childCount(); ++i) {
            if (QAccessibleInterface* child = element.child(i)) {
                Visit(*child);
            }
        }
    }

    // The arrow keys lead through the listing; the clear button is a line edit's.
    static bool IsPartOfAnother(const QObject& object) {
        return object.inherits("corvane::ui::ListingRowButton") ||
               object.inherits("QLineEditIconButton") || object.objectName().startsWith("_q_");
    }

    // What it shows is its name, and that may be nothing.
    static bool IsValue(const QObject* object) {
        return object != nullptr && (object->inherits("corvane::ui::DataLabel") ||
                                     object->inherits("corvane::ui::PathLabel"));
    }

    // A value is its own name, and the description says what it means. A bit says both in words.
    void VisitLabel(const QLabel& label, const QString& name) {
        const bool isBit = qobject_cast<const BitCell*>(&label) != nullptr;
        const QString description = label.accessibleDescription();
        if (isBit) {
            static const QRegularExpression kBit("^\\w.* bit \\d+: (0|1|not implemented)$");
            EXPECT_TRUE(kBit.match(name).hasMatch());
            EXPECT_EQ(description, name);
            EXPECT_EQ(label.toolTip(), name);
        } else if (IsValue(&label)) {
            EXPECT_EQ(name, label.text());
        }
        if (!isBit && (!IsValue(&label) || label.buddy() != nullptr)) {
            return;  // it is a caption
        }
        EXPECT_FALSE(description.isEmpty()) << "does not say what it means";
        EXPECT_FALSE(descriptions_.contains(description)) << "says what another one says";
        descriptions_.insert(description);
    }

    // Every command stands in a menu or has a shortcut, which no other has.
    void VisitAction(const QAction& action) {
        bool isInMenu = false;
        for (const QObject* place : action.associatedObjects()) {
            isInMenu |= place->inherits("QMenu") ||
                        place->property("contextMenuPolicy").toInt() == Qt::ActionsContextMenu;
        }
        const QString keys = action.shortcut().toString();
        if (!action.isSeparator() && action.menu() == nullptr && !IsPartOfAnother(action)) {
            EXPECT_TRUE(isInMenu || !keys.isEmpty()) << action.text().toStdString();
        }
        EXPECT_TRUE(keys.isEmpty() || !shortcuts_.contains(keys)) << keys.toStdString();
        shortcuts_.insert(keys);
    }

    QWidget* window_;
    QSet<QString> descriptions_;
    QSet<QString> shortcuts_;
};

using AccessibilityTest = DesktopTest;

// How many windows there were.
int AuditVisibleWindows() {
    int count = 0;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            const Audit audit(*window);
            ++count;
        }
    }
    return count;
}

TEST_F(AccessibilityTest, EveryWindow) {
    for (const int model : {1, 2, 5, 7}) {  // one for each Microcontroller View
        Start(model);
        EXPECT_EQ(AuditVisibleWindows(), 1);
        Load({0x30A5, 0x0063});
        for (const char* command :
             {"menumemory", "menueeprom", "menustack", "menuperipheraldevices", "menudisassembler",
              "menubreakpointsmanager", "menuassembler", "menubasic", "menututorial", "menuhelp",
              "menuhelpcomp", "menuabout", "menuruntests", "menutestinghelp"}) {
            Trigger(command);
        }
        EXPECT_EQ(AuditVisibleWindows(), 15) << model;
    }
}

TEST_F(AccessibilityTest, EveryDialog) {
    Start();
    SelectMicrocontrollerDialog select(1, &desktop->Main());
    const Audit auditOfSelect(select);
    for (const models::Model& model : models::kModelCatalogue) {
        ConfigurationBitsDialog bits(model.family, model.defaultConfigurationWord,
                                     &desktop->Main());
        const Audit auditOfBits(bits);
    }
    QTimer::singleShot(0, [] {
        const Audit auditOfInput(*QApplication::activeModalWidget());
        QApplication::activeModalWidget()->close();
    });
    EXPECT_FALSE(QtDialogs(desktop->Main()).Input("Enter a number.", "4").has_value());
}

}  // namespace
}  // namespace corvane::ui
