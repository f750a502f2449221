#include "cli/modAnsweringPrompts.hpp"

#include <algorithm>

#include "platform/modText.hpp"

namespace tarvek {

Button AnsweringPrompts::Show(const Message& message) {
    const std::optional<Button> prepared = PreparedButton(message);
    if (prepared) console_.Tell(message);
    const Button answer = prepared ? *prepared : console_.Show(message);
    told_.push_back({message, answer});
    return answer;
}

std::string AnsweringPrompts::Ask(const TextQuestion& question) {
    const std::optional<std::string> prepared = PreparedFor(question.caption);
    return prepared ? *prepared : console_.Ask(question);
}

std::optional<std::string> AnsweringPrompts::PreparedFor(const std::string& caption) const {
    for (const std::string& answer : prepared_.answers) {
        const std::size_t mark = answer.rfind('=');
        if (mark != std::string::npos && EqualsIgnoringCase(answer.substr(0, mark), caption))
            return answer.substr(mark + 1);
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
