#include "cli/run/stimulus.h"

#include <charconv>
#include <optional>

#include "cli/diagnostics.h"
#include "common/text.h"
#include "core/pins.h"

namespace corvane::cli {

namespace {

using EventResult = common::Result<StimulusEvent>;

std::vector<std::string_view> Fields(std::string_view line) {
    constexpr std::string_view kBlanks = " \t";
    std::vector<std::string_view> fields;
    std::size_t begin = line.find_first_not_of(kBlanks);
    while (begin != std::string_view::npos) {
        const std::size_t end = std::min(line.find_first_of(kBlanks, begin), line.size());
        fields.push_back(line.substr(begin, end - begin));
        begin = line.find_first_not_of(kBlanks, end);
    }
    return fields;
}

// A decimal number of digits only.
template <typename Number>
std::optional<Number> ReadNumber(std::string_view text) {
    Number value{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    const bool isNumber = error == std::errc() && stop == end && value >= 0 && text.front() != '-';
    return isNumber ? std::optional(value) : std::nullopt;
}

EventResult MalformedLine() {
    return EventResult::Failure(
        "A line is STEP toggle PIN, STEP set PIN 0|1 or STEP analog ANk VALUE.");
}

EventResult ReadPinEvent(const std::vector<std::string_view>& fields, std::int64_t step,
                         const models::Model& model) {
    const bool isSet = fields[1] == "set";
    if (fields.size() != (isSet ? 4 : 3)) {
        return MalformedLine();
    }
    const std::optional<core::Pin> pin = core::FindPin(model, fields[2]);
    if (!pin) {
        return EventResult::Failure(std::string(model.name) + " has no pin " +
                                    std::string(fields[2]) + ".");
    }
    if (!isSet) {
        return EventResult::Success({step, StimulusAction::Toggle, *pin, 0, 0});
    }
    if (fields[3] != "0" && fields[3] != "1") {
        return EventResult::Failure("The level must be 0 or 1.");
    }
    return EventResult::Success({step, StimulusAction::Set, *pin, 0, fields[3] == "1" ? 1 : 0});
}

EventResult ReadAnalogEvent(const std::vector<std::string_view>& fields, std::int64_t step,
                            const models::Model& model) {
    if (fields.size() != 4) {
        return MalformedLine();
    }
    const models::FamilyTraits& traits = models::TraitsOf(model.family);
    const std::string name = common::ToUpper(fields[2]);
    const int channel = name.size() == 3 && name.starts_with("AN") ? name[2] - '0' : -1;
    if (channel < 0 || channel >= traits.analogChannels) {
        return EventResult::Failure(std::string(model.name) + " has no analog input " +
                                    std::string(fields[2]) + ".");
    }
    const std::optional<int> value = ReadNumber<int>(fields[3]);
    if (!value || *value > traits.analogFullScale) {
        return EventResult::Failure("The analog value must be 0 to " +
                                    std::to_string(traits.analogFullScale) + ".");
    }
    return EventResult::Success({step, StimulusAction::Analog, {}, channel, *value});
}

EventResult ReadEvent(const std::vector<std::string_view>& fields, const models::Model& model) {
    const std::optional<std::int64_t> step = ReadNumber<std::int64_t>(fields[0]);
    if (!step || fields.size() < 3) {
        return MalformedLine();
    }
    if (fields[1] == "toggle" || fields[1] == "set") {
        return ReadPinEvent(fields, *step, model);
    }
    return fields[1] == "analog" ? ReadAnalogEvent(fields, *step, model) : MalformedLine();
}

}  // namespace

common::Result<StimulusEvent> ReadStimulusEvent(std::string_view line, const models::Model& model) {
    return ReadEvent(Fields(line), model);
}

common::Result<std::vector<StimulusEvent>> ReadStimulus(const std::string& file,
                                                        std::string_view text,
                                                        const models::Model& model) {
    using ReadResult = common::Result<std::vector<StimulusEvent>>;
    std::vector<StimulusEvent> events;
    int lineNumber = 0;
    for (const std::string_view line : common::SplitLines(text)) {
        ++lineNumber;
        const std::vector<std::string_view> fields = Fields(line);
        if (fields.empty() || fields.front().starts_with('#')) {
            continue;
        }
        EventResult event = ReadEvent(fields, model);
        if (event && !events.empty() && event->step < events.back().step) {
            event = EventResult::Failure("Step " + std::to_string(event->step) +
                                         " stands behind step " +
                                         std::to_string(events.back().step) + ".");
        }
        if (!event) {
            return ReadResult::Failure(ErrorText(file, lineNumber, event.error));
        }
        events.push_back(*event);
    }
    return ReadResult::Success(std::move(events));
}

}  // namespace corvane::cli
