#include "scenario/serial_line.h"

#include <algorithm>

namespace corvane::scenario {

namespace {

constexpr int kDataBits = 8;
constexpr int kBitsOfByte = 10;  // with start and stop bit
constexpr std::int64_t kHalvesOfByte =
    19;  // half bit times from the falling edge into the stop bit

}  // namespace

SerialListener::SerialListener(core::Pin pin, std::int64_t baud, const inspect::Clock& clock,
                               const std::int64_t& timeBeforeStart)
    : pin_(pin), baud_(baud), clock_(clock), timeBeforeStart_(timeBeforeStart) {}

void SerialListener::Begin(const inspect::Moment& moment) {
    isListening_ = true;
    level_ = LevelAt(moment);
}

inspect::Look SerialListener::Needs(const inspect::Chip& chip) const {
    return {.instructions = inspect::WritesToPort(chip, pin_.port)};
}

bool SerialListener::AfterStep(const inspect::Step& /*step*/, const inspect::Moment& moment) {
    LookAt(moment);
    return false;
}

void SerialListener::CatchUp(const inspect::Moment& moment) {
    TakeBits(TimeAt(moment) + 1);
}

std::int64_t SerialListener::NextByte(std::int64_t now) const {
    const std::int64_t begin = byteBegan_.value_or(now);
    return begin + std::max<std::int64_t>(
                       inspect::ClocksInHalfPeriodsDown(kHalvesOfByte, baud_, clock_), 1);
}

bool SerialListener::Find(const std::string& text) {
    const std::size_t found = received_.find(text);
    if (found == std::string::npos) {
        return false;
    }
    received_.erase(0, found + text.size());
    return true;
}

std::int64_t SerialListener::TimeAt(const inspect::Moment& moment) const {
    return timeBeforeStart_ + moment.processor.state.clockCycles;
}

bool SerialListener::LevelAt(const inspect::Moment& moment) const {
    const auto port = static_cast<std::size_t>(pin_.port);
    return ((moment.processor.state.portValues[port] >> pin_.bit) & 1) != 0;
}

void SerialListener::LookAt(const inspect::Moment& moment) {
    const bool level = LevelAt(moment);
    if (!isListening_ || level == level_) {
        return;
    }
    const std::int64_t now = TimeAt(moment);
    TakeBits(now);
    level_ = level;
    if (!level && !byteBegan_) {
        byteBegan_ = now;
        bitsTaken_ = 0;
        bits_ = 0;
    }
}

// All bits before this time have the present level.
void SerialListener::TakeBits(std::int64_t until) {
    while (byteBegan_ && NextSample() < until) {
        if (bitsTaken_ < kDataBits) {
            bits_ |= (level_ ? 1U : 0U) << static_cast<unsigned>(bitsTaken_);
            ++bitsTaken_;
            continue;
        }
        if (level_) {  // a byte without stop bit is dropped
            received_ += static_cast<char>(static_cast<unsigned char>(bits_));
        }
        byteBegan_.reset();
    }
}

// In the middle of the bit; the start bit is not looked at again.
std::int64_t SerialListener::NextSample() const {
    return *byteBegan_ +
           inspect::ClocksInHalfPeriodsDown(3 + 2 * std::int64_t{bitsTaken_}, baud_, clock_);
}

SerialSender::SerialSender(core::Pin pin, std::int64_t baud, const inspect::Clock& clock)
    : pin_(pin), baud_(baud), clock_(clock) {}

void SerialSender::Send(const std::string& bytes, std::int64_t now) {
    if (!NextBit() && now >= TimeOfBit(nextBit_)) {
        begin_ = now;
        bytes_.clear();
        nextBit_ = 0;
    }
    bytes_ += bytes;
}

std::optional<std::int64_t> SerialSender::NextBit() const {
    const bool isLeft = nextBit_ < kBitsOfByte * static_cast<std::int64_t>(bytes_.size());
    return isLeft ? std::optional(TimeOfBit(nextBit_)) : std::nullopt;
}

bool SerialSender::TakeBit() {
    const auto byte =
        static_cast<unsigned char>(bytes_[static_cast<std::size_t>(nextBit_ / kBitsOfByte)]);
    const auto bit = static_cast<int>(nextBit_ % kBitsOfByte);
    ++nextBit_;
    if (bit == 0) {
        return false;
    }
    return bit > kDataBits || ((byte >> (bit - 1)) & 1) != 0;
}

std::int64_t SerialSender::TimeOfBit(std::int64_t bit) const {
    return begin_ + inspect::ClocksInHalfPeriodsUp(2 * bit, baud_, clock_);
}

}  // namespace corvane::scenario
