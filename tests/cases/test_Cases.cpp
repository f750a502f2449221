// Runs every test case that stands as a folder beside this file; caseFiles.hpp tells what is in one. A new
// case needs no code: its folder is found at run time.

#include <gtest/gtest.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>

#include "cases/caseFiles.hpp"
#include "cases/caseRun.hpp"

namespace tarvek::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* CasesFolder = TARVEK_SOURCE "/tests/cases";

std::string CaseName(const ::testing::TestParamInfo<std::string>& info) {
    const fs::path path(info.param);
    std::string name = path.parent_path().filename().string() + "_" + path.filename().string();
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
}

class Cases : public ::testing::TestWithParam<std::string> {
  protected:
    bool Has(const std::string& name) const { return fs::exists(File(name)); }
    std::string File(const std::string& name) const { return GetParam() + "/" + name; }
    std::string Read(const std::string& name) const { return Has(name) ? ReadBytes(File(name)) : ""; }

    // What a file of the case expects, in the words of this run.
    std::string Expected(const std::string& name, const CaseRun& run) const {
        return WithReplaced(WithReplaced(Read(name), "{version}", TARVEK_VERSION), "{home}",
                            run.HomeFolder());
    }

    void ExpectText(const std::string& name, const std::string& actual, const CaseRun& run) const {
        const std::string expected = Expected(name, run);
        EXPECT_TRUE(actual == expected) << name << " expected:\n"
                                        << Readable(expected) << "\nbut was:\n"
                                        << Readable(actual);
    }

    void ExpectEveryLineIn(const std::string& name, const std::string& actual, const CaseRun& run) const {
        const std::string lines = Expected(name, run);
        EXPECT_FALSE(lines.empty()) << name << " is empty and would fit everything";
        for (std::size_t start = 0; start < lines.size();) {
            const std::size_t end = std::min(lines.find('\n', start), lines.size());
            const std::string line = lines.substr(start, end - start);
            EXPECT_NE(actual.find(line), std::string::npos) << name << " misses: " << line << "\nin:\n"
                                                            << Readable(actual);
            start = end + 1;
        }
    }

    // A stream of the run against the file that bears its name, or the one that holds parts of it.
    void ExpectStream(const std::string& name, const std::string& actual, const CaseRun& run) const {
        if (Has(name + ".contains"))
            ExpectEveryLineIn(name + ".contains", actual, run);
        else if (Has(name) || name == "told")
            ExpectText(name, actual, run);
    }

    void ExpectOutputFiles(const CaseRun& run) const {
        FilesByName files = FilesUnder(run.WorkFolder());
        for (const auto& entry : fs::directory_iterator(GetParam())) {
            const std::string name = entry.path().filename().string();
            if (!name.starts_with("expected.")) continue;
            const std::string output = name.substr(std::string("expected.").size());
            EXPECT_EQ(files.count(output), 1U) << "no output file " << output;
            if (files.count(output) == 1) ExpectText(name, files[output], run);
            files.erase(output);
        }
        ExpectOnlyInputs(files);
    }

    // What is left of the working folder must be the inputs, as they were.
    void ExpectOnlyInputs(const FilesByName& files) const {
        for (const auto& [name, bytes] : files) {
            const bool isInput = Has(name) && !IsOfTheRunner(name);
            EXPECT_TRUE(isInput) << "not expected: " << name << "\n" << Readable(bytes);
            EXPECT_TRUE(!isInput || bytes == Read(name)) << "changed: " << name << "\n" << Readable(bytes);
        }
        for (const auto& [name, bytes] : FilesUnder(GetParam())) {
            const std::string first = name.substr(0, name.find('/'));
            if (IsOfTheRunner(first) || Has("expected." + name)) continue;
            EXPECT_EQ(files.count(name), 1U) << "gone: " << name;
        }
    }
};

TEST_P(Cases, Runs) {
    ASSERT_TRUE(Has("command")) << "no file " << File("command");
    const CaseRun run(GetParam());
    const FilesByName home = FilesUnder(run.HomeFolder());
    const Outcome outcome = run.Run();
    EXPECT_EQ(outcome.status, Has("exit") ? std::atoi(Read("exit").c_str()) : 0);
    ExpectStream("told", outcome.told, run);
    ExpectStream("printed", outcome.printed, run);
    ExpectOutputFiles(run);
    EXPECT_TRUE(FilesUnder(run.HomeFolder()) == home) << "the program folder has changed";
}

INSTANTIATE_TEST_SUITE_P(Files, Cases, ::testing::ValuesIn(FindCases(CasesFolder)), CaseName);

// The runner itself

TEST(CaseCommand, IsSplitAtBlanksAndHeldTogetherByQuotes) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(SplitCommand("tarvek  convert a\n"), (Words{"tarvek", "convert", "a"}));
    EXPECT_EQ(SplitCommand("a \"b c\" d\"e f\"g"), (Words{"a", "b c", "de fg"}));
    EXPECT_EQ(SplitCommand("a \"\" b"), (Words{"a", "", "b"}));
    EXPECT_EQ(SplitCommand("a\r\nb"), (Words{"a"}));
    EXPECT_EQ(SplitCommand(" "), (Words{}));
}

TEST(CaseReport, ShowsControlCharacters) {
    EXPECT_EQ(Readable("a\r\nb\x1B\x7F"), "a\\r\\n\nb\\x1B\\x7F");
    EXPECT_EQ(Readable(std::string(1, '\0')), "\\x00");
}

TEST(CaseFolders, AreFound) { EXPECT_GE(FindCases(CasesFolder).size(), 40U); }

}  // namespace
}  // namespace tarvek::test
