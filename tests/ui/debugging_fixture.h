// The application with an open Breakpoints Manager, read and used as a person does.
#pragma once

#include <QScrollBar>
#include <QTest>

#include "common/text.h"
#include "ui/breakpoints/breakpoints_manager.h"
#include "ui/breakpoints/listing_row_button.h"
#include "ui/desktop_fixture.h"

namespace corvane::ui {

class DebuggingTest : public DesktopTest {
  public:
    // The person in front of the window that was opened last.
    std::unique_ptr<app::Dialogs> MakeDialogs(const QWidget& window) override {
        std::unique_ptr<app::Dialogs> made = DesktopTest::MakeDialogs(window);
        person = dynamic_cast<app::ScriptedDialogs*>(made.get());
        person->answers = std::exchange(answers, {});
        return made;
    }

    // With an answer where the window is to ask for the listing file.
    void OpenManager(std::deque<bool> answersToQuestions = {}) {
        answers = std::move(answersToQuestions);
        manager = &Open(app::Window::BreakpointsManager);
    }

    ListingRowButton& Row(int row) const {
        return *Child<ListingRowButton>(*manager, "linija[" + std::to_string(row) + "]");
    }
    bool HasDot(int row) const {
        return Child<QWidget>(*manager, "prekidsimbol[" + std::to_string(row) + "]")->isVisible();
    }
    // The row in which the program counter's mark stands; -1 when it is hidden.
    int PcRow() const {
        const QWidget& symbol = *Child<QWidget>(*manager, "pcsimbol");
        if (!symbol.isVisible()) {
            return -1;
        }
        for (int row = 0; row < app::kListingRows; ++row) {
            const QPoint middle = symbol.mapTo(manager, symbol.rect().center());
            if (QRect(Row(row).mapTo(manager, QPoint(0, 0)), Row(row).size()).contains(middle)) {
                return row;
            }
        }
        return -1;
    }
    void Click(int row) const { QTest::mouseClick(&Row(row), Qt::LeftButton); }
    void Press(Qt::Key key) const { QTest::keyClick(manager->focusWidget(), key); }

    QScrollBar& Bar() const { return *Child<QScrollBar>(*manager, "VScroll1"); }

    // "0012 0020", as the labels show them.
    std::string Slots() const {
        std::string shown;
        for (int i = 0; i < app::kBreakpointSlots; ++i) {
            shown += TextOf(*manager, "prekidlabela[" + std::to_string(i) + "]") + " ";
        }
        return std::string(common::TrimRight(shown));
    }

    SecondaryWindow* manager = nullptr;
    app::ScriptedDialogs* person = nullptr;
    std::deque<bool> answers;
};

}  // namespace corvane::ui
