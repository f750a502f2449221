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

constexpr const char* StandardStream = "-";

void CopyStream(std::FILE* from, std::FILE* to, const std::string& path) {
    std::array<char, 65536> bytes{};
    for (std::size_t count; (count = std::fread(bytes.data(), 1, bytes.size(), from)) > 0;)
        if (std::fwrite(bytes.data(), 1, count, to) != count) RaiseFileFault(errno, path);
    if (std::ferror(from) != 0 || std::fflush(to) != 0) RaiseFileFault(errno, path);
}

}  // namespace

StandardStreams::~StandardStreams() {
    std::error_code ignored;
    if (!folder_.empty()) fs::remove_all(folder_, ignored);
}

std::string StandardStreams::FileInOwnFolder(const std::string& name) {
    if (folder_.empty()) {
        std::string pattern = (fs::temp_directory_path() / "tarvek-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) RaiseFileFault(errno, pattern);
        folder_ = pattern;
    }
    return folder_ + '/' + name;
}

std::string StandardStreams::Input(const std::string& argument) {
    if (argument != StandardStream) return argument;
    const std::string path = FileInOwnFolder("standard-input");
    std::FILE* copy = std::fopen(path.c_str(), "wbx");
    if (copy == nullptr) RaiseFileFault(errno, path);
    try {
        CopyStream(stdin, copy, path);
    } catch (...) {
        std::fclose(copy);
        throw;
    }
    if (std::fclose(copy) != 0) RaiseFileFault(errno, path);
    return path;
}

std::string StandardStreams::Output(const std::string& argument) {
    if (argument != StandardStream) return argument;
    return output_ = FileInOwnFolder("standard-output");
}

void StandardStreams::Deliver() const {
    if (output_.empty()) return;
    std::FILE* written = std::fopen(output_.c_str(), "rb");
    if (written == nullptr) RaiseFileFault(errno, output_);
    try {
        CopyStream(written, stdout, "standard output");
    } catch (...) {
        std::fclose(written);
        throw;
    }
    std::fclose(written);
}

}  // namespace tarvek
