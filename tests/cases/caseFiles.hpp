#pragma once
// A test case as files: a folder with a command, what it reads, and everything that is expected of it.
//
//     command           the program's name and its arguments, on one line, parted by blanks; "..." holds one
//                       argument with blanks
//     answers           standard input; empty where the file is missing
//     told              expected standard error, exactly; empty where the file is missing
//     told.contains     texts that standard error must hold, one a line, in place of `told`
//     printed           expected standard output, exactly; any output will do where the file is missing
//     printed.contains  texts that standard output must hold, one a line, in place of `printed`
//     exit              expected exit status; 0 where the file is missing
//     expected.NAME     expected bytes of the output file NAME
//     home/             files of the case's own in the program folder, beside those of data/
//     anything else     a file for the program to read, in its working folder
//
// In `told`, `printed` and `expected.NAME`, {version} stands for the version of the program, {home} for its
// program folder.

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "support/testSupport.hpp"

namespace tarvek::test {

// The arguments of a command line, the program's name among them.
inline std::vector<std::string> SplitCommand(const std::string& line) {
    std::vector<std::string> words;
    bool inWord = false;
    bool quoted = false;
    for (const char c : line) {
        if (c == '\n' || c == '\r') break;
        const bool parts = c == ' ' && !quoted;
        if (!parts && !inWord) words.emplace_back();
        inWord = !parts;
        if (c == '"')
            quoted = !quoted;
        else if (inWord)
            words.back() += c;
    }
    return words;
}

// `bytes` for a report: a control character escaped, a new line also kept, a very long text cut.
inline std::string Readable(const std::string& bytes) {
    constexpr std::size_t Longest = 20000;
    constexpr const char* Digits = "0123456789ABCDEF";
    std::string text;
    for (const char c : bytes.substr(0, Longest)) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\r')
            text += "\\r";
        else if (c == '\n')
            text += "\\n\n";
        else if (byte < 0x20 || byte == 0x7F)
            text.append("\\x").append({Digits[byte >> 4], Digits[byte & 15]});
        else
            text += c;
    }
    if (bytes.size() > Longest) text += "... (" + std::to_string(bytes.size()) + " bytes)";
    return text;
}

inline std::string WithReplaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

// The paths of all cases under a folder, sorted: every folder in a folder of it.
inline std::vector<std::string> FindCases(const std::string& folder) {
    std::vector<std::string> cases;
    for (const auto& suite : std::filesystem::directory_iterator(folder)) {
        if (!suite.is_directory()) continue;
        for (const auto& entry : std::filesystem::directory_iterator(suite.path()))
            if (entry.is_directory()) cases.push_back(entry.path().string());
    }
    std::sort(cases.begin(), cases.end());
    return cases;
}

// True for a name in a case's folder that is no input file.
inline bool IsOfTheRunner(const std::string& name) {
    for (const char* own :
         {"command", "answers", "told", "told.contains", "printed", "printed.contains", "exit", "home"})
        if (name == own) return true;
    return name.starts_with("expected.");
}

}  // namespace tarvek::test
