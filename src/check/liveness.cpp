#include "check/liveness.h"

#include <cstddef>
#include <deque>
#include <set>

#include "isa/instruction_set.h"

namespace corvane::check {

namespace {

// Resources at every place, computed backwards until nothing changes.
class Flows {
  public:
    explicit Flows(const Subject& subject) : subject_(subject), paths_(subject.paths) {
        const std::size_t count = paths_.places.size();
        const bool hasPages = subject.program.words.size() > kPageWords;
        effects_.reserve(count);
        isReturn_.reserve(count);
        for (const Place& place : paths_.places) {
            const int word = subject.program.words[static_cast<std::size_t>(place.address)];
            effects_.push_back(EffectsOf(word, place.state, subject.description, hasPages));
            isReturn_.push_back(IsReturn(word));
        }
    }

    std::vector<Resources> Live() {
        const std::size_t count = paths_.places.size();
        kept_.assign(count, 0);
        read_.assign(count, 0);
        Settle([this](std::uint32_t place) { return UpdateInside(place); });
        live_ = read_;
        Settle([this](std::uint32_t place) { return UpdateLive(place); });
        return std::move(live_);
    }

  private:
    // Later places mostly follow earlier ones, so that few rounds do.
    template <typename Update>
    void Settle(Update update) {
        for (bool hasChanged = true; hasChanged;) {
            hasChanged = false;
            for (std::size_t i = paths_.places.size(); i-- > 0;) {
                hasChanged = update(static_cast<std::uint32_t>(i)) || hasChanged;
            }
        }
    }

    Resources UnionOfNext(std::uint32_t place, const std::vector<Resources>& values) const {
        Resources all = 0;
        for (const std::uint32_t next : paths_.next[place]) {
            all |= values[next];
        }
        return all;
    }

    // What the routine itself, with what it calls, leaves alone on some way to a return, and what
    // it reads.
    bool UpdateInside(std::uint32_t place) {
        Resources kept = isReturn_[place] ? kAllResources : UnionOfNext(place, kept_);
        Resources read = UnionOfNext(place, read_);
        AddCall(place, kept, read);
        kept &= ~effects_[place].writes;
        read = Before(place, read);
        const bool hasChanged = kept != kept_[place] || read != read_[place];
        kept_[place] = kept;
        read_[place] = read;
        return hasChanged;
    }

    // The same with what the callers read behind the return.
    bool UpdateLive(std::uint32_t place) {
        Resources live = UnionOfNext(place, live_);
        if (isReturn_[place]) {
            for (const std::uint32_t caller :
                 paths_.routines[paths_.places[place].routine].callers) {
                live |= UnionOfNext(caller, live_);
            }
        }
        Resources kept = 0;
        AddCall(place, kept, live);
        live = Before(place, live);
        const bool hasChanged = live != live_[place];
        live_[place] = live;
        return hasChanged;
    }

    // Of a CALL: what is read or kept behind it goes through the routine that it calls.
    void AddCall(std::uint32_t place, Resources& kept, Resources& read) const {
        if (paths_.called[place] == kNone) {
            return;
        }
        const std::uint32_t entry = paths_.routines[paths_.called[place]].entry;
        kept &= kept_[entry];
        read = (read & kept_[entry]) | read_[entry];
    }

    Resources Before(std::uint32_t place, Resources behind) const {
        const Effects& effects = effects_[place];
        return (behind & ~effects.writes) | effects.reads;
    }

    const Subject& subject_;
    const Paths& paths_;
    std::vector<Effects> effects_;
    std::vector<bool> isReturn_;
    std::vector<Resources> kept_;
    std::vector<Resources> read_;
    std::vector<Resources> live_;
};

}  // namespace

std::vector<Resources> LiveResources(const Subject& subject) {
    return Flows(subject).Live();
}

std::uint32_t ReaderOf(const Subject& subject, std::uint32_t place, Resources resource) {
    const Paths& paths = subject.paths;
    const bool hasPages = subject.program.words.size() > kPageWords;
    std::deque<std::uint32_t> open = {place};
    std::set<std::uint32_t> seen = {place};
    const auto add = [&](std::uint32_t next) {
        if (seen.insert(next).second) {
            open.push_back(next);
        }
    };
    for (; !open.empty(); open.pop_front()) {
        const Place& at = paths.places[open.front()];
        const int word = subject.program.words[static_cast<std::size_t>(at.address)];
        const Effects effects = EffectsOf(word, at.state, subject.description, hasPages);
        if ((effects.reads & resource) != 0) {
            return open.front();
        }
        if ((effects.writes & resource) != 0) {
            continue;
        }
        if (const std::uint32_t called = paths.called[open.front()]; called != kNone) {
            add(paths.routines[called].entry);
        } else {
            for (const std::uint32_t next : paths.next[open.front()]) {
                add(next);
            }
        }
        if (IsReturn(word)) {
            for (const std::uint32_t caller : paths.routines[at.routine].callers) {
                for (const std::uint32_t next : paths.next[caller]) {
                    add(next);
                }
            }
        }
    }
    return kNone;
}

}  // namespace corvane::check
