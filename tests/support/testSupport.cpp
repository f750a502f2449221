#include "support/testSupport.hpp"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace tarvek::test {
namespace fs = std::filesystem;

namespace {

std::optional<RuntimeFault> RaisedBy(const std::function<void()>& run) {
    try {
        run();
    } catch (const RuntimeFault& fault) {
        return fault;
    }
    return std::nullopt;
}

}  // namespace

Button ScriptedPrompts::Show(const Message& message) {
    told.push_back(message);
    const std::vector<Button> buttons = ButtonsOf(message.buttons);
    if (buttons.size() == 1) return buttons.front();
    if (answers.empty()) {
        ADD_FAILURE() << "no answer for: " << message.text;
        return buttons.back();
    }
    const Button answer = answers.front();
    answers.pop_front();
    EXPECT_NE(std::find(buttons.begin(), buttons.end(), answer), buttons.end()) << message.text;
    return answer;
}

std::string ScriptedPrompts::Ask(const TextQuestion& question) {
    asked.push_back(question);
    if (typed.empty()) {
        ADD_FAILURE() << "nothing typed for: " << question.prompt;
        return {};
    }
    const std::string answer = typed.front();
    typed.pop_front();
    return answer;
}

void ScriptedPrompts::View(const std::string& path, const std::string& label) {
    viewed.push_back(path + "|" + label);
}

void ExpectToldOnly(const ScriptedPrompts& prompts, std::string_view text, std::string_view caption) {
    ASSERT_EQ(prompts.told.size(), 1U);
    EXPECT_EQ(prompts.told[0].text, text);
    EXPECT_EQ(prompts.told[0].caption, caption);
    EXPECT_EQ(prompts.told[0].icon, Icon::Exclamation);
    EXPECT_EQ(prompts.told[0].buttons, Buttons::OK);
}

void ExpectNothingTold(const ScriptedPrompts& prompts) {
    for (const Message& message : prompts.told) ADD_FAILURE() << message.caption << ": " << message.text;
}

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (fs::temp_directory_path() / "tarvek-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::Put(std::string_view name, std::string_view bytes) const {
    const std::string path = File(name);
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path;
}

std::vector<std::string> TemporaryFolder::Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(path_)) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) ADD_FAILURE() << "no file " << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

FilesByName FilesUnder(const std::string& folder) {
    FilesByName files;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (!entry.is_directory())
            files[entry.path().lexically_relative(folder).string()] = ReadBytes(entry.path().string());
    return files;
}

std::string ContentOf(std::FILE* stream) {
    std::string content;
    std::rewind(stream);
    for (int c; (c = std::fgetc(stream)) != EOF;) content += static_cast<char>(c);
    return content;
}

std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (const std::string_view line : lines) text.append(line).append("\r\n");
    return text;
}

std::string Repeated(char c, std::size_t count) {
    std::string text;
    text.resize(count, c);
    return text;
}

int FaultNumberOf(const std::function<void()>& run) {
    const std::optional<RuntimeFault> fault = RaisedBy(run);
    return fault ? static_cast<int>(fault->Number()) : 0;
}

Fault FaultOf(const std::function<void()>& run) {
    const std::optional<RuntimeFault> fault = RaisedBy(run);
    if (fault) return fault->Number();
    ADD_FAILURE() << "no fault was raised";
    return {};
}

std::string FaultMessageOf(const std::function<void()>& run) {
    const std::optional<RuntimeFault> fault = RaisedBy(run);
    return fault ? fault->Message() : std::string();
}

std::string RealDataFolder() {
    const fs::path folder = fs::path(TARVEK_SOURCE) / ".." / "shared" / "data";
    std::error_code error;
    return fs::is_directory(folder, error) ? folder.lexically_normal().string() : std::string();
}

}  // namespace tarvek::test
