#pragma once
// The program's own single-line machinery as the comparison drives it: the input
// document reads each line file silently (both layouts, the older one with only the
// rows of its first table, as in every comparison), and the results tables of one
// line are filled by the calculation through their channel, exactly as for a line
// that the user opens and calculates. Nothing is read or calculated a second way.

#include "document/LineDocument.h"
#include "relative/LineBatch.h"
#include "results/LineResults.h"

namespace morvane {

class DocumentLineCalculator : public LineCalculator {
  public:
    // The document and the results must work on the shared registers that the
    // comparison is given; both must outlive this object.
    DocumentLineCalculator(LineDocument& document, LineResults& results)
        : document_(document), results_(results) {}

    // ResetLine, then the file into the document's tables (OpenLineForBatch).
    void OpenLineForBatch(const std::string& path, SharedRegisters& shared) override;
    // CalculateFile on the document's response table, the results channel answering.
    void CalculateFile(SharedRegisters& shared, UserPort& port) override;

  private:
    LineDocument& document_;
    LineResults& results_;
};

}  // namespace morvane
