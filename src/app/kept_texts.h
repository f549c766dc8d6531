// Texts that a person has typed and not saved, kept in a folder so that they outlive the
// application.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"

namespace corvane::app {

struct KeptText {
    std::string id;    // the name of its file in the folder
    std::string path;  // of the file that the text belongs to; empty when it has none yet
    std::chrono::system_clock::time_point time;  // when it was kept
};

// The texts of one kind, those of the assembler or those of the BASIC compiler.
class KeptTexts {
  public:
    // The folder is made when it is needed. The extension, ".asm", tells the kinds apart.
    KeptTexts(std::string folder, std::string_view extension);

    // The newest first, at most ten, without the one that is being edited.
    std::vector<KeptText> Latest(const std::string& edited) const;
    // The text as it was given, or the reason why it cannot be read.
    common::Result<std::string> Read(const std::string& id) const;

    // A name that no kept text has.
    std::string NewId() const;
    // Keeps the text under this name, in place of what is kept there.
    common::Status Keep(const std::string& id, std::string_view path, std::string_view text) const;
    void Forget(const std::string& id) const;
    // Forgets all but the newest ten.
    void ForgetOldest() const;

    std::string PathOf(const std::string& id) const;

  private:
    std::vector<KeptText> All() const;

    std::filesystem::path folder_;
    std::string extension_;
};

}  // namespace corvane::app
