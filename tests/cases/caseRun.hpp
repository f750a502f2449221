#pragma once
// One run of a case.

#include <filesystem>
#include <string>
#include <vector>

#include "cases/caseFiles.hpp"
#include "support/programRun.hpp"

namespace tarvek::test {

class CaseRun : public ProgramRun {
  public:
    // Copies the case's input files, and its home over the project's data.
    explicit CaseRun(const std::string& caseFolder) : case_(caseFolder) {
        namespace fs = std::filesystem;
        constexpr auto Merge = fs::copy_options::recursive | fs::copy_options::overwrite_existing;
        if (fs::exists(fs::path(case_) / "home")) fs::copy(fs::path(case_) / "home", HomeFolder(), Merge);
        for (const auto& entry : fs::directory_iterator(case_)) {
            const std::string name = entry.path().filename().string();
            if (!IsOfTheRunner(name)) fs::copy(entry.path(), fs::path(WorkFolder()) / name, Merge);
        }
    }

    // Runs the command of the case to its end.
    Outcome Run() const {
        const std::vector<std::string> command = SplitCommand(ReadBytes(case_ + "/command"));
        if (command.empty()) {
            ADD_FAILURE() << "no program in " << case_ << "/command";
            return {};
        }
        const std::string answers = case_ + "/answers";
        return ProgramRun::Run(command,
                               {.input = std::filesystem::exists(answers) ? answers : Streams().input});
    }

  private:
    std::string case_;
};

}  // namespace tarvek::test
