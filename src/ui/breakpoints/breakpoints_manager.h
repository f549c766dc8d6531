// The loaded program as a listing in which breakpoints are set and the program counter is followed.
#pragma once

#include <array>
#include <memory>

#include "ui/breakpoints/listing_view.h"
#include "ui/widgets/data_label.h"
#include "ui/window/dialogs_factory.h"
#include "ui/window/secondary_window.h"

namespace corvane::ui {

class BreakpointsManager final : public SecondaryWindow {
    Q_OBJECT
  public:
    BreakpointsManager(app::Workbench& workbench, const DialogsFactory& makeDialogs);
    ~BreakpointsManager() override;

    void BringIntoView(int address) override { ScrollTo(address); }
    bool GoTo(int address) override;

  protected:
    void Draw() override { drawlines(); }
    void Opened() override;

  private:
    void drawlines();
    // False if the address is in view, or nowhere.
    bool ScrollTo(int address);
    void ShowSlots();
    void GoToSlot(const QLabel& slot);
    QWidget* MakeSlots();
    QLayout* MakeListingPane();
    QLayout* MakeBreakpointPane();

    std::unique_ptr<app::Dialogs> dialogs_;
    app::Listing listing_;
    ListingView* listingView_;
    std::array<DataLabel*, app::kBreakpointSlots> slots_{};
    QCheckBox* holdPc_;
};

}  // namespace corvane::ui
