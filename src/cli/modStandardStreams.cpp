#include "cli/modStandardStreams.hpp"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "platform/modFaults.hpp"

namespace tarvek {
namespace {

namespace fs = std::filesystem;

class OpenFile {
  public:
    OpenFile(const std::string& path, const char* mode) : file_(std::fopen(path.c_str(), mode)) {
        if (file_ == nullptr) RaiseFileFault(errno, path);
    }
    ~OpenFile() { std::fclose(file_); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    std::FILE* Stream() const { return file_; }

  private:
    std::FILE* file_;
};

// The names tell whose fault it was.
void CopyStream(std::FILE* from, const std::string& fromName, std::FILE* to, const std::string& toName) {
    std::array<char, 65536> bytes{};
    for (std::size_t count; (count = std::fread(bytes.data(), 1, bytes.size(), from)) > 0;)
        if (std::fwrite(bytes.data(), 1, count, to) != count) RaiseFileFault(errno, toName);
    if (std::ferror(from) != 0) RaiseFileFault(errno, fromName);
    if (std::fflush(to) != 0) RaiseFileFault(errno, toName);
}

// The system's folder for temporary files where the environment names none that is there.
std::string TemporaryFolder() {
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error);
    return error ? std::string("/tmp") : folder.string();
}

}  // namespace

StandardStreams::~StandardStreams() {
    std::error_code ignored;
    if (!folder_.empty()) fs::remove_all(folder_, ignored);
}

std::string StandardStreams::FileInOwnFolder(const std::string& name) {
    if (folder_.empty()) {
        std::string pattern = TemporaryFolder() + "/tarvek-XXXXXX";
        if (::mkdtemp(pattern.data()) == nullptr) RaiseFileFault(errno, pattern);
        folder_ = pattern;
    }
    return folder_ + '/' + name;
}

std::string StandardStreams::Input(const std::string& argument) {
    if (!IsStream(argument)) return argument;
    std::string path = FileInOwnFolder("standard-input");
    const OpenFile copy(path, "wbx");
    CopyStream(stdin, "standard input", copy.Stream(), path);
    return path;
}

std::string StandardStreams::Output(const std::string& argument) {
    if (!IsStream(argument)) return argument;
    return output_ = FileInOwnFolder("standard-output");
}

void StandardStreams::Deliver() const {
    if (output_.empty()) return;
    const OpenFile written(output_, "rb");
    CopyStream(written.Stream(), output_, stdout, "standard output");
}

}  // namespace tarvek
