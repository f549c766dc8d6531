#include "app/stop_list.h"

#include <algorithm>
#include <filesystem>

namespace corvane::app {

namespace {

void NameByPlace(DebuggerStop& stop) {
    stop.stop.text = "break " + std::filesystem::path(stop.file).filename().string() + ":" +
                     std::to_string(stop.line);
}

}  // namespace

int StopList::Add(const std::string& file, int line) {
    stops_.push_back({.stop = {.number = ++lastNumber_, .text = {}}, .file = file, .line = line});
    NameByPlace(stops_.back());
    return lastNumber_;
}

void StopList::Remove(int number) {
    std::erase_if(stops_,
                  [number](const DebuggerStop& stop) { return stop.stop.number == number; });
}

void StopList::MoveTo(int number, int line) {
    for (DebuggerStop& stop : stops_) {
        if (stop.stop.number == number) {
            stop.line = line;
            NameByPlace(stop);
        }
    }
}

void StopList::Rename(const std::string& file, const std::string& newFile) {
    for (DebuggerStop& stop : stops_) {
        if (!stop.file.empty() && stop.file == file) {
            stop.file = newFile;
            NameByPlace(stop);
        }
    }
}

void StopList::RemoveOf(const std::string& file) {
    std::erase_if(
        stops_, [&](const DebuggerStop& stop) { return !stop.file.empty() && stop.file == file; });
}

void StopList::Resolve(const std::string& file, const project::Program* program) {
    for (DebuggerStop& stop : stops_) {
        if (!stop.file.empty() && stop.file == file) {
            stop.stop.addresses =
                program == nullptr
                    ? std::vector<int>{}
                    : project::WordsFromLineOn(*program, {.file = 0, .line = stop.line}).addresses;
        }
    }
}

void StopList::ForgetAddresses() {
    for (DebuggerStop& stop : stops_) {
        if (!stop.file.empty()) {
            stop.stop.addresses.clear();
        }
    }
}

std::vector<int> StopList::Addresses() const {
    std::vector<int> addresses;
    for (const DebuggerStop& stop : stops_) {
        addresses.insert(addresses.end(), stop.stop.addresses.begin(), stop.stop.addresses.end());
    }
    std::ranges::sort(addresses);
    return addresses;
}

}  // namespace corvane::app
