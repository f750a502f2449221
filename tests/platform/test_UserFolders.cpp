#include "platform/modUserFolders.hpp"

#include "environment.hpp"
#include "support/testSupport.hpp"

namespace tarvek {
namespace {

using test::Variable;

TEST(UserFolders, VariablesComeBeforeTheHome) {
    const Variable home("HOME", "/home/a");
    const Variable config("XDG_CONFIG_HOME", "/c");
    const Variable data("XDG_DATA_HOME", "/d/");
    EXPECT_EQ(ConfigFolder(), "/c/tarvek-translator");
    EXPECT_EQ(DataFolder(), "/d/tarvek-translator");
}

TEST(UserFolders, RelativeVariablesCountAsNotSet) {
    const Variable home("HOME", "/home/a");
    for (const char* unusable : {static_cast<const char*>(nullptr), "", "relative", "./c"}) {
        const Variable config("XDG_CONFIG_HOME", unusable);
        const Variable data("XDG_DATA_HOME", unusable);
        EXPECT_EQ(ConfigFolder(), "/home/a/.config/tarvek-translator");
        EXPECT_EQ(DataFolder(), "/home/a/.local/share/tarvek-translator");
    }
}

TEST(UserFolders, UserWithoutAHomeHasNone) {
    const Variable home("HOME", nullptr);
    const Variable config("XDG_CONFIG_HOME", nullptr);
    const Variable data("XDG_DATA_HOME", nullptr);
    EXPECT_EQ(ConfigFolder(), "");
    EXPECT_EQ(DataFolder(), "");
}

}  // namespace
}  // namespace tarvek
