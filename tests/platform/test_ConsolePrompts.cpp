#include "platform/modConsolePrompts.hpp"

#include "support/testSupport.hpp"

namespace tarvek {
namespace {

// A console of three streams in memory.
class Console {
  public:
    explicit Console(std::string_view typed)
        : answers_(std::tmpfile()), view_(std::tmpfile()), told_(std::tmpfile()) {
        std::fwrite(typed.data(), 1, typed.size(), answers_);
        std::rewind(answers_);
    }
    ~Console() {
        for (std::FILE* stream : {answers_, view_, told_}) std::fclose(stream);
    }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    ConsolePrompts Prompts() { return {answers_, view_, told_}; }
    std::string Told() { return test::ContentOf(told_); }
    std::string Viewed() { return test::ContentOf(view_); }

  private:
    std::FILE* answers_;
    std::FILE* view_;
    std::FILE* told_;
};

Button AnswerOf(std::string_view typed, Buttons buttons) {
    Console console(typed);
    return console.Prompts().Show({"Go on?", "Title", Icon::Question, buttons});
}

TEST(ConsolePrompts, MessageIsOneBlockAndReadsNothing) {
    Console console("left over\n");
    ConsolePrompts prompts = console.Prompts();
    EXPECT_EQ(prompts.Show({"The file is bad.", "Tarvek Translator", Icon::Exclamation, Buttons::OK}),
              Button::OK);
    EXPECT_EQ(prompts.Ask({"Name?", "Input"}), "left over");
    EXPECT_EQ(console.Told(), "Tarvek Translator: The file is bad.\nInput: Name?\n");
    EXPECT_EQ(console.Viewed(), "");
}

TEST(ConsolePrompts, QuestionShowsItsButtons) {
    const struct {
        Buttons buttons;
        const char* line;
    } table[] = {{Buttons::YesNo, "[Yes/No]"},
                 {Buttons::OKCancel, "[OK/Cancel]"},
                 {Buttons::YesNoCancel, "[Yes/No/Cancel]"}};
    for (const auto& row : table) {
        Console console("\n");
        console.Prompts().Show({"Overwrite?", "Title", Icon::Question, row.buttons});
        EXPECT_EQ(console.Told(), std::string("Title: Overwrite?\n") + row.line + "\n");
    }
}

TEST(ConsolePrompts, FirstLetterDecidesInAnyCase) {
    for (const char* typed : {"y\n", "Y\n", "yes\n", "YES\r\n", "  yup\n", "y"})
        EXPECT_EQ(AnswerOf(typed, Buttons::YesNo), Button::Yes) << typed;
    for (const char* typed : {"n\n", "N\n", "no\n", "never y\n"})
        EXPECT_EQ(AnswerOf(typed, Buttons::YesNoCancel), Button::No) << typed;
    for (const char* typed : {"c\n", "Cancel\n"})
        EXPECT_EQ(AnswerOf(typed, Buttons::YesNoCancel), Button::Cancel) << typed;
    for (const char* typed : {"o\n", "OK\n"})
        EXPECT_EQ(AnswerOf(typed, Buttons::OKCancel), Button::OK) << typed;
}

TEST(ConsolePrompts, AnythingElseIsTheLastButton) {
    for (const char* typed : {"", "\n", "\r\n", "   \n", "maybe\n", "1\n", "\x1B[A\n"}) {
        EXPECT_EQ(AnswerOf(typed, Buttons::YesNo), Button::No) << typed;
        EXPECT_EQ(AnswerOf(typed, Buttons::OKCancel), Button::Cancel) << typed;
        EXPECT_EQ(AnswerOf(typed, Buttons::YesNoCancel), Button::Cancel) << typed;
    }
    EXPECT_EQ(AnswerOf(std::string_view("\0y\n", 3), Buttons::YesNo), Button::No);
}

TEST(ConsolePrompts, EveryQuestionTakesOneLine) {
    Console console("y\nn\n\nsome text \r\n");
    ConsolePrompts prompts = console.Prompts();
    const Message question{"?", "T", Icon::Question, Buttons::YesNo};
    EXPECT_EQ(prompts.Show(question), Button::Yes);
    EXPECT_EQ(prompts.Show(question), Button::No);
    EXPECT_EQ(prompts.Ask({"p", "T"}), "");
    EXPECT_EQ(prompts.Ask({"p", "T"}), "some text ");
    EXPECT_EQ(prompts.Ask({"p", "T"}), "");
    EXPECT_EQ(prompts.Show(question), Button::No);
}

TEST(ConsolePrompts, EndlessAnswerIsCut) {
    Console console(std::string(1 << 20, 'z') + "\nnext\n");
    ConsolePrompts prompts = console.Prompts();
    const std::string answer = prompts.Ask({"p", "T"});
    EXPECT_LE(answer.size(), 65536U);
    EXPECT_EQ(answer, std::string(answer.size(), 'z'));
    EXPECT_EQ(prompts.Ask({"p", "T"}), "next");
}

TEST(ConsolePrompts, LineEndsOfATextBecomeNewLines) {
    Console console("");
    console.Prompts().Show({"one\r\ntwo\rthree\nfour", "Title", Icon::Information, Buttons::OK});
    EXPECT_EQ(console.Told(), "Title: one\ntwo\nthree\nfour\n");
}

TEST(ConsolePrompts, ControlCharactersAreHarmless) {
    Console console("x\n");
    ConsolePrompts prompts = console.Prompts();
    prompts.Show({"\x1B]0;owned\x07 \x08\tend", "Ti\x1Btle", Icon::Exclamation, Buttons::OK});
    prompts.Ask({"\x1B[2J", "C\x7F"});
    EXPECT_EQ(console.Told(), "Ti^[tle: ^[]0;owned^G ^H end\nC^?: ^[[2J\n");
}

TEST(ConsolePrompts, BothCodesAreShown) {
    Console console("");
    ConsolePrompts prompts = console.Prompts();
    prompts.Show({"Z\xC3\xBCrich", "UTF-8", Icon::None, Buttons::OK});
    prompts.Show({"45\xB0 \x80", "1252", Icon::None, Buttons::OK});
    EXPECT_EQ(console.Told(), "UTF-8: Z\xC3\xBCrich\n1252: 45\xC2\xB0 \xE2\x82\xAC\n");
}

TEST(ConsolePrompts, ViewerPrintsItsFile) {
    const test::TemporaryFolder folder;
    Console console("");
    console.Prompts().View(folder.Put("report.txt", "one\r\n45\xB0\x1B[0m\r\nlast"), "Report");
    EXPECT_TRUE(console.Viewed().ends_with("one\n45\xC2\xB0^[[0m\nlast\n")) << console.Viewed();
    EXPECT_EQ(console.Told(), "");
}

}  // namespace
}  // namespace tarvek
