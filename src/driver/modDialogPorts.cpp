#include "driver/modDialogPorts.hpp"

#include "platform/modPrompts.hpp"

namespace tarvek {

DialogPorts& Dialogs() {
    static DialogPorts ports;
    return ports;
}

void ShowTranslateDialog() {
    if (Dialogs().ShowTranslate)
        Dialogs().ShowTranslate();
    else
        TellFault("The translation dialog can not be shown here.");
}

}  // namespace tarvek
