#include "platform/modStandardOutput.hpp"

#include <cerrno>
#include <cstdio>

#include "platform/modFaults.hpp"

namespace tarvek {

void PrintToStandardOutput(std::string_view text) {
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!isWritten || std::fflush(stdout) != 0) RaiseFileFault(errno, "standard output");
}

}  // namespace tarvek
