#pragma once
// What the fuzz targets share: prompts that answer by themselves, bytes as a file, and a check that stops the
// run.

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "platform/modFaults.hpp"
#include "platform/modPrompts.hpp"

namespace tarvek::fuzz {

// Stops the run where something does not hold that must hold for every input.
inline void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

// Tells nobody anything, and answers a question with its first or its last button.
class QuietPrompts : public Prompts {
  public:
    QuietPrompts() : inForce_(*this) {}
    Button Show(const Message& message) override {
        ++told;
        const auto buttons = ButtonsOf(message.buttons);
        return agrees ? buttons.front() : buttons.back();
    }
    std::string Ask(const TextQuestion&) override { return {}; }
    void View(const std::string&, const std::string&) override {}

    bool agrees = true;
    int told = 0;

  private:
    PromptsInForce inForce_;
};

// Bytes under a path, for as long as this lives.
class MemoryFile {
  public:
    explicit MemoryFile(std::string_view bytes) : file_(::memfd_create("fuzz", MFD_CLOEXEC)) {
        Require(file_ >= 0, "a file in memory can be made");
        while (!bytes.empty()) {
            const ssize_t count = ::write(file_, bytes.data(), bytes.size());
            Require(count > 0, "a file in memory can be written");
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }
    ~MemoryFile() { ::close(file_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string Path() const { return "/proc/self/fd/" + std::to_string(file_); }

  private:
    int file_;
};

// A folder for outputs, in memory where there is such a place, gone at the end of the run.
class OutputFolder {
  public:
    OutputFolder() {
        namespace fs = std::filesystem;
        const fs::path base = fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
        std::string pattern = (base / "tarvek-fuzz-XXXXXX").string();
        Require(::mkdtemp(pattern.data()) != nullptr, "a folder for outputs can be made");
        path_ = pattern;
    }
    ~OutputFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;

    std::string File(const std::string& name) const { return path_ + "/" + name; }
    std::string FreshFile(const std::string& name) const {
        std::filesystem::remove(File(name));
        return File(name);
    }

  private:
    std::string path_;
};

inline std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// True if `run` gives true; a fault of the run time counts as false.
template <class Run>
bool Succeeds(const Run& run) {
    try {
        return run();
    } catch (const RuntimeFault&) {
        return false;
    }
}

}  // namespace tarvek::fuzz
