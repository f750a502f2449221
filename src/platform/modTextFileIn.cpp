#include "platform/modTextFileIn.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <cerrno>
#include <cstring>

#include "platform/modFaults.hpp"
#include "platform/modPaths.hpp"

namespace tarvek {
namespace {

constexpr std::size_t FirstWindow = 256 * 1024;
constexpr std::size_t Padding = 16;  // what the scan for a line's end may read past the sentinel
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

// The first CR or LF at or behind `at`. There is one: the sentinel behind the window.
char* FindLineEnd(char* at) {
#ifdef __SSE2__
    const __m128i lineFeeds = _mm_set1_epi8('\n');
    const __m128i returns = _mm_set1_epi8('\r');
    for (;; at += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        const int found =
            _mm_movemask_epi8(_mm_or_si128(_mm_cmpeq_epi8(bytes, lineFeeds), _mm_cmpeq_epi8(bytes, returns)));
        if (found != 0) return at + __builtin_ctz(static_cast<unsigned>(found));
    }
#else
    while (*at != '\n' && *at != '\r') ++at;
    return at;
#endif
}

}  // namespace

TextFileIn::TextFileIn(std::string_view given) : path_(FindPath(given)) {
    if (path_.empty()) RaiseFileFault(ENOENT, given);
    file_ = ::open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    if (file_ < 0) RaiseFileFault(errno, path_);
    struct stat status {};
    if (::fstat(file_, &status) == 0 && S_ISREG(status.st_mode))
        size_ = static_cast<std::uint64_t>(status.st_size);
    window_.resize(FirstWindow + Padding);
    at_ = end_ = window_.data();
    *end_ = '\n';
    progress_.Begin("Reading " + FileName(path_), size_);
    try {
        Refill();
    } catch (...) {
        ::close(file_);
        throw;
    }
    if (std::string_view(at_, static_cast<std::size_t>(end_ - at_)).starts_with(ByteOrderMark))
        at_ += ByteOrderMark.size();
}

TextFileIn::~TextFileIn() { ::close(file_); }

bool TextFileIn::NextLine(std::string_view& line) {
    for (;;) {
        char* const stop = FindLineEnd(at_);
        const bool isWhole = stop < end_ && (*stop == '\n' || stop + 1 < end_ || atEnd_);
        if (isWhole || (atEnd_ && at_ < end_)) {
            line = {at_, static_cast<std::size_t>(stop - at_)};
            const bool isPair = stop + 1 < end_ && stop[0] == '\r' && stop[1] == '\n';
            at_ = stop == end_ ? end_ : stop + (isPair ? 2 : 1);
            return true;
        }
        if (atEnd_) return false;
        Refill();
    }
}

std::string_view TextFileIn::RequireLine() {
    std::string_view line;
    if (!NextLine(line)) RaiseFault(Fault::EndOfFilePassed);
    return line;
}

// Moves what is left of the window to its beginning, doubles a window that is full of one line, and reads on
// behind it.
void TextFileIn::Refill() {
    const auto kept = static_cast<std::size_t>(end_ - at_);
    if (kept > 0) std::memmove(window_.data(), at_, kept);
    if (kept + Padding == window_.size()) window_.resize(2 * kept + Padding);
    at_ = window_.data();
    end_ = at_ + kept;
    *end_ = '\n';
    char* const full = window_.data() + window_.size() - Padding;
    while (end_ < full && !atEnd_) {  // a pipe gives less than it is asked for
        const ssize_t count = ::read(file_, end_, static_cast<std::size_t>(full - end_));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) RaiseFileFault(errno, path_);
        atEnd_ = count == 0;
        bytesRead_ += static_cast<std::uint64_t>(count);
        end_ += count;
        *end_ = '\n';
    }
    progress_.At(bytesRead_);
}

}  // namespace tarvek
