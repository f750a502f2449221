#include "platform/modTextFileIn.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

#include "support/testSupport.hpp"

namespace tarvek {
namespace {

using test::TemporaryFolder;
using Lines = std::vector<std::string>;

constexpr std::size_t Window = 256 * 1024;  // what is read at first

Lines ReadLines(const std::string& path) {
    Lines lines;
    TextFileIn file(path);
    for (std::string_view line; file.NextLine(line);) lines.emplace_back(line);
    std::string_view line = "untouched";
    EXPECT_FALSE(file.NextLine(line));  // the end stays the end
    return lines;
}

Lines LinesOf(std::string_view bytes) {
    const TemporaryFolder folder;
    return ReadLines(folder.Put("in.txt", bytes));
}

// The rule told once more, one byte at a time.
Lines SplitSlowly(std::string_view bytes) {
    Lines lines;
    std::string line;
    bool open = false;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const bool isEnd = bytes[i] == '\r' || bytes[i] == '\n';
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
        open = !isEnd;
        if (!isEnd) line += bytes[i];
        if (isEnd) lines.push_back(std::move(line)), line.clear();
    }
    if (open) lines.push_back(line);
    return lines;
}

Fault FaultOfReading(const std::string& path) {
    return test::FaultOf([&] { const TextFileIn file(path); });
}

TEST(TextFileIn, LinesMayEndInThreeWays) {
    EXPECT_EQ(LinesOf("a\r\nb\r\n"), (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a\nb\n"), (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a\rb\r"), (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a\r\nb\nc\rd\r\n"), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(LinesOf("a\n\rb"), (Lines{"a", "", "b"}));
    EXPECT_EQ(LinesOf("a\r\r\nb"), (Lines{"a", "", "b"}));
    EXPECT_EQ(LinesOf("\r\n\r\n"), (Lines{"", ""}));
}

TEST(TextFileIn, LastLineNeedsNoEnd) {
    EXPECT_EQ(LinesOf("a\r\nb"), (Lines{"a", "b"}));
    EXPECT_EQ(LinesOf("a"), (Lines{"a"}));
    EXPECT_EQ(LinesOf("a\r"), (Lines{"a"}));
    EXPECT_EQ(LinesOf(""), Lines{});
}

TEST(TextFileIn, ByteOrderMarkIsPassedOver) {
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF*80*\r\nx"), (Lines{"*80*", "x"}));
    EXPECT_EQ(LinesOf("\xEF\xBB\xBF"), Lines{});
    EXPECT_EQ(LinesOf("\xEF\xBB"
                      "a"),
              (Lines{"\xEF\xBB"
                     "a"}));
    EXPECT_EQ(LinesOf("a\n\xEF\xBB\xBF"
                      "b"),
              (Lines{"a",
                     "\xEF\xBB\xBF"
                     "b"}));
}

TEST(TextFileIn, EveryOtherByteIsKept) {
    std::string all;
    for (int code = 0; code < 256; ++code)
        if (code != '\r' && code != '\n') all += static_cast<char>(code);
    EXPECT_EQ(LinesOf(all + "\r\n" + all), (Lines{all, all}));
    EXPECT_EQ(LinesOf(std::string_view("\0\0\n\0", 4)), (Lines{std::string(2, '\0'), std::string(1, '\0')}));
}

// A carriage return as the last byte in memory can be a whole line end or half of one.
TEST(TextFileIn, LineEndsMayLieAcrossTheWindowsBorder) {
    for (std::size_t length = Window - 3; length <= Window + 2; ++length)
        for (const std::string_view end : {"\r\n", "\n", "\r"})
            for (const std::string_view rest : {"", "next", "\r\n", "\n", "\r"}) {
                const std::string bytes = std::string(length, 'x') + std::string(end) + std::string(rest);
                ASSERT_EQ(LinesOf(bytes), SplitSlowly(bytes)) << length << " " << end.size() << " " << rest;
            }
}

TEST(TextFileIn, RandomBytesAreSplitLikeOneByOne) {
    std::mt19937 random(7);
    const TemporaryFolder folder;
    for (int round = 0; round < 60; ++round) {
        const std::size_t size = random() % (3 * Window);
        const unsigned rarity = 2U << random() % 18;  // from an end every other byte to hardly any
        std::string bytes(size, '\0');
        for (char& byte : bytes)
            byte = random() % rarity < 2 ? "\r\n"[random() % 2] : static_cast<char>(random() % 256);
        if (bytes.starts_with("\xEF\xBB\xBF")) continue;
        ASSERT_TRUE(ReadLines(folder.Put("in.txt", bytes)) == SplitSlowly(bytes)) << round;
    }
}

TEST(TextFileIn, LongLineIsWork) {
    const TemporaryFolder folder;
    const std::string line(64 << 20, 'x');
    TextFileIn file(folder.Put("in.txt", "first\r\n" + line + "\r\nlast"));
    EXPECT_EQ(file.Size(), 7 + line.size() + 6);
    EXPECT_EQ(file.RequireLine(), "first");
    EXPECT_TRUE(file.RequireLine() == line);
    EXPECT_EQ(file.RequireLine(), "last");
}

TEST(TextFileIn, EndOfFileCanBeAFault) {
    const TemporaryFolder folder;
    TextFileIn file(folder.Put("in.txt", "only"));
    EXPECT_EQ(file.RequireLine(), "only");
    EXPECT_EQ(test::FaultMessageOf([&] { file.RequireLine(); }),
              "Run-time error '62': Input past end of file");
}

TEST(TextFileIn, NameIsLookedUpWithoutRegardToCase) {
    const TemporaryFolder folder;
    folder.Put("VertCon.OUT", "found");
    EXPECT_EQ(ReadLines(folder.File("vertcon.out")), (Lines{"found"}));
    EXPECT_EQ(ReadLines(folder.Path() + "\\vertcon.out"), (Lines{"found"}));
}

TEST(TextFileIn, WhatCanNotBeReadIsAFault) {
    const TemporaryFolder folder;
    EXPECT_EQ(FaultOfReading(folder.File("none.txt")), Fault::FileNotFound);
    EXPECT_EQ(FaultOfReading(""), Fault::FileNotFound);
    EXPECT_EQ(FaultOfReading(folder.Path()), Fault::FileAccessError);
}

TEST(TextFileIn, FaultOfAMissingFileNamesItAsGiven) {
    EXPECT_EQ(test::FaultMessageOf([] { const TextFileIn file("/nowhere\\at all.txt"); }),
              "Run-time error '53': File not found: '/nowhere\\at all.txt'");
}

// Small pieces must neither hide the byte order mark nor make a long line slow.
TEST(TextFileIn, PipeMayGiveItsBytesInPieces) {
    const TemporaryFolder folder;
    const std::string path = folder.File("pipe");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const std::string line(8 << 20, 'y');
    std::thread writer([&] {
        const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
        std::size_t written = 0;
        const std::string bytes =
            "\xEF\xBB\xBF"
            "a\r\n" +
            line;
        for (const std::size_t piece : {1, 1, 2, 1, 100}) {
            written += static_cast<std::size_t>(std::max<ssize_t>(0, ::write(file, &bytes[written], piece)));
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        while (written < bytes.size())
            written += static_cast<std::size_t>(::write(file, &bytes[written], bytes.size() - written));
        ::close(file);
    });
    {
        TextFileIn file(path);
        EXPECT_EQ(file.Size(), 0U);
        EXPECT_EQ(file.RequireLine(), "a");
        EXPECT_TRUE(file.RequireLine() == line);
        std::string_view rest;
        EXPECT_FALSE(file.NextLine(rest));
    }
    writer.join();
}

TEST(TextFileIn, OpenFileIsNotHandedToOtherPrograms) {
    const TemporaryFolder folder;
    const int free = ::dup(0);
    ::close(free);
    const TextFileIn file(folder.Put("in.txt", "x"));
    EXPECT_NE(::fcntl(free, F_GETFD) & FD_CLOEXEC, 0);
}

}  // namespace
}  // namespace tarvek
