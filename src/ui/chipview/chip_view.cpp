#include "ui/chipview/chip_view.h"

#include <QButtonGroup>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/chipview/analog_panel.h"
#include "ui/widgets/fitting_area.h"

namespace corvane::ui {

namespace {

QString NameOf(app::Window window) {
    switch (window) {
        case app::Window::ChipView28:
            return "ChipView28";
        case app::Window::ChipView40:
            return "ChipView40";
        case app::Window::ChipView62x:
            return "ChipView62x";
        default:
            return "ChipView18";
    }
}

}  // namespace

ChipView::ChipView(app::Workbench& workbench)
    : SecondaryWindow(app::ChipViewOf(workbench.Model().family), workbench) {
    setObjectName(NameOf(Number()));
    setWindowTitle(QString::fromStdString(workbench.MicrocontrollerViewTitle()));
    auto* diagram = new PackageDiagram(workbench.Model());
    AddPins(*diagram);
    if (models::TraitsOf(workbench.Model().family).analogChannels > 0) {
        AddAnalogPanel(*diagram);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new FittingArea(diagram), 1);
    AddFooter(*layout);
}

void ChipView::AddPins(PackageDiagram& diagram) {
    const models::Model& model = Workbench().Model();
    auto* arrowKeys = new QButtonGroup(this);  // lead from button to button
    arrowKeys->setExclusive(false);
    for (const models::PackagePin& place : models::PackagePins(model.family)) {
        const std::optional<core::Pin> pin = core::FindPin(model, place.label.substr(0, 3));
        if (!pin) {
            continue;
        }
        const PinControls& controls = pins_.emplace_back(diagram, place, model.family, *pin);
        arrowKeys->addButton(controls.Input());
        connect(controls.Input(), &QAbstractButton::clicked, this,
                [this, button = controls.Input(), pin = *pin] { Toggle(*button, pin); });
        connect(controls.Input(), &QAbstractButton::released, this, &ChipView::refreshpic);
        if (controls.Analog() != nullptr) {
            arrowKeys->addButton(controls.Analog());
            connect(controls.Analog(), &QAbstractButton::clicked, this,
                    [this, channel = *controls.AnalogChannel()] {
                        const auto& values = Workbench().Processor().state.analogValues;
                        panel_->Open(channel, values.at(static_cast<std::size_t>(channel)));
                    });
        }
    }
}

void ChipView::AddAnalogPanel(PackageDiagram& diagram) {
    panel_ = new AnalogPanel(Workbench().Model().family);
    diagram.PutInside(panel_);
    connect(panel_, &AnalogPanel::Accepted, this, [this](int channel, int value) {
        Workbench().SetAnalogValue(channel, value);
        CloseButton()->setFocus();
    });
}

void ChipView::Toggle(const InputButton& button, core::Pin pin) {
    Workbench().TogglePin(pin);
    // Whoever uses the keyboard may want to press the same key again.
    if (!button.IsPressedByKey()) {
        CloseButton()->setFocus();
    }
}

void ChipView::refreshpic() {
    const bool runsExtremelyFast = Workbench().Simulation().RunsExtremelyFast();
    for (PinControls& pin : pins_) {
        pin.Show(app::AppearanceOf(Workbench().Processor(), pin.Pin()), runsExtremelyFast);
    }
}

}  // namespace corvane::ui
