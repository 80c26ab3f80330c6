#include "document/InputKeys.h"

namespace morvane {

bool InputKeyAllowed(InputCell cell, char key) {
    if ((key >= '0' && key <= '9') || key == kBackspace || key == kEnter || key == '.')
        return true;
    if (cell != InputCell::TextDose)
        return false;
    return key == ',' || key == 'E' || key == 'e' || key == '-';
}

KeyMove RightArrowAtEnd(InputCell cell, bool text2inputVisible) {
    switch (cell) {
        case InputCell::TextDose:
            return KeyMove::ToText1input;
        case InputCell::Text1input:
            return text2inputVisible ? KeyMove::ToText2input : KeyMove::ToCommandAccept;
        case InputCell::Text2input:
            return KeyMove::ToCommandAccept;
    }
    return KeyMove::None;
}

KeyMove LeftArrowAtStart(InputCell cell) {
    switch (cell) {
        case InputCell::TextDose:
            return KeyMove::None;
        case InputCell::Text1input:
            return KeyMove::ToTextDose;
        case InputCell::Text2input:
            return KeyMove::ToText1input;
    }
    return KeyMove::None;
}

KeyMove EnterKey(InputCell cell, bool text2inputVisible) {
    switch (cell) {
        case InputCell::TextDose:
            return KeyMove::ToText1input;
        case InputCell::Text1input:
            return text2inputVisible ? KeyMove::ToText2input : KeyMove::RunAccept;
        case InputCell::Text2input:
            return KeyMove::RunAccept;
    }
    return KeyMove::None;
}

}  // namespace morvane
