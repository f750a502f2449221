#include "cli/modRunReport.hpp"

#include <nlohmann/json.hpp>

#include "platform/modCodePage.hpp"
#include "platform/modStandardOutput.hpp"
#include "platform/modTextFileOut.hpp"

namespace tarvek {
namespace {

using Json = nlohmann::ordered_json;

Json SystemJson(const CoordSystemRef& system) {
    return {{"CS", Utf8FromBytes(system.CS)}, {"ZN", Utf8FromBytes(system.ZN)},
            {"HD", Utf8FromBytes(system.HD)}, {"HorizontalUnits", Utf8FromBytes(system.HorizontalUnits)},
            {"VD", Utf8FromBytes(system.VD)}, {"VerticalUnits", Utf8FromBytes(system.VerticalUnits)}};
}

Json FileJson(const FileReport& side) {
    return {{"file", Utf8FromBytes(side.file)},
            {"format", side.format},
            {"points", side.points},
            {"chains", side.chains},
            {"system", SystemJson(side.system)}};
}

Json MessageJson(const ToldMessage& told) {
    Json buttons = Json::array();
    for (const Button button : ButtonsOf(told.message.buttons)) buttons.push_back(CaptionOf(button));
    return {{"caption", Utf8FromBytes(told.message.caption)},
            {"text", Utf8FromBytes(told.message.text)},
            {"icon", NameOf(told.message.icon)},
            {"buttons", buttons},
            {"answer", Utf8FromBytes(told.answer)}};
}

}  // namespace

void WriteRunReport(const std::string& path, const RunReport& report, const std::vector<ToldMessage>& told) {
    Json messages = Json::array();
    for (const ToldMessage& message : told) messages.push_back(MessageJson(message));
    const Json json = {{"result", report.done ? "done" : "failed"},
                       {"input", FileJson(report.input)},
                       {"output", FileJson(report.output)},
                       {"stages", Json::array()},
                       {"messages", messages}};
    const std::string text = json.dump(2) + "\n";
    if (path == "-")
        PrintToStandardOutput(text);
    else
        WriteTextFile(path, [&](TextFileOut& file) { file.Text(text); });
}

}  // namespace tarvek
