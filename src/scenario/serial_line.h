// The two directions of a serial line at a chip's pins: 8 data bits, no parity, one stop bit. Times
// are those of the test, in clock cycles.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/pins.h"
#include "inspect/clock.h"
#include "inspect/observed_run.h"

namespace corvane::scenario {

// Receives what the chip sends on a pin.
class SerialListener final : public inspect::Observer {
  public:
    // The test's time is that of the chip and what went by before its last Start.
    SerialListener(core::Pin pin, std::int64_t baud, const inspect::Clock& clock,
                   const std::int64_t& timeBeforeStart);

    // From here on, with the pin as it is.
    void Begin(const inspect::Moment& moment);
    bool IsListening() const { return isListening_; }

    inspect::Look Needs(const inspect::Chip& chip) const override;
    bool AfterStep(const inspect::Step& step, const inspect::Moment& moment) override;
    void AfterInput(const inspect::Moment& moment) override { LookAt(moment); }

    // Takes the bits up to now.
    void CatchUp(const inspect::Moment& moment);

    // No byte is complete before this time.
    std::int64_t NextByte(std::int64_t now) const;

    // What came since the text that was found last.
    const std::string& Received() const { return received_; }

    // Whether the text has come; it and what came before it is then forgotten.
    bool Find(const std::string& text);

  private:
    std::int64_t TimeAt(const inspect::Moment& moment) const;
    bool LevelAt(const inspect::Moment& moment) const;
    void LookAt(const inspect::Moment& moment);
    void TakeBits(std::int64_t until);
    std::int64_t NextSample() const;

    core::Pin pin_;
    std::int64_t baud_;
    inspect::Clock clock_;
    const std::int64_t& timeBeforeStart_;
    bool isListening_ = false;
    bool level_ = true;
    std::optional<std::int64_t> byteBegan_;  // at its falling edge
    int bitsTaken_ = 0;
    unsigned bits_ = 0;
    std::string received_;
};

// Plays bytes at a pin, one behind the other.
class SerialSender {
  public:
    SerialSender(core::Pin pin, std::int64_t baud, const inspect::Clock& clock);

    void Send(const std::string& bytes, std::int64_t now);

    // When the next bit begins; nothing when all are played.
    std::optional<std::int64_t> NextBit() const;

    // Its level.
    bool TakeBit();

    core::Pin Pin() const { return pin_; }

  private:
    std::int64_t TimeOfBit(std::int64_t bit) const;

    core::Pin pin_;
    std::int64_t baud_;
    inspect::Clock clock_;
    std::int64_t begin_ = 0;
    std::string bytes_;
    std::int64_t nextBit_ = 0;  // from the first bit of the first byte
};

}  // namespace corvane::scenario
