#include "platform/modProgress.hpp"

#include <thread>

#include "platform/modTextFileIn.hpp"
#include "support/testSupport.hpp"

namespace tarvek {
namespace {

// Keeps what is told, and is in force for as long as it lives.
class Recorder : public Progress {
  public:
    Recorder() { SetProgress(this); }
    ~Recorder() override { SetProgress(nullptr); }
    void Begin(const std::string& task) override { told += "begin " + task + "\n"; }
    void At(std::uint64_t done, std::uint64_t total) override {
        told += std::to_string(done) + " of " + std::to_string(total) + "\n";
    }
    void End() override { told += "end\n"; }

    std::string told;
};

TEST(Progress, TaskTellsItsCourse) {
    const Recorder recorder;
    {
        ProgressTask task;
        task.Begin("Converting", 10);
        task.At(4);
        task.At(10);
    }
    EXPECT_EQ(recorder.told, "begin Converting\n4 of 10\n10 of 10\nend\n");
}

TEST(Progress, TaskThatNeverBeganTellsNothing) {
    const Recorder recorder;
    { const ProgressTask task; }
    EXPECT_EQ(recorder.told, "");
}

TEST(Progress, NobodyNeedsToListen) {
    SetProgress(nullptr);
    ProgressTask task;
    task.Begin("Alone", 1);
    task.At(1);
}

// A loop over points that opens a library file for each of them is one piece of work.
TEST(Progress, TaskWithinATaskStaysSilent) {
    const test::TemporaryFolder folder;
    const std::string path = folder.Put("zones.ini", "a\r\nb\r\n");
    const Recorder recorder;
    {
        ProgressTask outer;
        outer.Begin("Converting", 2);
        for (int i = 1; i <= 2; ++i) {
            { const TextFileIn file(path); }
            outer.At(static_cast<std::uint64_t>(i));
        }
    }
    EXPECT_EQ(recorder.told, "begin Converting\n1 of 2\n2 of 2\nend\n");
}

TEST(Progress, ReadingAFileTellsItsBytes) {
    const test::TemporaryFolder folder;
    const std::string path = folder.Put("points.ctl", std::string(1000, 'x'));
    const Recorder recorder;
    { const TextFileIn file(path); }
    EXPECT_EQ(recorder.told, "begin Reading points.ctl\n1000 of 1000\nend\n");
}

TEST(Progress, ShortWorkDrawsNoBar) {
    std::FILE* terminal = std::tmpfile();
    ConsoleProgress progress(terminal);
    progress.Begin("Reading");
    progress.At(1, 2);
    progress.At(2, 2);
    progress.End();
    EXPECT_EQ(test::ContentOf(terminal), "");
    std::fclose(terminal);
}

TEST(Progress, LongWorkDrawsABarAndClearsIt) {
    std::FILE* terminal = std::tmpfile();
    ConsoleProgress progress(terminal);
    progress.Begin("Reading a\x1B");
    std::this_thread::sleep_for(std::chrono::milliseconds(520));
    progress.At(5, 0);  // nothing to draw where the whole is not known
    progress.At(1, 4);
    progress.At(2, 4);  // too soon after the last drawing
    std::this_thread::sleep_for(std::chrono::milliseconds(120));
    progress.At(9, 4);
    progress.End();
    EXPECT_EQ(test::ContentOf(terminal),
              "\rReading a^[ [#######.......................]  25 %"
              "\rReading a^[ [##############################] 100 %"
              "\r\033[K");
    std::fclose(terminal);
}

}  // namespace
}  // namespace tarvek
