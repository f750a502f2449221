#include "surveyfiles/modChainBlock.hpp"

#include "platform/modClock.hpp"

namespace tarvek {
namespace {

constexpr std::size_t LongestLine = 80;

void PrintChain(TextFileOut& file, const ChainRecord& chain) {
    const auto printIfAny = [&file](std::string_view tag, std::string_view value) {
        if (!value.empty()) file.Line(tag, value);
    };
    file.Line("AC:CH");
    printIfAny("FE:", chain.FE);
    printIfAny("", chain.CD);
    printIfAny("FG:", chain.FG);
    file.Line(WrapPointList(chain.PL));
    printIfAny("", chain.CH);
    printIfAny("", chain.Others);
    printIfAny("GR:", chain.GR);
    printIfAny("CL:", chain.CL);
}

}  // namespace

void PrintChains(TextFileOut& file, const ChainList& chains) {
    if (!chains.IsAllocated()) return;
    file.Line("BG:BEGIN CHAIN LIST");
    for (const ChainRecord& chain : chains) PrintChain(file, chain);
    file.Line("EG:END CHAIN LIST");
    file.Line("CP:", DateTimeText(Now()));
}

std::string WrapPointList(std::string_view text) {
    std::string out;
    std::string_view tag;  // "PL:" in front of everything but the first piece
    std::string_view rest = text;
    while (tag.size() + rest.size() > LongestLine) {
        const std::size_t comma = rest.substr(0, LongestLine - tag.size()).rfind(',');
        if (comma == std::string_view::npos) break;
        const std::string_view piece = rest.substr(0, comma + 1);
        out.append(tag).append(tag.empty() ? Trim(piece) : TrimRight(piece)).append(LineEnd);
        rest = Trim(rest.substr(comma + 1));
        tag = "PL:";
    }
    return out.append(tag).append(rest);
}

}  // namespace tarvek
