#include "platform/modPrompts.hpp"

#include "platform/modConsolePrompts.hpp"
#include "platform/modText.hpp"

namespace tarvek {
namespace {

Prompts*& Installed() {
    static Prompts* prompts = nullptr;
    return prompts;
}

struct ButtonCaption {
    Button button;
    std::string_view caption;
};

constexpr ButtonCaption ButtonCaptions[] = {
    {Button::OK, "OK"}, {Button::Cancel, "Cancel"}, {Button::Yes, "Yes"}, {Button::No, "No"}};

}  // namespace

Prompts& UserPrompts() {
    static ConsolePrompts console;
    return Installed() ? *Installed() : console;
}

PromptsInForce::PromptsInForce(Prompts& prompts) : before_(Installed()) { Installed() = &prompts; }
PromptsInForce::~PromptsInForce() { Installed() = before_; }

void TellFault(std::string text, std::string caption) {
    UserPrompts().Show({std::move(text), std::move(caption), Icon::Exclamation, Buttons::OK});
}

void TellResult(std::string text, std::string caption) {
    UserPrompts().Show({std::move(text), std::move(caption), Icon::Information, Buttons::OK});
}

void TellFileNotFound(const std::string& path) {
    TellFault("The file '" + path + "' can not be found.", "File Not Found");
}

bool Ask(const Message& question) {
    const Button answer = UserPrompts().Show(question);
    return answer == Button::Yes || answer == Button::OK;
}

std::vector<Button> ButtonsOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::OKCancel:
            return {Button::OK, Button::Cancel};
        case Buttons::YesNo:
            return {Button::Yes, Button::No};
        case Buttons::YesNoCancel:
            return {Button::Yes, Button::No, Button::Cancel};
        case Buttons::OK:
            break;
    }
    return {Button::OK};
}

std::string_view CaptionOf(Button button) {
    for (const ButtonCaption& row : ButtonCaptions)
        if (row.button == button) return row.caption;
    return {};
}

std::optional<Button> ButtonNamed(std::string_view caption) {
    for (const ButtonCaption& row : ButtonCaptions)
        if (EqualsIgnoringCase(row.caption, caption)) return row.button;
    return std::nullopt;
}

std::string_view NameOf(Icon icon) {
    constexpr std::string_view Names[] = {"none", "information", "exclamation", "question"};
    return Names[static_cast<std::size_t>(icon)];
}

}  // namespace tarvek
