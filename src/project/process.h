// Running another program to its end.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace corvane::project {

enum class ProcessEnding : std::uint8_t {
    Exited,
    NotFound,   // there is no such program, or it cannot be started; detail is the reason
    Signalled,  // detail is the signal's name
    TimedOut,
    TooMuchOutput,
    Cancelled,
};

struct ProcessResult {
    ProcessEnding ending = ProcessEnding::Exited;
    int status = 0;  // of an exit
    std::string detail;
};

struct ProcessOptions {
    std::vector<std::string> arguments;  // the program first, which is looked for in PATH
    std::filesystem::path folder;        // it works in; empty for the present one
    std::filesystem::path output;        // the file that takes what it prints, everything together
    int timeoutSeconds = 60;
    std::function<bool()> isCancelled;  // asked while it runs, some times a second
};

// Runs it without input. Unless it exits by itself it is ended together with all that it has
// started.
ProcessResult RunProcess(const ProcessOptions& options);

// A new folder of this process's own among the temporary files, which goes with the object.
class TemporaryFolder {
  public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    // Empty when there could be none.
    const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace corvane::project
