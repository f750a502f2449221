#include "platform/modProgress.hpp"

#include <algorithm>

#include "platform/modCodePage.hpp"

namespace tarvek {
namespace {

constexpr auto QuietTime = std::chrono::milliseconds(500);
constexpr auto DrawingInterval = std::chrono::milliseconds(100);
constexpr std::size_t BarWidth = 30;

Progress* InForce = nullptr;
// The piece of work that is told; what it opens and reads meanwhile is a part of it and stays silent.
const ProgressTask* Told = nullptr;

}  // namespace

void SetProgress(Progress* progress) { InForce = progress; }

void PauseProgress() {
    if (InForce && Told != nullptr) InForce->End();
}

ProgressTask::~ProgressTask() {
    if (Told != this) return;
    Told = nullptr;
    if (InForce) InForce->End();
}

void ProgressTask::Begin(const std::string& task, std::uint64_t total) {
    total_ = total;
    if (Told != nullptr) return;
    Told = this;
    if (InForce) InForce->Begin(task);
}

void ProgressTask::At(std::uint64_t done) {
    if (InForce && Told == this) InForce->At(done, total_);
}

void ConsoleProgress::Begin(const std::string& task) {
    task_ = TerminalText(task);
    nextDrawing_ = Time::now() + QuietTime;
    drawn_ = false;
}

void ConsoleProgress::At(std::uint64_t done, std::uint64_t total) {
    const auto now = Time::now();
    if (now < nextDrawing_ || total == 0) return;
    nextDrawing_ = now + DrawingInterval;
    drawn_ = true;
    const double part = std::min(1.0, static_cast<double>(done) / static_cast<double>(total));
    const auto filled = static_cast<std::size_t>(part * BarWidth);
    const std::string bar = std::string(filled, '#') + std::string(BarWidth - filled, '.');
    std::fprintf(terminal_, "\r%s [%s] %3d %%", task_.c_str(), bar.c_str(), static_cast<int>(part * 100));
    std::fflush(terminal_);
}

void ConsoleProgress::End() {
    if (!drawn_) return;
    drawn_ = false;
    std::fputs("\r\033[K", terminal_);
    std::fflush(terminal_);
}

}  // namespace tarvek
