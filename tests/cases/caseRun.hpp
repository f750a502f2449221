#pragma once
// One run of a program of the project in folders of its own.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "cases/caseFiles.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {

struct Outcome {
    int status = -1;  // exit status; 128 and the signal for a program that a signal has ended
    std::string told;
    std::string printed;
};

// What a program is started with. The standard streams are files, so that a program that prints much never
// waits for its reader.
class Spawning {
  public:
    Spawning() { ::posix_spawn_file_actions_init(&actions_); }
    ~Spawning() { ::posix_spawn_file_actions_destroy(&actions_); }
    Spawning(const Spawning&) = delete;
    Spawning& operator=(const Spawning&) = delete;

    void Read(int stream, const std::string& path) {
        ::posix_spawn_file_actions_addopen(&actions_, stream, path.c_str(), O_RDONLY, 0);
    }
    void Write(int stream, const std::string& path) {
        constexpr int Fresh = O_WRONLY | O_CREAT | O_TRUNC;
        ::posix_spawn_file_actions_addopen(&actions_, stream, path.c_str(), Fresh, 0600);
    }
    void RunIn(const std::string& folder) {
        ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
    }

    // Runs `command`, its program one of the project's own, to the end and gives its status.
    int Run(std::vector<std::string> command, std::vector<std::string> environment) const {
        const std::string program = std::string(TARVEK_BIN) + "/" + command[0];
        pid_t process = 0;
        const int error = ::posix_spawn(&process, program.c_str(), &actions_, nullptr,
                                        Pointers(command).data(), Pointers(environment).data());
        if (error == 0) return WaitFor(process);
        ADD_FAILURE() << program << ": " << std::strerror(error);
        return -1;
    }

  private:
    static std::vector<char*> Pointers(std::vector<std::string>& texts) {
        std::vector<char*> pointers;
        for (std::string& text : texts) pointers.push_back(text.data());
        pointers.push_back(nullptr);
        return pointers;
    }
    static int WaitFor(pid_t process) {
        int status = 0;
        while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
        }
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

    posix_spawn_file_actions_t actions_{};
};

// The folders of a run: the working folder, the program folder, and one for what lives as long as the run.
class CaseRun {
  public:
    // Copies the case's input files, and its home over the project's data.
    explicit CaseRun(const std::string& caseFolder) : case_(caseFolder) {
        namespace fs = std::filesystem;
        constexpr auto Merge = fs::copy_options::recursive | fs::copy_options::overwrite_existing;
        for (const char* name : {"home", "work", "runtime"}) fs::create_directory(folder_.File(name));
        fs::permissions(folder_.File("runtime"), fs::perms::owner_all);
        fs::copy(fs::path(TARVEK_SOURCE) / "data", HomeFolder(), Merge);
        if (fs::exists(fs::path(case_) / "home")) fs::copy(fs::path(case_) / "home", HomeFolder(), Merge);
        for (const auto& entry : fs::directory_iterator(case_)) {
            const std::string name = entry.path().filename().string();
            if (!IsOfTheRunner(name)) fs::copy(entry.path(), fs::path(WorkFolder()) / name, Merge);
        }
    }

    std::string WorkFolder() const { return folder_.File("work"); }
    std::string HomeFolder() const { return folder_.File("home"); }

    // Runs the command of the case to its end.
    Outcome Run() const {
        const std::vector<std::string> command = SplitCommand(ReadBytes(case_ + "/command"));
        if (command.empty()) {
            ADD_FAILURE() << "no program in " << case_ << "/command";
            return {};
        }
        const std::string answers = case_ + "/answers";
        Spawning spawning;
        spawning.Read(0, std::filesystem::exists(answers) ? answers : "/dev/null");
        spawning.Write(1, folder_.File("printed"));
        spawning.Write(2, folder_.File("told"));
        spawning.RunIn(WorkFolder());
        Outcome outcome;
        outcome.status = spawning.Run(command, Environment());
        outcome.told = ReadBytes(folder_.File("told"));
        outcome.printed = ReadBytes(folder_.File("printed"));
        return outcome;
    }

  private:
    // A small environment: nothing of the one who runs the tests gets in.
    std::vector<std::string> Environment() const {
        const std::string runtime = folder_.File("runtime");
        std::vector<std::string> environment = {"PATH=/usr/bin:/bin",           "LC_ALL=C.UTF-8",
                                                "SOURCE_DATE_EPOCH=1770000000", "TARVEK_PROMPTS=console",
                                                "TARVEK_HOME=" + HomeFolder(),  "HOME=" + runtime,
                                                "XDG_CONFIG_HOME=" + runtime,   "XDG_DATA_HOME=" + runtime,
                                                "XDG_RUNTIME_DIR=" + runtime};
        for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LLVM_PROFILE_FILE"})
            if (const char* value = std::getenv(name)) environment.push_back(std::string(name) + "=" + value);
        return environment;
    }

    std::string case_;
    TemporaryFolder folder_;
};

}  // namespace tarvek::test
