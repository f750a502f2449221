#pragma once
// Prompts of the scriptable front end: the console's, answered beforehand where the options say so, with a
// record of all that was told.

#include <string>
#include <utility>
#include <vector>

#include "platform/modConsolePrompts.hpp"

namespace tarvek {

struct PreparedAnswers {
    bool yesToAll = false;             // every question is answered Yes or OK
    std::vector<std::string> answers;  // "CAPTION=BUTTON", or "CAPTION=TEXT" for a text question
};

struct ToldMessage {
    Message message;
    std::string answer;  // the caption of the button, or what was typed
};

class AnsweringPrompts : public Prompts {
  public:
    explicit AnsweringPrompts(PreparedAnswers prepared) : prepared_(std::move(prepared)), inForce_(*this) {}
    Button Show(const Message& message) override;
    std::string Ask(const TextQuestion& question) override;
    void View(const std::string& path, const std::string& label) override { console_.View(path, label); }

    // Has messages call the file at `path` by `name`.
    void CallFile(std::string path, std::string name);

    // Every message and question, in order.
    const std::vector<ToldMessage>& Told() const { return told_; }

  private:
    // The answer prepared for a caption, in any letter case.
    std::optional<std::string> PreparedFor(const std::string& caption) const;
    std::optional<Button> PreparedButton(const Message& message) const;

    std::string WithNames(const std::string& text) const;

    PreparedAnswers prepared_;
    std::vector<std::pair<std::string, std::string>> names_;  // of files, by their paths
    ConsolePrompts console_;
    std::vector<ToldMessage> told_;
    PromptsInForce inForce_;
};

}  // namespace tarvek
