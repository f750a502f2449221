#include "platform/modConsolePrompts.hpp"

#include "platform/modCodePage.hpp"
#include "platform/modProgress.hpp"
#include "platform/modText.hpp"
#include "platform/modTextFileIn.hpp"

namespace tarvek {
namespace {

constexpr std::size_t LongestAnswer = 4096;  // what a line holds beyond that is dropped

bool SameLetter(char typed, char initial) { return EqualsIgnoringCase({&typed, 1}, {&initial, 1}); }

std::string ButtonLine(const std::vector<Button>& buttons) {
    std::string line = "[";
    for (const Button button : buttons) line.append(line.size() > 1 ? "/" : "").append(CaptionOf(button));
    return line + "]";
}

}  // namespace

void ConsolePrompts::Tell(const Message& message) {
    PauseProgress();
    std::string block = TerminalText(message.caption) + ": " + TerminalText(message.text) + "\n";
    if (message.buttons != Buttons::OK) block += ButtonLine(ButtonsOf(message.buttons)) + "\n";
    std::fwrite(block.data(), 1, block.size(), told_);
    std::fflush(told_);
}

Button ConsolePrompts::Show(const Message& message) {
    Tell(message);
    const std::vector<Button> buttons = ButtonsOf(message.buttons);
    if (buttons.size() == 1) return buttons.front();
    const std::string answer(Trim(ReadAnswer()));
    for (const Button button : buttons)
        if (!answer.empty() && SameLetter(answer.front(), CaptionOf(button).front())) return button;
    return buttons.back();
}

std::string ConsolePrompts::Ask(const TextQuestion& question) {
    PauseProgress();
    const std::string block = TerminalText(question.caption) + ": " + TerminalText(question.prompt) + "\n";
    std::fwrite(block.data(), 1, block.size(), told_);
    std::fflush(told_);
    return ReadAnswer();
}

void ConsolePrompts::View(const std::string& path, const std::string& /*label*/) {
    std::string text;
    TextFileIn file(path);
    for (std::string_view line; file.NextLine(line);) text += TerminalText(line) + "\n";
    std::fwrite(text.data(), 1, text.size(), view_);
    std::fflush(view_);
}

std::string ConsolePrompts::ReadAnswer() {
    std::string line;
    for (int c; (c = std::fgetc(answers_)) != EOF && c != '\n';)
        if (line.size() < LongestAnswer) line += static_cast<char>(c);
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

}  // namespace tarvek
