#include "inspect/stimulus_event.h"

#include "inspect/observed_run.h"

namespace corvane::inspect {

void Apply(const StimulusEvent& event, core::Processor& processor) {
    if (event.action == StimulusAction::Analog) {
        core::SetAnalogValue(processor, event.channel, event.value);
        return;
    }
    if (event.action == StimulusAction::Toggle) {
        core::TogglePin(processor, event.pin, true);
    } else {
        SetPin(processor, event.pin, event.value == 1);
    }
}

}  // namespace corvane::inspect
