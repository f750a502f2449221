#include "cli/modAnsweringPrompts.hpp"

#include <algorithm>

#include "platform/modText.hpp"

namespace tarvek {

Button AnsweringPrompts::Show(const Message& message) {
    Message named = message;
    named.text = WithNames(message.text);
    const std::optional<Button> prepared = PreparedButton(named);
    if (prepared) console_.Tell(named);
    const Button answer = prepared ? *prepared : console_.Show(named);
    told_.push_back({std::move(named), std::string(CaptionOf(answer))});
    return answer;
}

std::string AnsweringPrompts::Ask(const TextQuestion& question) {
    const std::optional<std::string> prepared = PreparedFor(question.caption);
    std::string answer = prepared ? *prepared : console_.Ask(question);
    told_.push_back({{question.prompt, question.caption, Icon::Question, Buttons::OK}, answer});
    return answer;
}

void AnsweringPrompts::CallFile(std::string path, std::string name) {
    names_.emplace_back(std::move(path), std::move(name));
}

std::string AnsweringPrompts::WithNames(const std::string& text) const {
    std::string named = text;
    for (const auto& [path, name] : names_) named = ReplaceAll(named, path, name);
    return named;
}

std::optional<std::string> AnsweringPrompts::PreparedFor(const std::string& caption) const {
    for (const std::string& answer : prepared_.answers) {
        const std::size_t mark = answer.find('=');
        if (mark != std::string::npos &&
            EqualsIgnoringCase(Trim(std::string_view(answer).substr(0, mark)), caption))
            return std::string(Trim(std::string_view(answer).substr(mark + 1)));
    }
    return std::nullopt;
}

std::optional<Button> AnsweringPrompts::PreparedButton(const Message& message) const {
    const std::vector<Button> buttons = ButtonsOf(message.buttons);
    const std::optional<Button> named = ButtonNamed(PreparedFor(message.caption).value_or(""));
    if (named && std::find(buttons.begin(), buttons.end(), *named) != buttons.end()) return named;
    // Yes and OK stand first wherever they stand.
    if (prepared_.yesToAll || buttons.size() == 1) return buttons.front();
    return std::nullopt;
}

}  // namespace tarvek
