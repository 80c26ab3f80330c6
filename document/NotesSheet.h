#pragma once
// The notes of a line: four free texts stored with the line file and shown in the
// reports. The treatment name is also the "Treatment name" box of the input window.

#include <string>

namespace morvane {

struct NotesSheet {
    std::string TreatmentName;
    std::string TreatedTarget;
    std::string ExperimentDate;
    std::string MoreInformation;

    friend bool operator==(const NotesSheet&, const NotesSheet&) = default;
};

}  // namespace morvane
