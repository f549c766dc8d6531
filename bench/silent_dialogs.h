// A person who says nothing and answers every question with Yes.
#pragma once

#include "app/dialogs.h"

namespace corvane::bench {

class SilentDialogs final : public app::Dialogs {
  public:
    void Inform(const std::string& /*text*/) override {}
    void InformWithDetails(const std::string& /*text*/, const std::string& /*details*/) override {}
    bool Ask(const std::string& /*question*/) override { return true; }
    std::optional<std::string> Input(const std::string& /*prompt*/,
                                     const std::string& /*defaultText*/) override {
        return std::nullopt;
    }
    std::optional<std::string> OpenFile(const app::FileDialog& /*dialog*/) override {
        return std::nullopt;
    }
    std::optional<std::string> SaveFile(const app::FileDialog& /*dialog*/) override {
        return std::nullopt;
    }
    std::optional<int> ChooseModel(int /*currentModel*/) override { return std::nullopt; }
};

}  // namespace corvane::bench
