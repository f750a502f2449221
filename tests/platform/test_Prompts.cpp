#include "platform/modPrompts.hpp"

#include "support/testSupport.hpp"

namespace tarvek {
namespace {

using test::ScriptedPrompts;

TEST(Prompts, InnermostPromptsAreInForce) {
    ScriptedPrompts outer;
    EXPECT_EQ(&UserPrompts(), &outer);
    {
        const ScriptedPrompts inner;
        EXPECT_EQ(&UserPrompts(), &inner);
    }
    EXPECT_EQ(&UserPrompts(), &outer);
}

TEST(Prompts, FaultHasAnExclamationSign) {
    const ScriptedPrompts prompts;
    TellFault("No such zone.");
    test::ExpectToldOnly(prompts, "No such zone.", "Tarvek Translator");
}

TEST(Prompts, ResultHasAnInformationSign) {
    const ScriptedPrompts prompts;
    TellResult("Done.", "Point Report");
    ASSERT_EQ(prompts.told.size(), 1U);
    EXPECT_EQ(prompts.told[0].text, "Done.");
    EXPECT_EQ(prompts.told[0].caption, "Point Report");
    EXPECT_EQ(prompts.told[0].icon, Icon::Information);
    EXPECT_EQ(prompts.told[0].buttons, Buttons::OK);
}

TEST(Prompts, YesAndOkAgree) {
    ScriptedPrompts prompts;
    prompts.answers = {Button::Yes, Button::No, Button::OK, Button::Cancel, Button::Cancel};
    EXPECT_TRUE(Ask({"?", "T", Icon::Question, Buttons::YesNo}));
    EXPECT_FALSE(Ask({"?", "T", Icon::Question, Buttons::YesNo}));
    EXPECT_TRUE(Ask({"?", "T", Icon::Question, Buttons::OKCancel}));
    EXPECT_FALSE(Ask({"?", "T", Icon::Question, Buttons::OKCancel}));
    EXPECT_FALSE(Ask({"?", "T", Icon::Question, Buttons::YesNoCancel}));
}

TEST(Prompts, ButtonsAreShownInTheirOrder) {
    using List = std::vector<Button>;
    EXPECT_EQ(ButtonsOf(Buttons::OK), (List{Button::OK}));
    EXPECT_EQ(ButtonsOf(Buttons::OKCancel), (List{Button::OK, Button::Cancel}));
    EXPECT_EQ(ButtonsOf(Buttons::YesNo), (List{Button::Yes, Button::No}));
    EXPECT_EQ(ButtonsOf(Buttons::YesNoCancel), (List{Button::Yes, Button::No, Button::Cancel}));
}

TEST(Prompts, ButtonsAreFoundByTheirCaption) {
    EXPECT_EQ(CaptionOf(Button::OK), "OK");
    EXPECT_EQ(CaptionOf(Button::Cancel), "Cancel");
    EXPECT_EQ(CaptionOf(Button::Yes), "Yes");
    EXPECT_EQ(CaptionOf(Button::No), "No");
    for (const Button button : {Button::OK, Button::Cancel, Button::Yes, Button::No})
        EXPECT_EQ(ButtonNamed(CaptionOf(button)), button);
    EXPECT_EQ(ButtonNamed("yES"), Button::Yes);
    EXPECT_EQ(ButtonNamed("Y"), std::nullopt);
    EXPECT_EQ(ButtonNamed(""), std::nullopt);
}

TEST(Prompts, IconsHaveNames) {
    EXPECT_EQ(NameOf(Icon::None), "none");
    EXPECT_EQ(NameOf(Icon::Information), "information");
    EXPECT_EQ(NameOf(Icon::Exclamation), "exclamation");
    EXPECT_EQ(NameOf(Icon::Question), "question");
}

}  // namespace
}  // namespace tarvek
