#pragma once
// Every word to the user goes through this door, from the place where a fault is found: messages, questions,
// text input and the viewer. The console, the windows and the tests each install their own Prompts.

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvek {

inline constexpr std::string_view ProgramTitle = "Tarvek Translator";

enum class Icon { None, Information, Exclamation, Question };
enum class Buttons { OK, OKCancel, YesNo, YesNoCancel };
enum class Button { OK, Cancel, Yes, No };

struct Message {
    std::string text;
    std::string caption{ProgramTitle};
    Icon icon = Icon::Exclamation;
    Buttons buttons = Buttons::OK;
};

struct TextQuestion {
    std::string prompt;
    std::string caption;
};

class Prompts {
  public:
    virtual ~Prompts() = default;
    // Shows the message and waits for one of its buttons.
    virtual Button Show(const Message& message) = 0;
    // The text typed by the user; empty where none was given.
    virtual std::string Ask(const TextQuestion& question) = 0;
    // Shows a text file under a label and returns when the viewer is closed.
    virtual void View(const std::string& path, const std::string& label) = 0;
};

// The prompts in force: the console's until others are installed.
Prompts& UserPrompts();

// Installs prompts for as long as it lives.
class PromptsInForce {
  public:
    explicit PromptsInForce(Prompts& prompts);
    ~PromptsInForce();
    PromptsInForce(const PromptsInForce&) = delete;
    PromptsInForce& operator=(const PromptsInForce&) = delete;

  private:
    Prompts* before_;
};

// Tells a fault (exclamation sign) or a result (information sign); the user can only agree.
void TellFault(std::string text, std::string caption = std::string(ProgramTitle));
void TellResult(std::string text, std::string caption = std::string(ProgramTitle));
// Tells that a survey or command file is not there: "The file '...' can not be found." / "File Not Found".
void TellFileNotFound(const std::string& path);
// Asks; true for Yes or OK.
bool Ask(const Message& question);

// The buttons of a message in the order in which they are shown, and their captions.
std::vector<Button> ButtonsOf(Buttons buttons);
std::string_view CaptionOf(Button button);
std::string_view NameOf(Icon icon);
// The button of that caption, in any letter case.
std::optional<Button> ButtonNamed(std::string_view caption);

}  // namespace tarvek
