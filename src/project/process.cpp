#include "project/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <system_error>
#include <thread>

namespace corvane::project {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t kMostOutput = 16U << 20U;  // bytes
constexpr std::chrono::milliseconds kPause(5);

// The two structures of posix_spawn, which want to be destroyed.
struct SpawnSettings {
    SpawnSettings() {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;
    ~SpawnSettings() {
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
    }

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

// A process group of its own, so that it can be ended with its children, and signals as they are at
// a program's start.
void Prepare(SpawnSettings& settings, const ProcessOptions& options) {
    constexpr int kReadAndWriteByOwner = 0600;
    posix_spawn_file_actions_addopen(&settings.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&settings.actions, STDOUT_FILENO, options.output.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, kReadAndWriteByOwner);
    posix_spawn_file_actions_adddup2(&settings.actions, STDOUT_FILENO, STDERR_FILENO);
    if (!options.folder.empty()) {
        posix_spawn_file_actions_addchdir_np(&settings.actions, options.folder.c_str());
    }
    sigset_t none;
    sigset_t all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&settings.attributes, &none);
    posix_spawnattr_setsigdefault(&settings.attributes, &all);
    posix_spawnattr_setpgroup(&settings.attributes, 0);
    posix_spawnattr_setflags(&settings.attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK |
                                                       POSIX_SPAWN_SETSIGDEF);
}

ProcessResult ResultOf(int waitStatus) {
    if (WIFSIGNALED(waitStatus)) {
        return {ProcessEnding::Signalled, 0, strsignal(WTERMSIG(waitStatus))};
    }
    return {ProcessEnding::Exited, WEXITSTATUS(waitStatus), ""};
}

// Why a process that runs is to be ended.
std::optional<ProcessEnding> ReasonToEnd(const ProcessOptions& options,
                                         std::chrono::steady_clock::time_point deadline) {
    std::error_code error;
    const std::uintmax_t printed = fs::file_size(options.output, error);
    if (options.isCancelled && options.isCancelled()) {
        return ProcessEnding::Cancelled;
    }
    if (!error && printed > kMostOutput) {
        return ProcessEnding::TooMuchOutput;
    }
    return std::chrono::steady_clock::now() < deadline ? std::nullopt
                                                       : std::optional(ProcessEnding::TimedOut);
}

}  // namespace

ProcessResult RunProcess(const ProcessOptions& options) {
    SpawnSettings settings;
    Prepare(settings, options);
    std::vector<std::string> texts = options.arguments;
    std::vector<char*> arguments;
    arguments.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        arguments.push_back(text.data());
    }
    arguments.push_back(nullptr);
    pid_t process = 0;
    const int failure = posix_spawnp(&process, arguments.front(), &settings.actions,
                                     &settings.attributes, arguments.data(), environ);
    if (failure != 0) {
        return {ProcessEnding::NotFound, 0, std::generic_category().message(failure)};
    }
    const auto deadline =
        std::chrono::steady_clock::now() + std::chrono::seconds(options.timeoutSeconds);
    int waitStatus = 0;
    while (waitpid(process, &waitStatus, WNOHANG) == 0) {
        if (const std::optional<ProcessEnding> reason = ReasonToEnd(options, deadline)) {
            kill(-process, SIGKILL);
            waitpid(process, &waitStatus, 0);
            return {*reason, 0, ""};
        }
        std::this_thread::sleep_for(kPause);
    }
    return ResultOf(waitStatus);
}

TemporaryFolder::TemporaryFolder() {
    std::error_code error;
    std::string name = (fs::temp_directory_path(error) / "corvane-XXXXXX").string();
    if (!error && mkdtemp(name.data()) != nullptr) {
        path_ = name;
    }
}

TemporaryFolder::~TemporaryFolder() {
    if (!path_.empty()) {
        std::error_code error;
        fs::remove_all(path_, error);
    }
}

}  // namespace corvane::project
