#include "scenario/schedule.h"

#include <algorithm>
#include <limits>

namespace corvane::scenario {

Schedule::Schedule(const std::vector<SerialPort>& ports, const inspect::Clock& clock,
                   const std::int64_t& timeBeforeStart)
    : lines_(ports.size()) {
    for (std::size_t i = 0; i < ports.size(); ++i) {
        if (ports[i].tx) {
            lines_[i].listener.emplace(*ports[i].tx, ports[i].baud, clock, timeBeforeStart);
        }
        if (ports[i].rx) {
            lines_[i].sender.emplace(*ports[i].rx, ports[i].baud, clock);
        }
    }
}

void Schedule::Join(inspect::ObservedRun& run) {
    for (Line& line : lines_) {
        if (line.listener) {
            run.Add(*line.listener);
        }
    }
}

void Schedule::Open(std::size_t serial, inspect::ObservedRun& run) {
    Line& line = lines_[serial];
    if (line.sender) {
        run.Hold(line.sender->Pin(), true);
    }
    if (line.listener) {
        line.listener->Begin(run.Now());
    }
}

void Schedule::Send(std::size_t serial, const std::string& bytes, std::int64_t now) {
    lines_[serial].sender->Send(bytes, now);
}

std::int64_t Schedule::NextDue(std::int64_t now) const {
    std::int64_t next = std::numeric_limits<std::int64_t>::max();
    for (const Press& press : presses_) {
        next = std::min(next, press.end);
    }
    for (const Line& line : lines_) {
        if (line.sender) {
            next = std::min(next, line.sender->NextBit().value_or(next));
        }
        if (line.listener && line.listener->IsListening()) {
            next = std::min(next, line.listener->NextByte(now));
        }
    }
    return next;
}

void Schedule::ApplyDue(inspect::ObservedRun& run, std::int64_t now) {
    for (const Press& press : presses_) {
        if (press.end <= now) {
            core::TogglePin(run.Processor(), press.pin, true);
            run.InputChanged();
        }
    }
    std::erase_if(presses_, [now](const Press& press) { return press.end <= now; });
    for (Line& line : lines_) {
        while (line.sender && line.sender->NextBit().value_or(now + 1) <= now) {
            run.Hold(line.sender->Pin(), line.sender->TakeBit());
        }
        if (line.listener && line.listener->IsListening()) {
            line.listener->CatchUp(run.Now());
        }
    }
}

bool Schedule::Find(std::size_t serial, const std::string& text) {
    return lines_[serial].listener->Find(text);
}

const std::string& Schedule::Received(std::size_t serial) const {
    return lines_[serial].listener->Received();
}

}  // namespace corvane::scenario
