#include "driver/modFileTypes.hpp"

#include "foreignfiles/modNGSFiles.hpp"
#include "platform/modPaths.hpp"
#include "platform/modText.hpp"
#include "surveyfiles/modTarvekFiles.hpp"

namespace tarvek {
namespace {

constexpr FileType FileTypes[] = {
    {"NGS Data Sheets (*.TXT)", "ngs", ReadNGSFile, nullptr, nullptr},
    {"NGS Data Sheets (*.HTM)", "ngs", ReadNGSFile, nullptr, nullptr},
    {"NGS Data Sheets (*.DAT)", "ngs", ReadNGSFile, nullptr, nullptr},
    {"Tarvek Control Files (*.CTL)", "ctl", ReadControlFile, WriteControlFile, WriteControlFile},
    {"Tarvek Points and Chains Files (*.PAC)", "pac", ReadPointsAndChainsFile, WritePointsAndChainsFile,
     WritePointsAndChainsFile},
    {"Tarvek Project Files (*.PRJ)", "prj", ReadProjectFile, nullptr, WriteProjectFile},
    {"Tarvek Edited Project Files (*.EDI)", "edi", ReadProjectFile, nullptr, WriteProjectFile},
    {"Tarvek Calculated Files (*.CAL)", "cal", ReadProjectFile, nullptr, WriteProjectFile},
};

// The extension of a label, with its point: what lies between "*" and ")".
std::string_view ExtensionOf(std::string_view label) {
    const std::size_t star = label.rfind('*');
    return label.substr(star + 1, label.size() - star - 2);
}

}  // namespace

const FileType* FileTypeOfLabel(std::string_view label) {
    for (const FileType& type : FileTypes)
        if (type.label == label) return &type;
    return nullptr;
}

const FileType* FileTypeOfKey(std::string_view key) {
    for (const FileType& type : FileTypes)
        if (EqualsIgnoringCase(type.key, key)) return &type;
    return nullptr;
}

const FileType* FileTypeOfPath(std::string_view path) {
    const std::string name = FileName(NativePath(path));
    const std::size_t point = name.rfind('.');
    if (point == std::string::npos) return nullptr;
    for (const FileType& type : FileTypes)
        if (EqualsIgnoringCase(ExtensionOf(type.label), std::string_view(name).substr(point))) return &type;
    return nullptr;
}

std::string KeysWith(FileRoutine FileType::*routine) {
    std::string keys;
    std::string_view last;
    for (const FileType& type : FileTypes) {
        if (type.*routine == nullptr || type.key == last) continue;
        keys.append(keys.empty() ? "" : " ").append(type.key);
        last = type.key;
    }
    return keys;
}

}  // namespace tarvek
