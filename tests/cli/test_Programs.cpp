// Both programs as processes: started without streams, with a full disk behind one, with arguments that mean
// harm, and over their own input.

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "support/programRun.hpp"
#include "support/testSupport.hpp"

namespace tarvek::test {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view ProgramLine = "VR:Tarvek Translator " TARVEK_VERSION;
constexpr std::string_view DateLine = "DT:02/02/2026";

const Texts Translation = {"tarvek-translator", "-t|CTL-to-CTL|in.ctl|out.ctl"};

std::string Input() { return Lines({"AC:PR", "UL:M", "AC:OS", "PN:A", "YC:1", "XC:2", "ZC:3"}); }

std::string Converted() {
    return Lines(
        {"AC:PR", "UL:M", ProgramLine, DateLine, "AC:OS", "PN:A", "YC:1.0000", "XC:2.0000", "ZC:3.0000"});
}

// A control file of so many points that it is written in several pieces.
constexpr int ManyPoints = 20000;

std::string ManyPointsInput() {
    std::string text = Lines({"AC:PR", "UL:M"});
    for (int i = 0; i < ManyPoints; ++i)
        text += Lines({"AC:OS", "PN:" + std::to_string(i), "YC:1", "XC:2", "ZC:3"});
    return text;
}

std::string ManyPointsConverted() {
    std::string text = Lines({"AC:PR", "UL:M", ProgramLine, DateLine});
    for (int i = 0; i < ManyPoints; ++i)
        text += Lines({"AC:OS", "PN:" + std::to_string(i), "YC:1.0000", "XC:2.0000", "ZC:3.0000"});
    return text;
}

class Programs : public ::testing::Test {
  protected:
    FilesByName Files() const { return FilesUnder(run_.WorkFolder()); }

    // Nothing that was told or printed has gone into a lock or a temporary file.
    void ExpectOnlyEmptyFilesInTheRuntimeFolder() const {
        for (const auto& [name, bytes] : FilesUnder(run_.RuntimeFolder())) EXPECT_EQ(bytes, "") << name;
    }

    ProgramRun run_;
};

// ---- Closed streams

// One bit for each of standard input, output and error that is closed.
class ClosedStreams : public Programs, public ::testing::WithParamInterface<int> {
  protected:
    static bool IsClosed(int stream) { return (GetParam() >> stream & 1) != 0; }

    static Streams OpenStreams() {
        Streams streams;
        if (IsClosed(0)) streams.input.clear();
        if (IsClosed(1)) streams.printed.clear();
        if (IsClosed(2)) streams.told.clear();
        return streams;
    }
};

INSTANTIATE_TEST_SUITE_P(Streams, ClosedStreams, ::testing::Range(1, 8));

TEST_P(ClosedStreams, DoNotReachTheOutputOfAConversion) {
    run_.Put("in.ctl", Input());
    EXPECT_EQ(run_.Run({"tarvek", "convert", "in.ctl", "out.ctl"}, OpenStreams()).status, 0);
    EXPECT_EQ(Files(), (FilesByName{{"in.ctl", Input()}, {"out.ctl", Converted()}}));
}

TEST_P(ClosedStreams, DoNotReachTheOutputOfATranslation) {
    run_.Put("in.ctl", Input());
    EXPECT_EQ(run_.Run(Translation, OpenStreams()).status, 0);
    EXPECT_EQ(Files(), (FilesByName{{"in.ctl", Input()}, {"out.ctl", Converted()}}));
    ExpectOnlyEmptyFilesInTheRuntimeFolder();
}

TEST_P(ClosedStreams, TakeAMessageToNoFile) {
    const std::string refused = Lines({"AC:PR", "", "AC:OS"});
    run_.Put("in.ctl", refused);
    for (const Texts& command : {Texts{"tarvek", "convert", "in.ctl", "out.ctl"}, Translation}) {
        EXPECT_EQ(run_.Run(command, OpenStreams()).status, 1);
        EXPECT_EQ(Files(), (FilesByName{{"in.ctl", refused}}));
        ExpectOnlyEmptyFilesInTheRuntimeFolder();
    }
}

TEST_P(ClosedStreams, AreNoAnswerToAQuestion) {
    const FilesByName files = {{"in.ctl", Input()}, {"out.ctl", "old"}};
    for (const auto& [name, bytes] : files) run_.Put(name, bytes);
    run_.Run({"tarvek", "convert", "in.ctl", "out.ctl"}, OpenStreams());
    EXPECT_EQ(Files(), files);
    run_.Run(Translation, OpenStreams());
    EXPECT_EQ(Files(), files);
    ExpectOnlyEmptyFilesInTheRuntimeFolder();
}

TEST_P(ClosedStreams, LeaveNothingToReadAsInput) {
    EXPECT_EQ(run_.Run({"tarvek", "convert", "-", "out.ctl", "--from", "ctl"}, OpenStreams()).status, 0);
    // As of a file without a byte: one point without a value.
    const std::string empty = Lines({"AC:PR", ProgramLine, DateLine, "AC:OS", "PN:", "YC:-99999.0000",
                                     "XC:-99999.0000", "ZC:-99999.0000"});
    EXPECT_EQ(Files(), (FilesByName{{"out.ctl", empty}}));
}

// Reads a pipe as it gets filled, but nothing at first, so that its writer has to wait.
class LateReader {
  public:
    LateReader(const std::string& path, std::chrono::milliseconds delay)
        : pipe_(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC)), thread_([this, delay] {
              std::this_thread::sleep_for(delay);
              Read();
          }) {}
    ~LateReader() {
        if (thread_.joinable()) BytesWhenWritten();
        ::close(pipe_);
    }
    LateReader(const LateReader&) = delete;
    LateReader& operator=(const LateReader&) = delete;

    // All that came through the pipe; its writer has ended.
    const std::string& BytesWhenWritten() {
        written_ = true;
        thread_.join();
        return bytes_;
    }

  private:
    void Read() {
        for (std::string piece(65536, '\0');;) {
            const bool isLast = written_;
            const ssize_t count = ::read(pipe_, piece.data(), piece.size());
            if (count > 0)
                bytes_.append(piece, 0, static_cast<std::size_t>(count));
            else if (isLast)
                return;
            else
                std::this_thread::sleep_for(1ms);
        }
    }

    int pipe_;
    std::atomic<bool> written_ = false;
    std::string bytes_;
    std::thread thread_;
};

// The bar is drawn from half a second on, in the middle of the output.
TEST_P(ClosedStreams, LeaveTheBarOfProgressOutOfTheOutput) {
    run_.Put("in.ctl", ManyPointsInput());
    const std::string pipe = run_.WorkFolder() + "/out.ctl";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    LateReader reader(pipe, 700ms);
    const int status =
        run_.Run({"tarvek", "convert", "in.ctl", "out.ctl", "--force", "--progress"}, OpenStreams()).status;
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(reader.BytesWhenWritten() == ManyPointsConverted());
}

// ---- A full disk behind standard output

TEST_F(Programs, FullStandardOutputIsTold) {
    std::filesystem::create_directories(run_.HomeFolder() + "/KTIFiles");
    std::ofstream(run_.HomeFolder() + "/KTIFiles/short.kti") << "a definition of one line";  // for check
    run_.Put("in.ctl", Input());
    for (const Texts& command :
         {Texts{"tarvek", "zones"}, Texts{"tarvek", "zones", "SPC83"}, Texts{"tarvek", "datums"},
          Texts{"tarvek", "ellipsoids"}, Texts{"tarvek", "check"}, Texts{"tarvek", "--help"},
          Texts{"tarvek", "convert", "--help"}, Texts{"tarvek", "--version"},
          Texts{"tarvek", "convert", "in.ctl", "-", "--to", "ctl"}}) {
        SCOPED_TRACE(command.back());
        const Outcome outcome = run_.Run(command, {.printed = "/dev/full"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.told, "Tarvek Translator: Run-time error '61': Disk full: 'standard output'\n");
    }
}

TEST_F(Programs, FullStandardOutputOfAReportIsToldAndTheFileStands) {
    run_.Put("in.ctl", Input());
    const Outcome outcome =
        run_.Run({"tarvek", "convert", "in.ctl", "out.ctl", "--report", "-"}, {.printed = "/dev/full"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.told, "Tarvek Translator: Run-time error '61': Disk full: 'standard output'\n");
    EXPECT_EQ(Files(), (FilesByName{{"in.ctl", Input()}, {"out.ctl", Converted()}}));
}

// ---- Control characters in arguments

bool IsControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 0x20 && c != '\n') || byte == 0x7F;
}

TEST_F(Programs, ControlCharactersOfWrongArgumentsAreShownAsMarks) {
    const std::string harm =
        "\x1B[31mred\a\b\x7F\xC2\x9B"
        "31m\x1B]0;title\a";
    const std::string marks =
        "^[[31mred^G^H^?\xEF\xBF\xBD"
        "31m^[]0;title^G";
    run_.Put("in.ctl", Input());
    for (const Texts& command :
         {Texts{"tarvek", harm}, Texts{"tarvek", "convert", "in.ctl", harm},
          Texts{"tarvek", "convert", harm, "out.ctl"}, Texts{"tarvek", "convert", "in.ctl", "out.ctl", harm},
          Texts{"tarvek", "convert", "in.ctl", "out.ctl", "--" + harm},
          Texts{"tarvek", "convert", "in.ctl", "out.ctl", "--from", harm},
          Texts{"tarvek", "convert", "in.ctl", "out.ctl", "--to", harm},
          Texts{"tarvek", "convert", "in.ctl", "out.ctl", "--answer", harm},
          Texts{"tarvek", "convert", "in.ctl", "out.ctl", "--force=" + harm},
          Texts{"tarvek", "zones", "SPC83", harm}}) {
        const Outcome outcome = run_.Run(command);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.printed, "");
        EXPECT_NE(outcome.told.find(marks), std::string::npos) << outcome.told;
        EXPECT_EQ(std::count_if(outcome.told.begin(), outcome.told.end(), IsControl), 0) << outcome.told;
        EXPECT_EQ(Files(), (FilesByName{{"in.ctl", Input()}}));
    }
}

TEST_F(Programs, LineEndsOfWrongArgumentsAreShownAsMarks) {
    const std::string harm = "x\nTarvek Translator: done\ry";
    const std::string marks = "x^JTarvek Translator: done^My";
    for (const Texts& command : {Texts{"tarvek", harm}, Texts{"tarvek", "convert", "in.ctl", harm},
                                 Texts{"tarvek", "convert", "in.ctl", "out.ctl", harm},
                                 Texts{"tarvek", "convert", "in.ctl", "out.ctl", "--answer", harm},
                                 Texts{"tarvek", "zones", "SPC83", harm}}) {
        const Outcome outcome = run_.Run(command);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_NE(outcome.told.find(marks), std::string::npos) << outcome.told;
        EXPECT_EQ(std::count(outcome.told.begin(), outcome.told.end(), '\n'), 2) << outcome.told;
    }
}

// ---- Temporary files

TEST_F(Programs, MissingFolderForTemporaryFilesGivesWayToTheSystems) {
    const Outcome outcome = run_.Run({"tarvek", "convert", "-", "out.ctl", "--from", "ctl"}, {},
                                     {"TMPDIR=" + run_.WorkFolder() + "/none"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.told, "");
    EXPECT_EQ(Files().size(), 1U);
}

TEST_F(Programs, FolderThatTakesNoTemporaryFileIsTold) {
    const Outcome outcome =
        run_.Run({"tarvek", "convert", "-", "out.ctl", "--from", "ctl"}, {}, {"TMPDIR=/proc"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.told.starts_with("Tarvek Translator: Run-time error '")) << outcome.told;
    EXPECT_NE(outcome.told.find(": '/proc/"), std::string::npos) << outcome.told;
    EXPECT_EQ(Files(), (FilesByName{}));
}

// ---- Output over the input

// The last point makes feet the unit of the file, and the one before it, in meters, is too far off for them.
// The fault comes when the new file has been written for the most part.
class FaultOverTheInput : public Programs {
  protected:
    FaultOverTheInput()
        : input_(ManyPointsInput() + Lines({"AC:OS", "PN:FAR", "YC:1e308", "AC:OS", "PN:LAST", "UL:F"})) {
        run_.Put("in.ctl", input_);
    }

    void ExpectOverflow(const Texts& command, const std::string& answers = "/dev/null") {
        const Outcome outcome = run_.Run(command, {.input = answers});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_TRUE(outcome.told.ends_with("Tarvek Translator: Run-time error '6': Overflow\n"))
            << outcome.told;
        EXPECT_TRUE(Files() == (FilesByName{{"in.ctl", input_}}));
    }

    std::string input_;
};

TEST_F(FaultOverTheInput, LeavesItAsItWas) {
    ExpectOverflow({"tarvek", "convert", "in.ctl", "in.ctl", "--force"});
    ExpectOverflow({"tarvek", "convert", "in.ctl", "./in.ctl", "--yes"});
}

TEST_F(FaultOverTheInput, LeavesItAsItWasInATranslation) {
    const TemporaryFolder folder;
    ExpectOverflow({"tarvek-translator", "-t|CTL-to-CTL|in.ctl|in.ctl"}, folder.Put("answers", "Yes\n"));
}

}  // namespace
}  // namespace tarvek::test
