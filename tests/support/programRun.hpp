#pragma once
// One run of a program of the project, in folders of its own.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "support/testSupport.hpp"

namespace tarvek::test {

using Texts = std::vector<std::string>;

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

    // An empty path closes the stream.
    void Read(int stream, const std::string& path) { Open(stream, path, O_RDONLY); }
    void Write(int stream, const std::string& path) { Open(stream, path, O_WRONLY | O_CREAT | O_TRUNC); }
    void RunIn(const std::string& folder) {
        ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
    }

    // Runs `command`, its program one of the project's own, to the end and gives its status.
    int Run(Texts command, Texts environment) const {
        const std::string program = std::string(TARVEK_BIN) + "/" + command[0];
        pid_t process = 0;
        const int error = ::posix_spawn(&process, program.c_str(), &actions_, nullptr,
                                        Pointers(command).data(), Pointers(environment).data());
        if (error == 0) return WaitFor(process);
        ADD_FAILURE() << program << ": " << std::strerror(error);
        return -1;
    }

  private:
    void Open(int stream, const std::string& path, int mode) {
        if (path.empty())
            ::posix_spawn_file_actions_addclose(&actions_, stream);
        else
            ::posix_spawn_file_actions_addopen(&actions_, stream, path.c_str(), mode, 0600);
    }
    static std::vector<char*> Pointers(Texts& texts) {
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

// The paths that the standard streams of a run lead to; an empty one is closed.
struct Streams {
    std::string input = "/dev/null";
    std::string printed = "printed";  // a name alone is that of a file of the run, which Outcome has
    std::string told = "told";
};

// The folders of a run: the working folder, the program folder with the project's data, and one for what
// lives as long as the run, locks and temporary files among it.
class ProgramRun {
  public:
    ProgramRun() {
        namespace fs = std::filesystem;
        for (const char* name : {"home", "work", "runtime"}) fs::create_directory(folder_.File(name));
        fs::permissions(RuntimeFolder(), fs::perms::owner_all);
        fs::copy(fs::path(TARVEK_SOURCE) / "data", HomeFolder(),
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    }

    std::string WorkFolder() const { return folder_.File("work"); }
    std::string HomeFolder() const { return folder_.File("home"); }
    std::string RuntimeFolder() const { return folder_.File("runtime"); }

    // A file of these bytes in the working folder.
    void Put(const std::string& name, std::string_view bytes) const { folder_.Put("work/" + name, bytes); }

    // Runs `command` in the working folder to its end. `variables`, as "NAME=value", come before those of
    // the same name that every run has.
    Outcome Run(const Texts& command, const Streams& streams = {}, const Texts& variables = {}) const {
        Spawning spawning;
        spawning.Read(0, streams.input);
        spawning.Write(1, PathOf(streams.printed));
        spawning.Write(2, PathOf(streams.told));
        spawning.RunIn(WorkFolder());
        Texts environment = variables;
        for (const std::string& variable : Environment()) environment.push_back(variable);
        Outcome outcome;
        outcome.status = spawning.Run(command, environment);
        outcome.told = ContentOfRun(streams.told);
        outcome.printed = ContentOfRun(streams.printed);
        return outcome;
    }

  private:
    static bool IsOfTheRun(const std::string& stream) {
        return !stream.empty() && stream.find('/') == std::string::npos;
    }
    std::string PathOf(const std::string& stream) const {
        return IsOfTheRun(stream) ? folder_.File(stream) : stream;
    }
    std::string ContentOfRun(const std::string& stream) const {
        return IsOfTheRun(stream) ? ReadBytes(PathOf(stream)) : std::string();
    }

    // A small environment: nothing of the one who runs the tests gets in.
    Texts Environment() const {
        const std::string runtime = RuntimeFolder();
        Texts environment = {"PATH=/usr/bin:/bin",           "LC_ALL=C.UTF-8",
                             "SOURCE_DATE_EPOCH=1770000000", "TARVEK_PROMPTS=console",
                             "TARVEK_HOME=" + HomeFolder(),  "HOME=" + runtime,
                             "XDG_CONFIG_HOME=" + runtime,   "XDG_DATA_HOME=" + runtime,
                             "XDG_RUNTIME_DIR=" + runtime,   "TMPDIR=" + runtime};
        for (const char* name : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "LLVM_PROFILE_FILE"})
            if (const char* value = std::getenv(name)) environment.push_back(std::string(name) + "=" + value);
        return environment;
    }

    TemporaryFolder folder_;
};

}  // namespace tarvek::test
