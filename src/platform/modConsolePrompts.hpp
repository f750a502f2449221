#pragma once
// Prompts on a console: told on standard error, answered on standard input, one line each.

#include <cstdio>

#include "platform/modPrompts.hpp"

namespace tarvek {

class ConsolePrompts : public Prompts {
  public:
    ConsolePrompts() : ConsolePrompts(stdin, stdout, stderr) {}
    ConsolePrompts(std::FILE* answers, std::FILE* view, std::FILE* told)
        : answers_(answers), view_(view), told_(told) {}

    // One block "<caption>: <text>". A question is followed by a line such as "[Yes/No]"; the first letter of
    // the answer decides in any case, and anything else, the end of input among it, is the last button.
    Button Show(const Message& message) override;
    std::string Ask(const TextQuestion& question) override;
    void View(const std::string& path, const std::string& label) override;

    // The block and, for a question, the line of its buttons; without the answer.
    void Tell(const Message& message);

  private:
    std::string ReadAnswer();

    std::FILE* answers_;
    std::FILE* view_;
    std::FILE* told_;
};

}  // namespace tarvek
