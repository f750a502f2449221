#include "library/modErrorState.hpp"

#include "platform/modText.hpp"

namespace tarvek {
namespace {

ErrorState TheError;

}  // namespace

const ErrorState& GET_ErrorState() { return TheError; }

void SET_ErrorState(int number, std::string_view description, std::string_view source) {
    TheError = {number, std::string(description), std::string(source)};
}

void CLEAR_ErrorState() { TheError = {}; }

std::string GET_ErrorMessage(const ErrorState& error) {
    std::string message = "Error: " + error.description;
    message += LineEnd;
    return message + "Function: " + error.source;
}

}  // namespace tarvek
