#pragma once
// The dialogs that core procedures open, gathered in one record. The desktop program fills it with its
// windows, tests with a script; a port that nobody filled tells that its dialog can not be shown and counts
// as cancelled.

#include <functional>

namespace tarvek {

struct DialogPorts {
    // The translation dialog, with the defaults in force; returns when it is shown.
    std::function<void()> ShowTranslate;
};

DialogPorts& Dialogs();

// Opens the translation dialog through its port.
void ShowTranslateDialog();

}  // namespace tarvek
