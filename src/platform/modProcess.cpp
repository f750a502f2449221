#include "platform/modProcess.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "platform/modFaults.hpp"
#include "platform/modPaths.hpp"
#include "platform/modText.hpp"
#include "platform/modTextFileIn.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;

constexpr int FirstFreeDescriptor = 3;  // behind the three standard streams
constexpr const char* NoFile = "/dev/null";
constexpr const char* UsualPath = "/usr/local/bin:/usr/bin:/bin";

// What a tool inherits of this program's environment, and what wine needs beyond that.
constexpr const char* ToolVariables[] = {"HOME", "TMPDIR"};
constexpr const char* WineVariables[] = {"WINEPREFIX",      "WINEARCH",        "DISPLAY",
                                         "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "XAUTHORITY"};
// What a tool must not find ignored, whatever started this program.
constexpr int DefaultSignals[] = {SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGXFSZ, SIGCHLD};

class Descriptor {
  public:
    explicit Descriptor(int file) : file_(file) {}
    ~Descriptor() {
        if (file_ >= 0) ::close(file_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Number() const { return file_; }

  private:
    int file_;
};

bool HasControlCharacter(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F;
    });
}

void RequirePlain(std::string_view text) {
    if (HasControlCharacter(text)) RaiseFault(Fault::InvalidCall);
}

void RequirePlain(const ProcessStart& start) {
    if (!start.program.starts_with(PathSeparator)) RaiseFault(Fault::InvalidCall);
    for (const std::string_view text : {start.program, start.folder, start.input, start.output})
        RequirePlain(text);
    for (const std::string& argument : start.arguments) RequirePlain(argument);
}

bool IsRegularFile(const std::string& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

bool IsExecutable(const std::string& path) {
    return IsRegularFile(path) && ::access(path.c_str(), X_OK) == 0;
}

bool IsWindowsExecutable(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    char start[2] = {};
    return file.Number() >= 0 && ::read(file.Number(), start, 2) == 2 && start[0] == 'M' && start[1] == 'Z';
}

std::string SearchPath() {
    const char* path = std::getenv("PATH");
    return path != nullptr && path[0] != '\0' ? path : UsualPath;
}

// Empty where wine is not installed. A folder of the PATH that is not absolute is passed over.
std::string FindWine() {
    const std::string searchPath = SearchPath();
    for (const std::string_view folder : Split(searchPath, ':')) {
        std::string wine = JoinPath(folder, "wine");
        if (folder.starts_with(PathSeparator) && IsExecutable(wine)) return wine;
    }
    return {};
}

bool CanRun(const std::string& path) {
    return IsWindowsExecutable(path) ? !FindWine().empty() : IsExecutable(path);
}

std::vector<std::string> ToolEnvironment(bool underWine) {
    std::vector<std::string> environment = {"PATH=" + SearchPath(), "LANG=C"};
    const auto pass = [&environment](const char* name) {
        if (const char* value = std::getenv(name)) environment.push_back(std::string(name) + '=' + value);
    };
    for (const char* name : ToolVariables) pass(name);
    if (!underWine) return environment;
    for (const char* name : WineVariables) pass(name);
    environment.emplace_back("WINEDEBUG=-all");
    return environment;
}

std::vector<char*> PointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// A descriptor that can not be taken for a standard stream, also where this program was started without them.
int AboveStandardStreams(int file) {
    if (file < 0 || file >= FirstFreeDescriptor) return file;
    const int moved = ::fcntl(file, F_DUPFD_CLOEXEC, FirstFreeDescriptor);
    ::close(file);
    return moved;
}

int OpenInput(const ProcessStart& start) {
    const std::string path = start.input.empty() ? NoFile : FindPath(JoinPath(start.folder, start.input));
    return AboveStandardStreams(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

// The output file is made anew: neither a link nor another name of the same file is written through.
int OpenOutput(const ProcessStart& start) {
    if (start.output.empty()) return AboveStandardStreams(::open(NoFile, O_WRONLY | O_CLOEXEC));
    const std::string path = JoinPath(start.folder, start.output);
    struct stat old {};
    if (::lstat(path.c_str(), &old) == 0 && (S_ISREG(old.st_mode) || S_ISLNK(old.st_mode)))
        ::unlink(path.c_str());
    constexpr int Anew = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    return AboveStandardStreams(::open(path.c_str(), Anew, 0666));
}

// What happens in the child before the tool begins.
class ChildSetup {
  public:
    ChildSetup(const std::string& folder, int input, int output) {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawnattr_init(&attributes_);
        if (!folder.empty()) ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
        ::posix_spawn_file_actions_adddup2(&actions_, input, STDIN_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, FirstFreeDescriptor);
        sigset_t signals;
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes_, &signals);
        for (const int signal : DefaultSignals) ::sigaddset(&signals, signal);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~ChildSetup() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }
    ChildSetup(const ChildSetup&) = delete;
    ChildSetup& operator=(const ChildSetup&) = delete;

    const posix_spawn_file_actions_t* Actions() const { return &actions_; }
    const posix_spawnattr_t* Attributes() const { return &attributes_; }

  private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

int WaitFor(pid_t process) {
    int status = 0;
    pid_t ended = 0;
    do {
        ended = ::waitpid(process, &status, 0);
    } while (ended < 0 && errno == EINTR);
    if (ended < 0) return -1;  // whoever started this program had it ignore its children
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::optional<pid_t> Spawn(const ProcessStart& start, std::vector<std::string> words, bool underWine) {
    const Descriptor input(OpenInput(start));
    if (input.Number() < 0) return std::nullopt;
    const Descriptor output(OpenOutput(start));
    if (output.Number() < 0) return std::nullopt;
    std::vector<std::string> environment = ToolEnvironment(underWine);
    const ChildSetup setup(start.folder, input.Number(), output.Number());
    pid_t process = 0;
    const int refused = ::posix_spawn(&process, words.front().c_str(), setup.Actions(), setup.Attributes(),
                                      PointersTo(words).data(), PointersTo(environment).data());
    return refused == 0 ? std::optional(process) : std::nullopt;
}

// ---- batch files

constexpr std::string_view NameCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-_";

bool IsPlainName(std::string_view name) {
    return name.find_first_not_of(NameCharacters) == std::string_view::npos &&
           name.find_first_not_of('.') != std::string_view::npos;
}

struct Batch {
    std::vector<std::string> deletions;
    ProcessStart tool;  // `program` is its name as the batch has it
};

bool AddDeletion(Batch& batch, std::string_view line) {
    constexpr std::string_view Command = "del ";
    if (!EqualsIgnoringCase(line.substr(0, Command.size()), Command)) return false;
    const std::string_view name = Trim(line.substr(Command.size()));
    if (!IsPlainName(name) || !batch.tool.program.empty()) return false;
    batch.deletions.emplace_back(name);
    return true;
}

bool AddTool(Batch& batch, std::string_view line) {
    std::vector<std::string_view> words = Split(Trim(line), ' ');
    std::erase(words, std::string_view());
    if (!batch.tool.program.empty() || words.size() < 3) return false;
    const std::string_view out = words[words.size() - 1];
    const std::string_view in = words[words.size() - 2];
    if (!in.starts_with('<') || !out.starts_with('>')) return false;
    words.resize(words.size() - 2);
    batch.tool.input = in.substr(1);
    batch.tool.output = out.substr(1);
    if (!IsPlainName(batch.tool.input) || !IsPlainName(batch.tool.output)) return false;
    if (!std::all_of(words.begin(), words.end(), IsPlainName)) return false;
    batch.tool.program = words.front();
    batch.tool.arguments.assign(words.begin() + 1, words.end());
    return true;
}

Batch ReadBatch(std::string_view path) {
    Batch batch;
    TextFileIn file(path);
    for (std::string_view line; file.NextLine(line);)
        if (!AddDeletion(batch, line) && !AddTool(batch, line)) RaiseFault(Fault::InvalidCall);
    if (batch.tool.program.empty()) RaiseFault(Fault::InvalidCall);
    return batch;
}

// Every file of that name but for letter case: a tool may have written a second one.
void DeleteIgnoringCase(const std::string& folder, std::string_view name) {
    std::vector<std::string> doomed;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        const bool isFolder = fs::is_directory(entry->symlink_status(ignored));
        if (!isFolder && EqualsIgnoringCase(entry->path().filename().string(), name))
            doomed.push_back(entry->path().string());
    }
    for (const std::string& path : doomed)
        if (::unlink(path.c_str()) != 0 && errno != ENOENT) RaiseFileFault(errno, path);
}

}  // namespace

ProcessEnd RunProcess(const ProcessStart& start) {
    RequirePlain(start);
    if (!IsRegularFile(start.program)) return {ProcessOutcome::ProgramMissing};
    const bool underWine = IsWindowsExecutable(start.program);
    std::vector<std::string> words = {start.program};
    if (underWine) {
        const std::string wine = FindWine();
        if (wine.empty()) return {ProcessOutcome::WineMissing};
        words.insert(words.begin(), wine);
    }
    words.insert(words.end(), start.arguments.begin(), start.arguments.end());
    const std::optional<pid_t> process = Spawn(start, std::move(words), underWine);
    if (!process) return {ProcessOutcome::NotStarted};
    return {ProcessOutcome::Done, WaitFor(*process)};
}

std::string FindTool(std::string_view folder, std::string_view name) {
    constexpr std::string_view Extension = ".exe";
    RequirePlain(folder);
    RequirePlain(name);
    if (name.empty() || name.find_first_of("/\\") != std::string_view::npos) return {};
    const std::size_t stem = name.size() - std::min(name.size(), Extension.size());
    const bool isExe = stem > 0 && EqualsIgnoringCase(name.substr(stem), Extension);
    const std::string other = isExe ? std::string(name.substr(0, stem)) : std::string(name).append(Extension);
    std::string firstFound;
    for (const std::string_view candidate : {name, std::string_view(other)}) {
        std::string path = FindPath(JoinPath(folder, candidate));
        if (path.empty() || !IsRegularFile(path)) continue;
        if (CanRun(path)) return path;
        if (firstFound.empty()) firstFound = path;
    }
    return firstFound;
}

ProcessEnd RunBatch(std::string_view path) {
    RequirePlain(path);
    Batch batch = ReadBatch(path);
    std::error_code error;
    batch.tool.folder = fs::absolute(FolderOf(FindPath(path)), error).string();
    for (const std::string& name : batch.deletions) DeleteIgnoringCase(batch.tool.folder, name);
    batch.tool.program = FindTool(batch.tool.folder, batch.tool.program);
    if (batch.tool.program.empty()) return {ProcessOutcome::ProgramMissing};
    return RunProcess(batch.tool);
}

}  // namespace tarvek
