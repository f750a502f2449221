#pragma once
// What holds of any bytes as a file that may hold chains: a refusal leaves the tables as they were, and what
// has been read can be written and read again.

#include <algorithm>

#include "fuzz/fuzzSupport.hpp"
#include "fuzz/fuzzTables.hpp"
#include "platform/modText.hpp"
#include "surveyfiles/modSurveyRecords.hpp"

namespace tarvek::fuzz {

struct FileFamily {
    bool (*read)(const std::string& path);
    bool (*write)(const std::string& path);
    bool keepsKinds;  // geometry and kind of coordinates come back
};

inline void RequireSamePoint(const PointRecord& before, const PointRecord& after) {
    Require(after.PN == before.PN, "a name comes back");
    Require(after.PD == before.PD, "a description comes back");
    Require(after.Others == before.Others, "other lines come back");
    Require(after.FE == before.FE && after.CL == before.CL && after.GR == before.GR, "words come back");
}

inline void RequireSameKinds(const PointRecord& before, const PointRecord& after) {
    Require(after.GM == (before.GM.empty() ? Word("P") : before.GM), "a geometry comes back");
    Require(after.HorizontalControl == before.HorizontalControl, "the kind of coordinates comes back");
}

// The names of a point list without its tags, line ends and blanks, which wrapping changes.
inline std::string NamesIn(std::string list) {
    std::erase_if(list, [](char c) { return c == ' ' || c == '\r' || c == '\n'; });
    return ReplaceAll(list, "PL:", "");
}

inline void RequireSameChain(const ChainRecord& before, const ChainRecord& after) {
    Require(after.FE == before.FE && after.FG == before.FG, "the codes of a chain come back");
    Require(after.CH == before.CH, "the numbers of a chain come back");
    Require(after.Others == before.Others, "other lines of a chain come back");
    Require(NamesIn(after.PL) == NamesIn(before.PL), "the points of a chain come back");
}

template <class List, class Check>
void RequireSameList(const List& before, const List& after, Check check) {
    Require(after.size() == before.size(), "as many records come back");
    for (std::size_t i = 0; i < before.size(); ++i) check(before[i], after[i]);
}

// A "UL:" line behind a point leaves that point in another unit, and what is carried to the unit of the file
// may get too large.
inline bool IsInUnitOfFile() {
    const PointList& points = Tables().OutputPoints;
    return std::all_of(points.begin(), points.end(), [](const PointRecord& point) {
        return point.HorizontalUnits.Text() == Tables().InputHeader.System.HorizontalUnits;
    });
}

template <class Fits>
bool AnyChain(Fits fits) {
    const ChainList& chains = Tables().OutputChains;
    return chains.IsAllocated() && std::any_of(chains.begin(), chains.end(), fits);
}

inline void WriteAndReadAgain(const std::string& path, const FileFamily& family) {
    CopyInputToOutput();
    const bool isWritten = Succeeds([&] { return family.write(path); });
    Require(isWritten || !IsInUnitOfFile(), "what was read can be written");
    // Degrees that were rounded up may leave the range of the reader.
    if (!isWritten || !Succeeds([&] { return family.read(path); })) return;
    const SurveyTables& tables = Tables();
    Require(!AnyChain([](const ChainRecord& chain) { return chain.PL.empty(); }),
            "a chain without points makes a blank line, which is refused");
    // A description loses its tag, so that its text may be read as any line.
    if (AnyChain([](const ChainRecord& chain) { return !chain.CD.empty(); })) return;
    RequireSameList(tables.OutputPoints, tables.InputPoints, RequireSamePoint);
    if (family.keepsKinds) RequireSameList(tables.OutputPoints, tables.InputPoints, RequireSameKinds);
    Require(tables.InputChains.IsAllocated() == tables.OutputChains.IsAllocated(), "chains come back");
    if (tables.OutputChains.IsAllocated())
        RequireSameList(tables.OutputChains, tables.InputChains, RequireSameChain);
}

// Runs one input of such a target.
inline void RunSurveyFile(std::string_view bytes, const std::string& output, const FileFamily& family) {
    QuietPrompts prompts;
    const MemoryFile file(bytes);
    FillInput();
    bool faulted = false;
    bool isRead = false;
    try {
        isRead = family.read(file.Path());
    } catch (const RuntimeFault&) {
        faulted = true;
    }
    if (isRead) {
        Require(Tables().InputPoints.IsAllocated(), "a file that was read has a point");
        WriteAndReadAgain(output, family);
    } else {
        RequireInputAsBefore();
        Require(faulted || prompts.told > 0, "a refusal is told");
    }
}

}  // namespace tarvek::fuzz
