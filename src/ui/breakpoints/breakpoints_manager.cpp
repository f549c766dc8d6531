#include "ui/breakpoints/breakpoints_manager.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <span>

#include "ui/widgets/data_font.h"
#include "ui/window/value_actions.h"

namespace corvane::ui {

namespace {

constexpr int kAddressColumns = 4;

}  // namespace

BreakpointsManager::BreakpointsManager(app::Workbench& workbench, const DialogsFactory& makeDialogs)
    : SecondaryWindow(app::Window::BreakpointsManager, workbench),
      dialogs_(makeDialogs(*this)),
      listingView_(new ListingView),
      holdPc_(new QCheckBox(tr("Hold PC In Focus"))) {
    setObjectName("BreakpointsManager");
    setWindowTitle(tr("Breakpoints Manager"));
    auto* panes = new QHBoxLayout;
    panes->addLayout(MakeListingPane(), 1);
    panes->addLayout(MakeBreakpointPane());
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(panes, 1);
    AddFooter(*layout);
    CloseButton()->setObjectName("Command2");
    AddGoToAddress(*dialogs_);
}

BreakpointsManager::~BreakpointsManager() = default;

QLayout* BreakpointsManager::MakeListingPane() {
    auto* heading = new QLabel(tr("Address Opcode  Instruction"));
    heading->setFont(DataFont());
    heading->setContentsMargins(listingView_->TextLeft(), 0, 0, 0);
    connect(listingView_, &ListingView::Scrolled, this, &SecondaryWindow::Refresh);
    connect(listingView_, &ListingView::AddressClicked, this,
            [this](int address) { Workbench().ToggleBreakpoint(*dialogs_, address); });
    auto* pane = new QVBoxLayout;
    pane->addWidget(heading);
    pane->addWidget(listingView_, 1);
    return pane;
}

QWidget* BreakpointsManager::MakeSlots() {
    auto* group = new QGroupBox(tr("Defined Breakpoints"));
    auto* addresses = new QVBoxLayout;
    auto* actions = new ValueActions(*this, tr("&Go to Line"));
    connect(actions, &ValueActions::Clicked, this, [this](const QLabel* slot) { GoToSlot(*slot); });
    connect(actions, &ValueActions::ChangeRequested, this,
            [this](const QLabel* slot) { GoToSlot(*slot); });
    int number = 0;
    for (DataLabel*& slot : slots_) {
        slot = new DataLabel(kAddressColumns);
        slot->setObjectName("prekidlabela[" + QString::number(number) + "]");
        slot->SetMeaning(tr("Breakpoint %1").arg(++number));
        slot->SetFramed();
        slot->setAlignment(Qt::AlignCenter);
        actions->Add(*slot);
        addresses->addWidget(slot, 0, Qt::AlignHCenter);
    }
    group->setLayout(addresses);
    return group;
}

QLayout* BreakpointsManager::MakeBreakpointPane() {
    auto* clearAll = new QPushButton(tr("Clear All Breakpoints"));
    clearAll->setObjectName("Command1");
    connect(clearAll, &QPushButton::clicked, this, [this] { Workbench().ClearBreakpoints(); });
    holdPc_->setObjectName("Check2");
    connect(holdPc_, &QCheckBox::toggled, this, &SecondaryWindow::Refresh);
    auto* pane = new QVBoxLayout;
    pane->addWidget(MakeSlots());
    pane->addWidget(clearAll);
    pane->addStretch();
    pane->addWidget(holdPc_);
    return pane;
}

void BreakpointsManager::Opened() {
    listing_ = Workbench().BuildBreakpointListing(*dialogs_);
    listingView_->SetLargestScrollValue(app::LargestScrollValue(listing_));
    drawlines();
    listingView_->setFocus();
}

bool BreakpointsManager::GoTo(int address) {
    ScrollTo(address);
    listingView_->FocusAddress(address);
    return std::ranges::find(listing_, address, &app::ListingLine::address) != listing_.end();
}

void BreakpointsManager::GoToSlot(const QLabel& slot) {
    const auto place = std::ranges::find(slots_, &slot);
    const auto index = static_cast<std::size_t>(place - slots_.begin());
    const std::span<const int> addresses = Workbench().Breakpoints().Addresses();
    if (index < addresses.size()) {
        GoTo(addresses[index]);
    }
}

bool BreakpointsManager::ScrollTo(int address) {
    const std::optional<int> value =
        app::ScrollValueFor(listing_, listingView_->ScrollValue(), address);
    if (value) {
        listingView_->ScrollTo(*value);  // which draws what then is in view
    }
    return value.has_value();
}

void BreakpointsManager::drawlines() {
    const int pc = Workbench().Processor().state.pc;
    if (holdPc_->isChecked() && ScrollTo(pc)) {
        return;
    }
    listingView_->ShowRows(
        app::VisibleRows(listing_, listingView_->ScrollValue(), Workbench().Breakpoints(), pc));
    ShowSlots();
}

void BreakpointsManager::ShowSlots() {
    const std::array<std::string, app::kBreakpointSlots> texts = Workbench().Breakpoints().Slots();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        slots_.at(i)->ShowText(texts.at(i));
    }
}

}  // namespace corvane::ui
