#pragma once
// What the tests of every folder share: scripted prompts, a folder of a test's own, files in and out, faults.

#include <gtest/gtest.h>

#include <cstdio>
#include <deque>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/modFaults.hpp"
#include "platform/modPrompts.hpp"

namespace tarvek::test {

// Answers questions from a queue and keeps everything that was told, for the test to compare word for word. A
// question with no answer left fails the test and gets its last button.
class ScriptedPrompts : public Prompts {
  public:
    ScriptedPrompts() : inForce_(*this) {}
    Button Show(const Message& message) override;
    std::string Ask(const TextQuestion& question) override;
    void View(const std::string& path, const std::string& label) override;

    std::vector<Message> told;        // every message and question, in order
    std::vector<TextQuestion> asked;  // every text question, in order
    std::vector<std::string> viewed;  // path, "|" and label of every viewer
    std::deque<Button> answers;       // for messages with more than one button
    std::deque<std::string> typed;    // for text questions

  private:
    PromptsInForce inForce_;
};

// Fails unless `prompts` was told exactly this one message, with an exclamation sign and an OK button alone.
void ExpectToldOnly(const ScriptedPrompts& prompts, std::string_view text, std::string_view caption);
void ExpectNothingTold(const ScriptedPrompts& prompts);

// An empty folder that is removed with all its content at the end of its life.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& Path() const { return path_; }
    std::string File(std::string_view name) const { return path_ + "/" + std::string(name); }
    // Writes a file of these bytes and gives its path.
    std::string Put(std::string_view name, std::string_view bytes) const;
    // The names in it, sorted.
    std::vector<std::string> Names() const;

  private:
    std::string path_;
};

std::string ReadBytes(const std::string& path);
// Every file under a folder with its bytes, by its path from there.
using FilesByName = std::map<std::string, std::string>;
FilesByName FilesUnder(const std::string& folder);
// All that a stream holds, from its beginning.
std::string ContentOf(std::FILE* stream);
// The lines of a file, each ended by CR LF.
std::string Lines(std::initializer_list<std::string_view> lines);
std::string Repeated(char c, std::size_t count);

// What `run` raises: the number of the fault, 0 for none; its kind, where none fails the test; its message,
// empty for none.
int FaultNumberOf(const std::function<void()>& run);
Fault FaultOf(const std::function<void()>& run);
std::string FaultMessageOf(const std::function<void()>& run);

// The folder of real survey data beside the project, or empty where there is none.
std::string RealDataFolder();

}  // namespace tarvek::test
