// Any bytes as a search-and-replace file and as its input, parted by the first NUL: an output is written only
// by a run that has ended well, and has no line without a text.

#include "fuzz/fuzzSupport.hpp"
#include "texttools/modSearchReplace.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvek;
    static const fuzz::OutputFolder folder;
    fuzz::QuietPrompts prompts;
    const std::string_view text = fuzz::TextOf(data, size);
    const std::size_t border = std::min(text.find('\0'), text.size());
    const fuzz::MemoryFile commands(text.substr(0, border));
    // A line of its own first: an input without any would take the lines of the run before.
    const std::string lines = "PN:1\r\n" + std::string(text.substr(std::min(border + 1, text.size())));
    const fuzz::MemoryFile input(lines);
    const std::string output = folder.FreshFile("output.ctl");
    const bool isDone =
        fuzz::Succeeds([&] { return RunSearchReplace(input.Path(), output, commands.Path()); });
    fuzz::Require(std::filesystem::exists(output) == isDone, "there is an output if the run ended well");
    const std::string bytes = isDone ? fuzz::ReadBytes(output) : "";
    fuzz::Require(bytes.empty() || bytes.ends_with("\r\n"), "the last line has an end");
    fuzz::Require(!bytes.starts_with("\r\n"), "the first line has a text");
    return 0;
}
