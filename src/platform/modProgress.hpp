#pragma once
// How far a long piece of work has come. Text files tell it as they are read, loops over points as they go;
// nobody is asked per line or point, and nothing is shown unless a front end has installed a Progress.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>

namespace tarvek {

class Progress {
  public:
    virtual ~Progress() = default;
    virtual void Begin(const std::string& task) = 0;
    // `done` of `total` units; `total` is 0 where it is not known.
    virtual void At(std::uint64_t done, std::uint64_t total) = 0;
    virtual void End() = 0;
};

// Puts `progress` in force; nullptr shows nothing.
void SetProgress(Progress* progress);

// Takes what is shown away until the next step, before something else is told.
void PauseProgress();

// One piece of work, from Begin to the end of its life. One that begins within another is not told.
class ProgressTask {
  public:
    ProgressTask() = default;
    ~ProgressTask();
    ProgressTask(const ProgressTask&) = delete;
    ProgressTask& operator=(const ProgressTask&) = delete;

    void Begin(const std::string& task, std::uint64_t total);
    void At(std::uint64_t done);

  private:
    std::uint64_t total_ = 0;
};

// A bar on a terminal, drawn only for work that lasts longer than half a second and cleared at its end.
class ConsoleProgress : public Progress {
  public:
    explicit ConsoleProgress(std::FILE* terminal) : terminal_(terminal) {}
    void Begin(const std::string& task) override;
    void At(std::uint64_t done, std::uint64_t total) override;
    void End() override;

  private:
    using Time = std::chrono::steady_clock;

    std::FILE* terminal_;
    std::string task_;
    Time::time_point nextDrawing_;
    bool drawn_ = false;
};

}  // namespace tarvek
