// What a run leaves in files while it runs and behind it: trace, waveform, coverage and profile.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/output.h"
#include "cli/run/trace.h"
#include "common/result.h"
#include "inspect/coverage.h"
#include "inspect/observed_run.h"
#include "inspect/profile.h"
#include "inspect/waveform.h"
#include "project/program.h"

namespace corvane::cli {

// Names of files are empty when they are not wanted.
struct RecordingOptions {
    std::string traceFile;
    bool traceSource = false;
    std::string waveformFile;
    std::string signals;  // empty: every pin
    std::string coverageFile;
    std::string profileFile;
};

// Errors are complete texts.
class Recordings {
  public:
    // The program's name stands for its source in a profile when it has none.
    Recordings(const RecordingOptions& options, const project::Program& program,
               const std::string& programFile)
        : options_(options), program_(program), programFile_(programFile) {}

    // Opens the files and has the run look at what they need. The error of a signal that is none.
    std::optional<std::string> ReadSignals(const inspect::Language& language);
    std::optional<std::string> Open(inspect::ObservedRun& run);

    // When the run has begun, from time to time while it lasts, and when it has ended. The last one
    // closes every file, also when one cannot be written, and returns all errors.
    void Begin(const inspect::Moment& moment);
    std::optional<std::string> Flush();
    std::vector<std::string> End(const inspect::Moment& moment);

  private:
    const RecordingOptions& options_;
    const project::Program& program_;
    const std::string& programFile_;
    std::optional<Trace> trace_;
    std::optional<inspect::Waveform> waveform_;
    std::optional<Output> waveformOutput_;
    std::optional<inspect::Coverage> coverage_;
    std::optional<inspect::Profile> profile_;
};

}  // namespace corvane::cli
