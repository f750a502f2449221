#pragma once
// The error state: why the last library or ellipsoid procedure that gave false did so. Such a procedure
// writes it and tells nobody; the dialog that called shows it.

#include <string>
#include <string_view>

namespace tarvek {

struct ErrorState {
    int number = 0;  // 0: no error
    std::string description;
    std::string source;  // module and procedure: "modMisc.LOAD_Zones_ComboBoxList"
};

const ErrorState& GET_ErrorState();
void SET_ErrorState(int number, std::string_view description, std::string_view source);
void CLEAR_ErrorState();

// What a dialog tells of it: "Error: <description>", a line end, "Function: <source>".
std::string GET_ErrorMessage(const ErrorState& error = GET_ErrorState());

}  // namespace tarvek
